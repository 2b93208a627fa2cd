#pragma once

#include "state/iniFiles.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tovrel {

/// What the file of a map can be. Of these PDF is a page of paper, the others are pictures.
enum class PictureFormat { Png, Jpeg, Bmp, Pdf };

/// The paper of a page.
enum class Paper { A4, A3, Letter };

/// Each paper once, in the order of the enumeration.
inline constexpr std::array<Paper, 3> allPapers = {Paper::A4, Paper::A3, Paper::Letter};

/// Name of a paper, "A4".
std::string_view nameOf(Paper paper);

/// Extension of a format's files, ".png".
std::string_view extensionOf(PictureFormat format);

/// Format of a file by its extension; ".jpeg" is one of JPEG, too.
std::optional<PictureFormat> formatOfExtension(std::string_view path);

/// How the user wants a map exported as a picture; kept from one export to the next.
struct PictureOptions {
    /// Widths that can be asked for, pixels.
    static constexpr int leastPixels = 1000;
    static constexpr int mostPixels = 8000;

    PictureFormat format = PictureFormat::Png; ///< any but Bmp
    int pixels = 3000;                         ///< width of a picture
    Paper paper = Paper::A4;                   ///< of a page
    bool caption = true;                       ///< what the map shows is told below it
    std::string folder{};                      ///< where the last file went; empty for none

    bool operator==(const PictureOptions&) const = default;
};

/// What the settings say; the defaults for what they don't, or for what can't be.
/// @param paper of one who has not chosen yet
PictureOptions readPictureOptions(const iniFiles& ini, Paper paper);

/// Stores all of them.
void writePictureOptions(iniFiles& ini, const PictureOptions& options);

} // namespace tovrel
