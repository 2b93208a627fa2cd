#pragma once

#include <QImage>
#include <optional>
#include <string>
#include <vector>

namespace tovrel {

/// A picture that waits to be shown again. One of at most 256 colours, as a base map without relief
/// has, is kept as runs of equal pixels: they take a twentieth of its memory and less time than to
/// copy it. Any other is kept as it is.
class PackedPicture {
public:
    /// No picture.
    PackedPicture() = default;

    /// @param image of any format; what is transparent counts as opaque
    explicit PackedPicture(const QImage& image);

    /// Of the runs of a file.
    /// @param runs see runs()
    /// @return nothing unless they fill the size exactly, in these colours
    static std::optional<PackedPicture> ofRuns(QSize size, std::vector<QRgb> colours,
                                               std::string runs);

    QSize size() const { return size_; }

    /// Whether there are too many colours for runs.
    bool isPlain() const { return runs_.empty(); }

    /// Colours of the runs, opaque.
    const std::vector<QRgb>& colours() const { return colours_; }

    /// The runs as bitmap files have them (RLE8), rows from below: for each run its length, 1 to
    /// 255, and the number of its colour; 0 and 0 after each row, 0 and 1 at the end.
    const std::string& runs() const { return runs_; }

    /// The picture as 32 bits without alpha.
    QImage image() const;

    /// The same in place of another image, whose memory is used again if it has this size.
    void unpackTo(QImage& image) const;

private:
    QSize size_{0, 0};
    std::vector<QRgb> colours_;
    std::string runs_;
    QImage plain_; ///< Format_RGB32; null where there are runs
};

} // namespace tovrel
