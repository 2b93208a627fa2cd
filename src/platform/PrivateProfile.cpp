#include "platform/PrivateProfile.h"

#include "platform/ByteText.h"
#include "platform/Files.h"

#include <utility>

namespace tovrel {

namespace {

constexpr std::string_view blanks = " \t";
constexpr auto npos = std::string_view::npos;

std::string_view trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Where in the content a key stands, or would have to be added.
struct Place {
    bool sectionFound = false;
    std::size_t sectionEnd = 0;   ///< behind the line end of the section's last used line
    std::size_t lineStart = npos; ///< of the key's line; npos when it is missing
    std::size_t lineEnd = npos;   ///< before its line end
    std::string_view name;        ///< the key as the file spells it
    std::string_view value;
};

Place findKey(std::string_view content, std::string_view section, std::string_view key) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    Place place;
    std::size_t position = content.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    while (position < content.size()) {
        const std::size_t end = std::min(content.find_first_of("\r\n", position), content.size());
        std::size_t next = end;
        if (next < content.size())
            next += content.substr(next, 2) == "\r\n" ? 2 : 1;
        const std::string_view line = trim(content.substr(position, end - position));

        if (line.starts_with('[')) {
            if (place.sectionFound)
                return place;
            const std::string_view name = trim(line.substr(1, line.find(']') - 1));
            place.sectionFound = equalIgnoringCase(name, section);
        }
        if (place.sectionFound && !line.empty()) {
            place.sectionEnd = next;
            const std::size_t equals = line.find('=');
            if (equals != npos && !line.starts_with(';') &&
                equalIgnoringCase(trim(line.substr(0, equals)), key)) {
                place.lineStart = position;
                place.lineEnd = end;
                place.name = trim(line.substr(0, equals));
                place.value = trim(line.substr(equals + 1));
                return place;
            }
        }
        position = next;
    }
    return place;
}

std::string_view lineEndOf(std::string_view content) {
    const std::size_t end = content.find_first_of("\r\n");
    return end != npos && content[end] == '\n' ? "\n" : "\r\n";
}

} // namespace

PrivateProfile::PrivateProfile(std::string path, Storage storage) : path_(std::move(path)) {
    if (storage == Storage::Memory) {
        held_ = readFile(path_).value_or(std::string());
        batches_ = 1; // one that never ends
    }
}

bool PrivateProfile::exists() const { return fileExists(path_); }

std::optional<std::string> PrivateProfile::content() const {
    if (batches_ > 0)
        return held_;
    return exists() ? readFile(path_) : std::string();
}

bool PrivateProfile::store(std::string content) {
    if (batches_ == 0)
        return writeFile(path_, content);
    held_ = std::move(content);
    heldChanged_ = true;
    return true;
}

std::string PrivateProfile::read(std::string_view section, std::string_view key,
                                 std::string_view defaultValue, std::size_t size) const {
    const std::optional<std::string> text = content();
    const Place place = findKey(text ? *text : std::string_view(), section, key);
    std::string_view value = place.lineStart == npos ? defaultValue : place.value;
    if (value.size() > 1 && (value.front() == '"' || value.front() == '\'') &&
        value.front() == value.back()) {
        value = value.substr(1, value.size() - 2);
    }
    return std::string(value.substr(0, size - 1));
}

bool PrivateProfile::write(std::string_view section, std::string_view key, std::string_view value) {
    if (value.find_first_of(std::string_view("\r\n\0", 3)) != npos)
        return false;
    std::optional<std::string> text = content();
    if (!text)
        return false;

    const std::string_view lineEnd = lineEndOf(*text);
    const Place place = findKey(*text, section, key);
    if (place.lineStart != npos) {
        const std::string line = std::string(place.name).append("=").append(value);
        text->replace(place.lineStart, place.lineEnd - place.lineStart, line);
        return store(std::move(*text));
    }
    std::size_t at = place.sectionFound ? place.sectionEnd : text->size();
    std::string added;
    if (at > 0 && (*text)[at - 1] != '\n' && (*text)[at - 1] != '\r')
        added = lineEnd;
    if (!place.sectionFound)
        added.append("[").append(section).append("]").append(lineEnd);
    added.append(key).append("=").append(value).append(lineEnd);
    text->insert(at, added);
    return store(std::move(*text));
}

PrivateProfile::Batch::Batch(PrivateProfile& profile) : profile_(profile) {
    if (profile_.batches_ == 0)
        profile_.held_ = profile_.content();
    ++profile_.batches_;
}

PrivateProfile::Batch::~Batch() {
    if (--profile_.batches_ > 0)
        return;
    if (std::exchange(profile_.heldChanged_, false))
        writeFile(profile_.path_, *profile_.held_);
    profile_.held_.reset();
}

} // namespace tovrel
