#pragma once

#include "log/Qso.h"
#include "platform/ByteSum.h"

#include <QFile>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tovrel {

/// Placemarks that a document holds.
struct GoogleCounters {
    std::int32_t GoogleConfirmed = 0; ///< in each folder
    std::int32_t GoogleWorked = 0;    ///< likewise
    std::int32_t GoogleHeard = 0;     ///< likewise

    /// In all three folders.
    std::int32_t GooglePlaced() const { return GoogleConfirmed + GoogleWorked + GoogleHeard; }
};

/// Path of the document for a log, beside it: in the log's name the text after the last dot
/// becomes "kml", and all other dots go. A name without a dot gives ".kml".
std::string kmlFileNameFor(std::string_view LogFileName);

/// Text of the icons' scale for a marker size of the settings: "0.33" for "Small", "0.66" for
/// "Medium" and for a text whose number is 1, "1" for any other.
std::string_view iconScaleOf(std::string_view Marker);

/// Writes the KML document: a head with the styles, then a folder of placemarks for each class of
/// QSO, then the tail. Values go into it as the bytes that the log has, with no escaping; lines end
/// in CR LF.
///
/// After a write has failed nothing more is written, and failed() tells.
class LogBook {
public:
    /// Creates or overwrites the document and writes its head.
    /// @param KmlFileName UTF-8
    /// @param MyCall call of the station, for the names of the folders
    /// @param scale text of the icons' scale
    /// @return false when the file can't be opened; what stands there is untouched then
    bool WriteKmlHead(const std::string& KmlFileName, std::string_view MyCall,
                      std::string_view scale);

    /// Opens the folder of a class. The document has them in the order Confirmed, Worked, Heard.
    void WriteFolderHead(QsoStatus folder);

    /// Closes the open folder.
    void WriteFolderEnd();

    /// Writes a placemark into the open folder, which has to be the record's.
    /// @param withName whether the placemark carries the call as its name
    void WritePlacemark(const Qso& qso, bool withName);

    /// Ends the document's text; no folder may be open.
    void WriteKmlTail();

    /// Brings what was written to the disk and closes the document.
    /// @return whether all of it is there
    bool close();

    /// What was written, to be compared with what is read of the document.
    const ByteSum& written() const { return written_; }

    /// Placemarks that were handed over, also those after a failure.
    const GoogleCounters& counters() const { return counters_; }

    /// Whether the document could not be opened, written or closed; it stays so.
    bool failed() const { return !error_.empty(); }

    /// Short reason of the first failure, UTF-8; empty when there was none.
    const std::string& error() const { return error_; }

private:
    template <typename... Texts>
    void print(const Texts&... texts);
    void put(std::string_view text);
    void writeBuffer();
    void write(std::string_view bytes);
    void writeStyle(std::string_view folder, std::string_view scale, std::string_view afterIcon);

    QFile file_;
    ByteSum written_;
    std::unique_ptr<char[]> buffer_;
    std::size_t used_ = 0;
    std::string MyCall_;
    QsoStatus folder_ = QsoStatus::Confirmed;
    GoogleCounters counters_;
    std::string error_;
};

} // namespace tovrel
