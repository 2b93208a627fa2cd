#include "log/FieldTable.h"

#include "platform/ByteText.h"
#include "platform/Files.h"

#include <algorithm>
#include <cstring>

namespace tovrel {

namespace {

constexpr auto npos = std::string_view::npos;

/// Walks the tags of a record line from the first to the last. Each position that it looks up is
/// kept until the walk has passed it, so that a line full of half tags costs no more than another.
class TagWalk {
public:
    explicit TagWalk(std::string_view line) : line_(line), nextTag_(line.find('<')) { toNextTag(); }

    bool atTag() const { return tag_ != npos; }

    void toNextTag() {
        tag_ = nextTag_;
        if (tag_ != npos) {
            nextTag_ = line_.find('<', tag_ + 1);
        }
    }

    /// Whether the tag marks the end of a record or of the header. A tag whose name only begins
    /// with these letters counts as one too.
    bool isEndMark() const {
        const std::string_view name = line_.substr(tag_ + 1, 3);
        return name.size() == 3 && upperCase(name[0]) == 'E' && upperCase(name[1]) == 'O' &&
               (upperCase(name[2]) == 'R' || upperCase(name[2]) == 'H');
    }

    /// Whether there is a ":" somewhere behind the tag's `<`, which its name needs.
    bool hasName() {
        colon_ = findFrom(colon_, ':');
        return colon_ != npos;
    }

    /// The tag's name as the line has it, up to the next ":", be that within the tag or not.
    std::string_view TagNameOf() const { return line_.substr(tag_ + 1, colon_ - tag_ - 1); }

    /// The text between the next ">" and the `<` behind that.
    std::string_view TagValueOf() {
        const std::size_t end = findFrom(tagEnd_, '>');
        if (end == npos) {
            tagEnd_ = npos;
            return {};
        }
        if (end != tagEnd_) {
            tagEnd_ = end;
            const bool withinTag = end < nextTag_;
            valueEnd_ = std::min(withinTag ? nextTag_ : line_.find('<', end), line_.size());
        }
        return line_.substr(end + 1, valueEnd_ - end - 1);
    }

private:
    /// Position of the first `c` behind the tag's `<`, given where the last search found it.
    std::size_t findFrom(std::size_t found, char c) const {
        return found > tag_ ? found : line_.find(c, tag_);
    }

    std::string_view line_;
    std::size_t tag_ = npos;
    std::size_t nextTag_;
    std::size_t colon_ = 0;
    std::size_t tagEnd_ = 0;
    std::size_t valueEnd_ = 0;
};

struct Wanted {
    int FieldRows::*row;
    std::string_view name;
};

constexpr Wanted wantedTags[] = {
    {&FieldRows::RowQsoDate, "QSO_DATE"},
    {&FieldRows::RowTimeOn, "TIME_ON"},
    {&FieldRows::RowCall, "CALL"},
    {&FieldRows::RowOperator, "OPERATOR"},
    {&FieldRows::RowRstSent, "RST_SENT"},
    {&FieldRows::RowRstRcvd, "RST_RCVD"},
    {&FieldRows::RowFreq, "FREQ"},
    {&FieldRows::RowMode, "MODE"},
    {&FieldRows::RowTxPwr, "TX_PWR"},
    {&FieldRows::RowTimeOff, "TIME_OFF"},
    {&FieldRows::RowComment, "COMMENT"},
    {&FieldRows::RowQslSent, "QSL_SENT"},
    {&FieldRows::RowQslRcvd, "QSL_RCVD"},
    {&FieldRows::RowQslVia, "QSL_VIA"},
    {&FieldRows::RowBand, "BAND"},
    {&FieldRows::RowName, "NAME"},
    {&FieldRows::RowGridsquare, "GRIDSQUARE"},
    {&FieldRows::RowIota, "IOTA"},
    {&FieldRows::RowPfx, "PFX"},
    {&FieldRows::RowState, "STATE"},
    {&FieldRows::RowLatitude, "APP_LOGGER32_LAT"},
    {&FieldRows::RowLongitude, "APP_LOGGER32_LNG"},
    {&FieldRows::RowEqslRcvd, "eQSL_QSL_RCVD"},
    {&FieldRows::RowLotwRcvd, "LOTW_QSL_RCVD"},
    {&FieldRows::RowLoggerCountry, "APP_LOGGER32_COUNTRY"},
    {&FieldRows::RowCountry, "COUNTRY"},
};

std::uint32_t letterBit(std::string_view name) { return 1U << (name.front() & 0x1FU); }

/// Takes a text into a hash, letters without their case bit, eight bytes at a time.
std::uint64_t hashOn(std::uint64_t hash, std::string_view text) {
    const auto add = [&hash](std::uint64_t bytes) {
        hash = (hash ^ (bytes & 0xDFDFDFDFDFDFDFDFU)) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 32U;
    };
    constexpr std::size_t step = sizeof(std::uint64_t);
    std::uint64_t bytes = 0;
    if (text.size() < step) {
        for (const char c : text) {
            bytes = bytes << 8U | static_cast<unsigned char>(c);
        }
        add(bytes);
        return hash;
    }
    const std::size_t last = text.size() - step;
    for (std::size_t position = 0; position < last; position += step) {
        std::memcpy(&bytes, text.data() + position, step);
        add(bytes);
    }
    std::memcpy(&bytes, text.data() + last, step);
    add(bytes);
    return hash;
}

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

bool FieldTable::CreateFieldDictionary(const std::string& folder) {
    return !findFile(folder, fileName).empty() ||
           writeFile(joinPath(folder, fileName), defaultFieldDictionary());
}

bool FieldTable::LoadFieldDictionary(const std::string& folder, bool defaultServes) {
    const std::optional<std::string> text = readFile(findFile(folder, fileName));
    loadFrom(text ? *text : defaultServes ? defaultFieldDictionary() : std::string_view());
    return text || defaultServes;
}

void FieldTable::loadFrom(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    rowOf_.clear();
    dictionary_ = text;
    firstLetters_.fill(0);
    rows_ = {};
    touched_.clear();

    std::string_view rest = dictionary_;
    int row = 0;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
        addName(trimBlanks(rest.substr(0, end)), ++row);
        const std::size_t lineEnd = rest.substr(end, 2) == "\r\n" ? 2 : 1;
        rest.remove_prefix(std::min(end + lineEnd, rest.size()));
    }
    values_.assign(static_cast<std::size_t>(row) + 1, {});
}

void FieldTable::addName(std::string_view name, int row) {
    if (!name.empty() && rowOf_.emplace(name, row).second) {
        firstLetters_[std::min(name.size(), firstLetters_.size() - 1)] |= letterBit(name);
    }
}

void FieldTable::ResolveFieldRows() {
    for (const Wanted& wanted : wantedTags) {
        rows_.*wanted.row = FindFieldRow(wanted.name);
    }
}

int FieldTable::FindFieldRow(std::string_view name) const {
    // Most tags of a log are in no dictionary: this look tells without touching their letters.
    const std::size_t length = std::min(name.size(), firstLetters_.size() - 1);
    if (name.empty() || (firstLetters_[length] & letterBit(name)) == 0) {
        return 0;
    }
    const auto found = rowOf_.find(name);
    return found == rowOf_.end() ? 0 : found->second;
}

void FieldTable::ParseRecordLine(std::string_view line) {
    for (const int row : touched_) {
        values_[static_cast<std::size_t>(row)] = {};
    }
    touched_.clear();

    for (TagWalk walk(line); walk.atTag() && walk.hasName(); walk.toNextTag()) {
        if (!walk.isEndMark()) {
            store(FindFieldRow(walk.TagNameOf()), walk.TagValueOf());
        }
    }
}

void FieldTable::store(int row, std::string_view value) {
    std::string_view& stored = values_[static_cast<std::size_t>(row)];
    if (stored.data() == nullptr) {
        touched_.push_back(row);
    }
    stored = value;
}

std::string_view FieldTable::trimmed(int row) const { return trimBlanks(value(row)); }

/// Of a long name only the ends count: a broken log may ask for a million names as long as itself.
std::size_t FieldTable::HashIgnoringCase::operator()(std::string_view name) const {
    constexpr std::size_t longest = 64;
    const std::uint64_t hash = hashOn(name.size(), name.substr(0, longest));
    return name.size() <= longest ? hash : hashOn(hash, name.substr(name.size() - longest));
}

bool FieldTable::EqualIgnoringCase::operator()(std::string_view a, std::string_view b) const {
    return a == b || equalIgnoringCase(a, b);
}

} // namespace tovrel
