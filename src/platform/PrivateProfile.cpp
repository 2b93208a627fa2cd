#include "platform/PrivateProfile.h"

#include "platform/ByteText.h"
#include "platform/Files.h"

#include <algorithm>
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

constexpr std::int64_t longestFile = std::int64_t{4} << 20U;

/// A line of the content.
struct Line {
    std::size_t start;     ///< position of its first byte
    std::size_t end;       ///< of its line end
    std::size_t next;      ///< after its line end
    std::string_view text; ///< without blanks at its ends
};

/// Hands the lines of a content to `visit`, in order, until that returns false.
template <typename Visit>
void forEachLine(std::string_view content, Visit visit) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::size_t start = content.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    while (start < content.size()) {
        const std::size_t end = std::min(content.find_first_of("\r\n", start), content.size());
        const std::size_t next = end + (content.substr(end, 2) == "\r\n" ? 2 : 1);
        const Line line{start, end, std::min(next, content.size()),
                        trim(content.substr(start, end - start))};
        if (!visit(line))
            return;
        start = line.next;
    }
}

/// Where in the content a key stands, or would have to be added.
struct KeyPlace {
    bool sectionFound = false;
    std::size_t sectionEnd = 0;   ///< after the line end of the section's last used line
    std::size_t lineStart = npos; ///< of the key's line; npos when it is missing
    std::size_t lineEnd = npos;   ///< before its line end
    std::string_view name;        ///< the key as the file spells it
    std::string_view value;
};

KeyPlace findKey(std::string_view content, std::string_view section, std::string_view key) {
    KeyPlace place;
    forEachLine(content, [&](const Line& line) {
        if (line.text.starts_with('[')) {
            if (place.sectionFound)
                return false;
            const std::string_view name = trim(line.text.substr(1, line.text.find(']') - 1));
            place.sectionFound = equalIgnoringCase(name, section);
        }
        if (!place.sectionFound || line.text.empty())
            return true;
        place.sectionEnd = line.next;
        const std::size_t equals = line.text.find('=');
        const std::string_view name = trim(line.text.substr(0, std::min(equals, line.text.size())));
        if (equals == npos || line.text.starts_with(';') || !equalIgnoringCase(name, key))
            return true;
        place.lineStart = line.start;
        place.lineEnd = line.end;
        place.name = name;
        place.value = trim(line.text.substr(equals + 1));
        return false;
    });
    return place;
}

std::string_view lineEndOf(std::string_view content) {
    const std::size_t end = content.find_first_of("\r\n");
    return end != npos && content[end] == '\n' ? "\n" : "\r\n";
}

/// Whether bytes are those of a settings file, and not of something that a name led to by mistake.
bool isSettingsText(std::string_view content) {
    if (content.size() > longestFile || content.find('\0') != npos ||
        content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF"))
        return false;
    bool sectionFound = content.empty();
    forEachLine(content, [&sectionFound](const Line& line) {
        sectionFound = line.text.starts_with('[') && line.text.find(']') != npos;
        return !sectionFound;
    });
    return sectionFound;
}

} // namespace

PrivateProfile::PrivateProfile(std::string path, Storage storage)
    : path_(std::move(path)), storage_(storage) {
    if (storage_ == Storage::Memory) {
        held_ = readContent();
        batches_ = 1; // one that never ends
    }
}

PrivateProfile::Content PrivateProfile::content() const {
    return batches_ > 0 ? held_ : readContent();
}

/// What the file holds; the text of one that can't serve is the last that served.
PrivateProfile::Content PrivateProfile::readContent() const {
    FileContent file = readFile(path_, longestFile + 1);
    if (file && isSettingsText(file.bytes)) {
        lastServed_ = file.bytes;
        return {State::Settings, std::move(file.bytes), {}};
    }
    if (file.isMissing()) {
        lastServed_.clear();
        return {};
    }
    const State state = file ? State::Foreign : State::Unreadable;
    std::string reason = file ? "This is no settings file" : std::move(file.reason);
    fail(Failure::Of::Reading, reason);
    return {state, lastServed_, std::move(reason)};
}

bool PrivateProfile::fail(Failure::Of of, const std::string& reason) const {
    failed({of, reason});
    return false;
}

bool PrivateProfile::store(std::string text) {
    if (batches_ > 0) {
        held_.text = std::move(text);
        heldChanged_ = true;
        return true;
    }
    const WriteEnd end = writeFile(path_, text);
    return end || fail(Failure::Of::Writing, end.reason);
}

std::string PrivateProfile::read(std::string_view section, std::string_view key,
                                 std::string_view defaultValue, std::size_t size) const {
    const Content now = content();
    const KeyPlace place = findKey(now.text, section, key);
    std::string_view value = place.lineStart == npos ? defaultValue : place.value;
    if (value.size() > 1 && (value.front() == '"' || value.front() == '\'') &&
        value.front() == value.back()) {
        value = value.substr(1, value.size() - 2);
    }
    return std::string(value.substr(0, size - 1));
}

bool PrivateProfile::write(std::string_view section, std::string_view key, std::string_view value) {
    Content now = content();
    if (!now.serves() || value.find_first_of(std::string_view("\r\n\0", 3)) != npos) {
        heldGood_ = false;
        return false;
    }
    const KeyPlace place = findKey(now.text, section, key);
    if (place.lineStart != npos) {
        if (place.value == value)
            return true;
        const std::string line = std::string(place.name).append("=").append(value);
        now.text.replace(place.lineStart, place.lineEnd - place.lineStart, line);
        return store(std::move(now.text));
    }
    const std::string_view lineEnd = lineEndOf(now.text);
    const std::size_t at = place.sectionFound ? place.sectionEnd : now.text.size();
    std::string added;
    if (at > 0 && now.text[at - 1] != '\n' && now.text[at - 1] != '\r')
        added = lineEnd;
    if (!place.sectionFound)
        added.append("[").append(section).append("]").append(lineEnd);
    added.append(key).append("=").append(value).append(lineEnd);
    now.text.insert(at, added);
    return store(std::move(now.text));
}

PrivateProfile::Batch::Batch(PrivateProfile& profile) : profile_(profile) {
    if (profile_.batches_ == 0) {
        profile_.held_ = profile_.readContent();
        profile_.heldGood_ = true;
    }
    ++profile_.batches_;
}

bool PrivateProfile::Batch::finish() {
    if (std::exchange(finished_, true))
        return good_;
    good_ = profile_.heldGood_;
    if (--profile_.batches_ == 0) {
        if (std::exchange(profile_.heldChanged_, false))
            good_ = profile_.store(std::move(profile_.held_.text)) && good_;
        profile_.held_ = {};
    }
    return good_;
}

} // namespace tovrel
