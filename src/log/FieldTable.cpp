#include "log/FieldTable.h"

#include "platform/ByteText.h"

#include <algorithm>
#include <cstring>

namespace tovrel {

namespace {

/// The first `c` in a text from `from` to `end`, or `end`.
const char* findByte(const char* from, const char* end, char c) {
    const void* const found = std::memchr(from, c, static_cast<std::size_t>(end - from));
    return found == nullptr ? end : static_cast<const char*>(found);
}

/// Walks the tags of a record line from the first to the last. Each position that it looks up is
/// kept until the walk has passed it, so that a line full of half tags costs no more than another.
class TagWalk {
public:
    explicit TagWalk(std::string_view line)
        : end_(line.data() + line.size()), nextTag_(findByte(line.data(), end_, '<')),
          colon_(line.data()), tagEnd_(line.data()) {
        toNextTag();
    }

    bool atTag() const { return tag_ != end_; }

    void toNextTag() {
        tag_ = nextTag_;
        if (tag_ != end_) {
            nextTag_ = findByte(tag_ + 1, end_, '<');
        }
    }

    /// Whether the tag marks the end of a record or of the header. A tag whose name only begins
    /// with these letters counts as one too.
    bool isEndMark() const {
        return end_ - tag_ > 3 && upperCase(tag_[1]) == 'E' && upperCase(tag_[2]) == 'O' &&
               (upperCase(tag_[3]) == 'R' || upperCase(tag_[3]) == 'H');
    }

    /// Whether there is a ":" somewhere after the tag's `<`, which its name needs.
    bool hasName() {
        if (colon_ <= tag_) {
            colon_ = findByte(tag_ + 1, end_, ':');
        }
        return colon_ != end_;
    }

    /// The tag's name as the line has it, up to the next ":", be that within the tag or not.
    std::string_view TagNameOf() const { return text(tag_ + 1, colon_); }

    /// The text between the next ">" and the `<` after that.
    std::string_view TagValueOf() {
        if (tagEnd_ <= tag_) {
            tagEnd_ = findByte(tag_ + 1, end_, '>');
            const bool withinTag = tagEnd_ < nextTag_;
            valueEnd_ = withinTag ? nextTag_ : findByte(tagEnd_, end_, '<');
        }
        return tagEnd_ == end_ ? std::string_view() : text(tagEnd_ + 1, valueEnd_);
    }

private:
    static std::string_view text(const char* begin, const char* end) {
        return {begin, static_cast<std::size_t>(end - begin)};
    }

    const char* end_;
    const char* tag_ = nullptr;
    const char* nextTag_;
    const char* colon_;
    const char* tagEnd_;
    const char* valueEnd_ = nullptr;
};

struct Wanted {
    int FieldRows::*row;
    std::string_view name;
};

constexpr Wanted wantedTags[] = {
    {&FieldRows::RowCall, "CALL"},
    {&FieldRows::RowMode, "MODE"},
    {&FieldRows::RowQslRcvd, "QSL_RCVD"},
    {&FieldRows::RowBand, "BAND"},
    {&FieldRows::RowIota, "IOTA"},
    {&FieldRows::RowLatitude, "APP_LOGGER32_LAT"},
    {&FieldRows::RowLongitude, "APP_LOGGER32_LNG"},
    {&FieldRows::RowEqslRcvd, "eQSL_QSL_RCVD"},
    {&FieldRows::RowLotwRcvd, "LOTW_QSL_RCVD"},
    {&FieldRows::RowCountry, "COUNTRY"},
};

} // namespace

std::string_view FieldTable::defaultFieldDictionary() {
    return "APP_LOGGER32_COUNTRY\r\n"
           "APP_LOGGER32_LAT\r\n"
           "APP_LOGGER32_LNG\r\n"
           "APP_LOGGER32_LOTW_RCVD\r\n"
           "APP_LOGGER32_LOTW_SENT\r\n"
           "APP_LOGGER32_LoTW\r\n"
           "APP_LOGGER32_QSL\r\n"
           "APP_LOGGER32_eQSL\r\n"
           "APP_LOGGER32_eQSL_RCVD\r\n"
           "APP_LOGGER32_eQSL_SENT\r\n"
           "BAND\r\n"
           "CALL\r\n"
           "COUNTRY\r\n"
           "EQSL_QSL_RCVD\r\n"
           "EQSL_QSL_SENT\r\n"
           "FREQ\r\n"
           "IOTA\r\n"
           "LOTW_QSL_RCVD\r\n"
           "LOTW_QSL_SENT\r\n"
           "MODE\r\n"
           "QSL_RCVD\r\n"
           "QSL_SENT\r\n"
           "RST_RCVD\r\n"
           "RST_SENT\r\n";
}

WriteEnd FieldTable::CreateFieldDictionary(const std::string& folder) {
    const std::string path = filePath(folder, fileName);
    const FileContent present = readFile(path, 1);
    const bool none = present.isMissing() || (present && present.bytes.empty());
    return none ? writeFile(path, defaultFieldDictionary()) : WriteEnd{};
}

ReadEnd FieldTable::LoadFieldDictionary(const std::string& folder, bool defaultServes) {
    // Of a longer one nobody made a list; one that is made to be slow could be.
    constexpr std::int64_t longest = std::int64_t{256} << 10U;
    const std::string path = filePath(folder, fileName);
    FileContent file = readFile(path, longest + 1);
    if (file && static_cast<std::int64_t>(file.bytes.size()) > longest) {
        file = FileContent::unreadable("The file is longer than a list of tags can be");
    }
    if (file && file.bytes.empty()) {
        file.end = ReadEnd::Missing;
    }
    if (file.isMissing() && defaultServes) {
        file = FileContent::of(std::string(defaultFieldDictionary()));
    }
    if (file.isUnreadable()) {
        failure_ = {FileFailure::Act::Read, "The tag list could not be read.", path, file.reason};
    }
    loadFrom(file.bytes);
    return file.end;
}

void FieldTable::loadFrom(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    tags_.clear();
    dictionary_ = text;
    rows_ = {};
    record_ = 1;

    std::string_view rest = dictionary_;
    int row = 0;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
        tags_.add(trimBlanks(rest.substr(0, end)), ++row);
        const std::size_t lineEnd = rest.substr(end, 2) == "\r\n" ? 2 : 1;
        rest.remove_prefix(std::min(end + lineEnd, rest.size()));
    }
    values_.assign(static_cast<std::size_t>(row) + 1, {});
}

void FieldTable::ResolveFieldRows() {
    for (const Wanted& wanted : wantedTags) {
        rows_.*wanted.row = FindFieldRow(wanted.name);
    }
}

void FieldTable::ParseRecordLine(std::string_view line) {
    ++record_;
    if (line.empty()) {
        return;
    }
    for (TagWalk walk(line); walk.atTag() && walk.hasName(); walk.toNextTag()) {
        if (!walk.isEndMark()) {
            const int row = FindFieldRow(walk.TagNameOf());
            values_[static_cast<std::size_t>(row)] = {.text = walk.TagValueOf(), .record = record_};
        }
    }
}

} // namespace tovrel
