#include "export/LogBook.h"

#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/Numbers.h"

#include <string>

namespace tovrel {

namespace {

constexpr std::size_t bufferSize = std::size_t{1} << 18U; // stays in the processor's cache

constexpr std::string_view lookupAddress = "https://www.qrz.com";
constexpr std::string_view lookupName = "QRZ.com";

/// What sets a folder apart. Its style and icon have its name too.
struct Folder {
    std::string_view name;
    std::string_view verb;
    std::int32_t GoogleCounters::*counter;
};

const Folder& folderOf(QsoStatus status) {
    static constexpr Folder Confirmed{"Confirmed", "confirmed", &GoogleCounters::GoogleConfirmed};
    static constexpr Folder Worked{"Worked", "worked", &GoogleCounters::GoogleWorked};
    static constexpr Folder Heard{"Heard", "heard", &GoogleCounters::GoogleHeard};
    switch (status) {
    case QsoStatus::Confirmed:
        return Confirmed;
    case QsoStatus::Worked:
        return Worked;
    case QsoStatus::Heard:
        break;
    }
    return Heard;
}

} // namespace

std::string kmlFileNameFor(std::string_view LogFileName) {
    const auto [folder, fileName] = splitPath(LogFileName);
    std::string name(fileName.substr(0, fileName.rfind('.') + 1));
    std::erase(name, '.');
    return std::string(folder).append(name).append(".kml");
}

std::string_view iconScaleOf(std::string_view Marker) {
    if (Marker == "Small") {
        return "0.33";
    }
    return Marker == "Medium" || numberValue(Marker) == 1.0 ? "0.66" : "1";
}

template <typename... Texts>
void LogBook::print(const Texts&... texts) {
    (put(texts), ...);
}

inline void LogBook::put(std::string_view text) {
    if (text.size() > bufferSize - used_) {
        writeBuffer();
        if (text.size() > bufferSize) {
            write(text);
            return;
        }
    }
    used_ += text.copy(buffer_.get() + used_, text.size());
}

void LogBook::writeBuffer() {
    write({buffer_.get(), used_});
    used_ = 0;
}

void LogBook::write(std::string_view bytes) {
    if (!failed()) {
        error_ = writeAll(file_, bytes);
        written_.add(bytes);
    }
}

bool LogBook::WriteKmlHead(const std::string& KmlFileName, std::string_view MyCall,
                           std::string_view scale) {
    file_.setFileName(QString::fromStdString(KmlFileName));
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        error_ = reasonOf(file_);
        return false;
    }
    MyCall_ = MyCall;
    buffer_ = std::make_unique_for_overwrite<char[]>(bufferSize);
    print("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
          "<kml xmlns=\"http://earth.google.com/kml/2.0\">\r\n"
          " <Document>\r\n");
    writeStyle(folderOf(QsoStatus::Worked).name, scale, "   ");
    writeStyle(folderOf(QsoStatus::Confirmed).name, scale, "");
    writeStyle(folderOf(QsoStatus::Heard).name, scale, "");
    return true;
}

void LogBook::writeStyle(std::string_view folder, std::string_view scale,
                         std::string_view afterIcon) {
    print("  <Style id=\"Tovrel", folder,
          "\">\r\n"
          "   <PolyStyle>\r\n"
          "    <color>7f00ff00</color>\r\n"
          "    <fill>0</fill>\r\n"
          "    <outline>1</outline>\r\n"
          "   </PolyStyle>\r\n"
          "   <IconStyle>\r\n"
          "    <Icon>\r\n"
          "     <href>Google_",
          folder,
          ".png</href>\r\n"
          "    </Icon>\r\n"
          "    <scale>",
          scale,
          "</scale>\r\n"
          "   </IconStyle>",
          afterIcon,
          "\r\n"
          "  </Style>\r\n"
          "  \r\n");
}

void LogBook::WriteFolderHead(QsoStatus folder) {
    folder_ = folder;
    print("  <Folder>\r\n"
          "   <name>",
          MyCall_, " ", folderOf(folder).name,
          "</name>\r\n"
          "   <description>Stations ",
          folderOf(folder).verb, " by ", MyCall_, "</description>\r\n");
}

void LogBook::WriteFolderEnd() { print("  </Folder>\r\n"); }

void LogBook::WritePlacemark(const Qso& qso, bool withName) {
    const Folder& folder = folderOf(folder_);
    ++(counters_.*folder.counter);
    std::string_view Call = qso.call();
    if (folder_ == QsoStatus::Heard && Call.ends_with('=')) {
        Call.remove_suffix(1);
    }
    const auto [Longitude, Latitude] = qso.placeText();
    print("   <Placemark>\r\n");
    if (withName) {
        print("    <name>", Call, "</name>\r\n");
    }
    print("    <description><![CDATA[<a href=\"", lookupAddress, "/callsign/", Call, "\">",
          lookupName, " lookup for ", Call,
          "</a>]]></description>\r\n"
          "    <styleUrl>#Tovrel",
          folder.name,
          "</styleUrl>\r\n"
          "    <LookAt>\r\n"
          "     <longitude>",
          Longitude,
          "</longitude>\r\n"
          "     <latitude>",
          Latitude,
          "</latitude>\r\n"
          "     <range>4000000</range>\r\n"
          "     <tilt>0</tilt>\r\n"
          "     <heading>0</heading>\r\n"
          "    </LookAt>\r\n"
          "    <Point>\r\n"
          "     <coordinates>",
          Longitude, ",", Latitude,
          "</coordinates>\r\n"
          "    </Point>\r\n"
          "   </Placemark>\r\n");
}

void LogBook::WriteKmlTail() {
    print(" </Document>\r\n"
          "</kml>\r\n");
}

bool LogBook::close() {
    writeBuffer();
    file_.close();
    if (!failed() && file_.error() != QFileDevice::NoError) {
        error_ = reasonOf(file_);
    }
    return !failed();
}

} // namespace tovrel
