#include "log/AdifReader.h"

#include "platform/ByteText.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <iterator>
#include <new>
#include <optional>
#include <utility>

namespace tovrel {

namespace {

struct Wanted {
    std::string_view QsoFields::*field;
    std::string_view name;
};

constexpr std::array<Wanted, AdifReader::wantedCount> wantedFields = {{
    {&QsoFields::call, "CALL"},
    {&QsoFields::mode, "MODE"},
    {&QsoFields::band, "BAND"},
    {&QsoFields::iota, "IOTA"},
    {&QsoFields::qslRcvd, "QSL_RCVD"},
    {&QsoFields::eqslRcvd, "EQSL_QSL_RCVD"},
    {&QsoFields::lotwRcvd, "LOTW_QSL_RCVD"},
    {&QsoFields::country, "COUNTRY"},
    {&QsoFields::loggerNorth, "APP_LOGGER32_LAT"},
    {&QsoFields::loggerWest, "APP_LOGGER32_LNG"},
    {&QsoFields::lat, "LAT"},
    {&QsoFields::lon, "LON"},
    {&QsoFields::gridSquare, "GRIDSQUARE"},
    {&QsoFields::gridSquareExt, "GRIDSQUARE_EXT"},
    {&QsoFields::dxcc, "DXCC"},
}};

constexpr std::int64_t markSize = 5; // of `<EOR>` and `<EOH>`

constexpr bool isWhite(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view trimWhite(std::string_view text) {
    while (!text.empty() && isWhite(text.back())) {
        text.remove_suffix(1);
    }
    while (!text.empty() && isWhite(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

bool hasByteAbove127(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) > 127; });
}

} // namespace

AdifReader::AdifReader(LogFile& log, std::size_t blockSize)
    : log_(log), blockSize_(std::max<std::size_t>(blockSize, 1)) {
    int number = 0;
    for (const Wanted& wanted : wantedFields) {
        names_.add(wanted.name, ++number);
    }
    log_.rewind();
    error_ = log_.error();
}

Cut AdifReader::next() {
    if (!finished_ && error_.empty()) {
        try {
            if (toRecordEnd()) {
                return Cut::Record;
            }
        } catch (const std::bad_alloc&) {
            error_ = "a record is too long for the memory";
        }
    }
    finished_ = true;
    fields_ = {};
    return error_.empty() ? Cut::End : Cut::Failed;
}

/// @return false at the end of the file and on failure
bool AdifReader::toRecordEnd() {
    if (!std::exchange(started_, true) && (isXml() || isUtf16() || !skipHeader())) {
        return false;
    }
    recordStart_ = at_;
    forgetFields();
    whites_.clear();
    while (toNextMark()) {
        const Tag tag = readTag();
        switch (tag.kind) {
        case Tag::Kind::Field:
            hasFields_ = true;
            takeValue(tag);
            continue;
        case Tag::Kind::RecordEnd:
            at_ = tag.end;
            if (hasFields_) {
                return true;
            }
            continue;
        case Tag::Kind::HeaderEnd:
            forgetFields();
            break;
        case Tag::Kind::Nothing:
            break;
        }
        at_ = tag.end;
    }
    return false;
}

void AdifReader::forgetFields() {
    fields_ = {};
    hasFields_ = false;
}

bool AdifReader::isXml() {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    constexpr Place longest = 5;
    const bool marked = has(2) && text(0, 3) == byteOrderMark;
    const Place begin = behindWhite(marked ? 3 : 0);
    const bool xml =
        has(begin + longest - 1) && (equalIgnoringCase(text(begin, begin + longest), "<?xml") ||
                                     equalIgnoringCase(text(begin, begin + longest), "<ADX>"));
    if (xml) {
        error_ = "it is an XML file (ADX); Tovrel reads ADI files";
    }
    return xml;
}

/// Two bytes to a letter, as an editor may save a log.
bool AdifReader::isUtf16() {
    const std::string_view begin = has(3) ? text(0, 4) : std::string_view();
    const bool utf16 = (begin.starts_with("\xFF\xFE") && begin[3] == '\0') ||
                       (begin.starts_with("\xFE\xFF") && begin[2] == '\0');
    if (utf16) {
        error_ = "its text is UTF-16; Tovrel reads ADI files in ASCII or UTF-8";
    }
    return utf16;
}

/// Leaves the first tag of the first record ahead. A header ends at its `<EOH>`, whatever lengths
/// its fields declare; a log whose first mark is an `<EOR>` has none.
/// @return false when there is neither, and so no record
bool AdifReader::skipHeader() {
    std::optional<Place> firstTag;
    while (toNextMark()) {
        firstTag = firstTag.value_or(at_);
        const std::string_view mark =
            has(at_ + markSize - 1) ? text(at_ + 1, at_ + markSize) : std::string_view();
        if (equalIgnoringCase(mark, "EOH>")) {
            at_ += markSize;
            return true;
        }
        if (equalIgnoringCase(mark, "EOR>")) {
            return goBackTo(*firstTag);
        }
        ++at_;
    }
    return false;
}

/// Takes up a place again that was passed in looking for the header's end.
bool AdifReader::goBackTo(Place place) {
    if (place < dataStart_) {
        log_.rewind();
        dataStart_ = dataEnd_ = at_ = 0;
        while (dataEnd_ <= place && readMore()) {
            at_ = std::min(place, dataEnd_);
        }
    }
    at_ = place;
    return error_.empty();
}

/// Goes on to the next `<`.
/// @return false at the end of the file and on failure
bool AdifReader::toNextMark() {
    // Mostly it stands behind no more than a blank.
    for (const Place near : {at_, at_ + 1}) {
        if (near < dataEnd_ && *pointer(near) == '<') {
            at_ = near;
            return true;
        }
    }
    do {
        at_ = findMark(at_, dataEnd_);
        if (at_ < dataEnd_) {
            return true;
        }
    } while (readMore());
    return false;
}

/// The tag that begins at the `<` ahead. A `>` further off than a tag is long belongs to something
/// else, and so does one behind another `<`.
AdifReader::Tag AdifReader::readTag() {
    constexpr Place longest = 64;
    Tag tag;
    tag.end = at_ + 1;
    has(at_ + longest);
    const char* const begin = pointer(at_) + 1;
    const auto room = static_cast<std::size_t>(std::min(longest, dataEnd_ - at_ - 1));
    const void* const close = std::memchr(begin, '>', room);
    if (close == nullptr) {
        return tag;
    }
    const std::string_view inside(
        begin, static_cast<std::size_t>(static_cast<const char*>(close) - begin));
    if (readPlainField(tag, inside) || inside.find('<') != std::string_view::npos) {
        return tag;
    }
    tag.end = behindTag(inside);
    if (equalIgnoringCase(inside, "EOR")) {
        tag.kind = Tag::Kind::RecordEnd;
    } else if (equalIgnoringCase(inside, "EOH")) {
        tag.kind = Tag::Kind::HeaderEnd;
    } else {
        readField(tag, inside);
    }
    return tag;
}

/// The same as readField() of nearly all tags there are, those of the form NAME:LENGTH without
/// blanks, in a fraction of the time.
/// @return false for all others
bool AdifReader::readPlainField(Tag& tag, std::string_view inside) const {
    constexpr std::size_t mostDigits = 9;
    std::size_t colon = inside.size();
    std::int64_t length = 0;
    std::int64_t power = 1;
    while (colon > 0 && inside[colon - 1] >= '0' && inside[colon - 1] <= '9') {
        length += power * (inside[--colon] - '0');
        power *= 10;
        if (inside.size() - colon > mostDigits) {
            return false;
        }
    }
    if (colon == inside.size() || colon < 2 || inside[colon - 1] != ':') {
        return false;
    }
    const std::string_view name = inside.substr(0, colon - 1);
    for (const char c : name) {
        if (c == ':' || c == '<' || c == ' ') {
            return false;
        }
    }
    tag = {Tag::Kind::Field, behindTag(inside), names_.find(name), length};
    return true;
}

/// Makes a field of a tag, if what stands between its brackets is name and length.
void AdifReader::readField(Tag& tag, std::string_view inside) const {
    const std::size_t colon = inside.find(':');
    if (colon == std::string_view::npos) {
        return;
    }
    const std::string_view name = trimBlanks(inside.substr(0, colon));
    const std::string_view rest = inside.substr(colon + 1);
    const std::string_view digits = trimBlanks(rest.substr(0, rest.find(':')));
    for (const char c : digits) {
        if (c < '0' || c > '9') {
            return;
        }
        if (tag.length <= log_.size()) { // a longer one leads beyond the file, however long it is
            tag.length = tag.length * 10 + (c - '0');
        }
    }
    if (!name.empty() && !digits.empty()) {
        tag.kind = Tag::Kind::Field;
        tag.field = names_.find(name);
    }
}

void AdifReader::takeValue(const Tag& tag) {
    const Place start = tag.end;
    const bool withinFile = tag.length <= log_.size() - start;
    if (withinFile &&
        (isPlainValue(start, start + tag.length) || isTrueLength(start, start + tag.length))) {
        setField(tag.field, start, start + tag.length);
        at_ = start + tag.length;
    } else if (tag.field == 0) {
        at_ = start;
    } else {
        Place end = findMark(start, dataEnd_);
        while (end == dataEnd_ && readMore()) {
            end = findMark(end, dataEnd_);
        }
        setField(tag.field, start, end);
        at_ = end;
    }
}

/// Whether bytes that a length declares are beyond doubt, as nearly all are: plain text with a tag
/// or white space behind it.
bool AdifReader::isPlainValue(Place start, Place end) const {
    if (end >= dataEnd_) {
        return false;
    }
    const char* const stop = pointer(end);
    for (const char* c = pointer(start); c != stop; ++c) {
        if (*c == '<' || static_cast<unsigned char>(*c) > 127) {
            return false;
        }
    }
    return *stop == '<' || isWhite(*stop);
}

void AdifReader::setField(int field, Place start, Place end) {
    if (field != 0) {
        fields_.*wantedFields[static_cast<std::size_t>(field) - 1].field =
            trimWhite(text(start, end));
    }
}

/// Whether the bytes from `start` to `end`, which a length declares, can be a value.
bool AdifReader::isTrueLength(Place start, Place end) {
    if (!reaches(start, end)) {
        return false;
    }
    const Place mark = findMark(start, end);
    if (mark < end && holdsRecordEnd(mark, end)) {
        return false;
    }
    if (end == dataEnd_ || *pointer(end) == '<') {
        return true;
    }
    if (!isWhite(*pointer(end))) {
        return false;
    }
    // What follows a blank may be a remark; but where the bytes look as if they were miscounted,
    // that is the rest of the value.
    if (mark == end && !hasByteAbove127(text(start, end))) {
        return true;
    }
    const Place behind = behindWhite(end);
    return behind == dataEnd_ || *pointer(behind) == '<';
}

/// Brings the bytes up to `end`, and the one behind them, into the block.
/// @return false when an `<EOR>` among them makes that vain, and on failure
bool AdifReader::reaches(Place start, Place end) {
    while (end >= dataEnd_) {
        if (holdsRecordEnd(start, std::min(end, dataEnd_))) {
            return false;
        }
        if (!readMore()) {
            break;
        }
    }
    return end <= dataEnd_;
}

/// Whether a whole `<EOR>` lies between two places of the block. Each byte is looked at once,
/// however many lengths lead over it: the calls' `start` never falls.
bool AdifReader::holdsRecordEnd(Place start, Place end) {
    const Place last = end - markSize + 1;
    Place place = std::max(start, recordEndFrom_);
    while (place < last) {
        place = findMark(place, last);
        if (place < last && equalIgnoringCase(text(place + 1, place + markSize), "EOR>")) {
            recordEndFrom_ = place;
            return true;
        }
        ++place;
    }
    recordEndFrom_ = std::max(recordEndFrom_, std::min(place, std::max(last, start)));
    return false;
}

/// Place of the next byte that is no white space, or the file's end. Long runs are remembered:
/// many lengths may lead into one.
AdifReader::Place AdifReader::behindWhite(Place from) {
    constexpr Place longRun = 256;
    auto next = whites_.upper_bound(from);
    if (next != whites_.begin() && std::prev(next)->second > from) {
        return std::prev(next)->second;
    }
    Place place = from;
    while (has(place) && isWhite(*pointer(place))) {
        ++place;
        if (next != whites_.end() && place == next->first) {
            place = next->second;
            whites_.erase(next);
            break;
        }
    }
    if (place - from > longRun) {
        whites_[from] = place;
    }
    return place;
}

/// Place of the first `<` between two places of the block; `end` when there is none.
AdifReader::Place AdifReader::findMark(Place from, Place end) const {
    const char* const begin = pointer(from);
    const void* const found =
        from < end ? std::memchr(begin, '<', static_cast<std::size_t>(end - from)) : nullptr;
    return found == nullptr ? end : from + (static_cast<const char*>(found) - begin);
}

/// Brings a byte into the block.
/// @return false when the file has none there, and on failure
bool AdifReader::has(Place place) {
    while (place >= dataEnd_) {
        if (!readMore()) {
            return false;
        }
    }
    return true;
}

/// Puts the next bytes of the file behind those that are not yet taken.
/// @return false at the end of the file and on failure
bool AdifReader::readMore() {
    if (!error_.empty()) {
        return false;
    }
    keepFields();
    constexpr auto page = static_cast<std::size_t>(ReadBlock::pageSize);
    const auto kept = static_cast<std::size_t>(dataEnd_ - at_);
    const std::size_t front = (kept + page - 1) / page * page;
    const std::size_t wanted = std::max(blockSize_, front); // twice as much, where much is kept
    ReadBlock::Pointer old;
    if (front + wanted > capacity_) {
        old = std::move(block_);
        block_ = ReadBlock::make(front + wanted + page);
        capacity_ = front + wanted + page;
    }
    if (kept > 0) {
        std::memmove(block_.get() + front - kept, pointer(at_), kept);
    }
    data_ = block_.get() + front - kept;
    dataStart_ = at_;
    const std::int64_t got = log_.read(block_.get() + front, static_cast<std::int64_t>(wanted));
    if (got <= 0) {
        error_ = log_.error();
        return false;
    }
    dataEnd_ += got;
    return true;
}

/// Copies what the record in hand has told so far, since the block moves on.
void AdifReader::keepFields() {
    const std::less<> before;
    for (std::size_t i = 0; i < wantedFields.size(); ++i) {
        std::string_view& value = fields_.*wantedFields[i].field;
        const char* const begin = value.data();
        const bool inBlock = !value.empty() && !before(begin, block_.get()) &&
                             before(begin, block_.get() + capacity_);
        if (inBlock) {
            kept_[i] = value;
            value = kept_[i];
        }
    }
}

} // namespace tovrel
