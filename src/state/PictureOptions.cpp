#include "state/PictureOptions.h"

#include "platform/ByteText.h"
#include "platform/Numbers.h"

namespace tovrel {

namespace {

constexpr std::array<std::string_view, 3> paperNames = {"A4", "A3", "Letter"};
constexpr std::array<std::string_view, 4> extensions = {".png", ".jpg", ".bmp", ".pdf"};

/// The format that the settings name, by its extension without the point.
PictureFormat formatOf(const std::string& word) {
    const std::optional<PictureFormat> format = formatOfExtension("." + word);
    return format && *format != PictureFormat::Bmp ? *format : PictureFormat::Png;
}

} // namespace

std::string_view nameOf(Paper paper) { return paperNames[static_cast<std::size_t>(paper)]; }

std::string_view extensionOf(PictureFormat format) {
    return extensions[static_cast<std::size_t>(format)];
}

std::optional<PictureFormat> formatOfExtension(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    const std::string_view extension = dot == std::string_view::npos ? path : path.substr(dot);
    for (const PictureFormat format :
         {PictureFormat::Png, PictureFormat::Jpeg, PictureFormat::Bmp, PictureFormat::Pdf}) {
        if (equalIgnoringCase(extension, extensionOf(format)))
            return format;
    }
    return equalIgnoringCase(extension, ".jpeg") ? std::optional(PictureFormat::Jpeg)
                                                 : std::nullopt;
}

PictureOptions readPictureOptions(const iniFiles& ini, Paper paper) {
    PictureOptions options{.format = formatOf(ini.ReadIniValue(section::pictures, "Format")),
                           .paper = paper,
                           .caption = ini.readBoolean(section::pictures, "Caption", true),
                           .folder = ini.ReadIniValue(section::pictures, "Folder")};
    const double pixels = ini.readNumber(section::pictures, "Pixels", options.pixels);
    if (pixels >= PictureOptions::leastPixels && pixels <= PictureOptions::mostPixels)
        options.pixels = roundToInt(pixels);
    const std::string word = ini.ReadIniValue(section::pictures, "Paper");
    for (const Paper known : allPapers) {
        if (equalIgnoringCase(word, nameOf(known)))
            options.paper = known;
    }
    return options;
}

void writePictureOptions(iniFiles& ini, const PictureOptions& options) {
    const iniFiles::Batch together(ini);
    ini.WriteIniValue(section::pictures, "Format", extensionOf(options.format).substr(1));
    ini.WriteIniValue(section::pictures, "Pixels", std::to_string(options.pixels));
    ini.WriteIniValue(section::pictures, "Paper", nameOf(options.paper));
    ini.writeBoolean(section::pictures, "Caption", options.caption);
    ini.WriteIniValue(section::pictures, "Folder", options.folder);
}

} // namespace tovrel
