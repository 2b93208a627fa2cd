#include "log/EntityTable.h"

#include "platform/ByteText.h"
#include "platform/Numbers.h"

#include <QFile>
#include <algorithm>
#include <array>

// A static library's resources are dropped by the linker unless somebody asks for them, and the
// macro that asks works in no namespace, not even one without a name.
static void initResource() { Q_INIT_RESOURCE(entities); }

namespace tovrel {

namespace {

constexpr int usa = 291; // number of the United States

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return c >= 'A' && c <= 'Z'; }
bool allOf(std::string_view text, bool (*is)(char)) {
    return std::all_of(text.begin(), text.end(), is);
}

std::string resource(const char* path) {
    QFile file(QString::fromLatin1(path));
    file.open(QIODevice::ReadOnly);
    return file.readAll().toStdString();
}

/// Takes what stands before the next `mark`, and the mark.
std::string_view takeUpTo(std::string_view& rest, char mark) {
    const std::size_t end = std::min(rest.find(mark), rest.size());
    const std::string_view taken = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return taken;
}

/// A field of a line whose fields are parted by commas, one with a comma in it in quotes.
std::string_view takeField(std::string_view& line) {
    if (!line.starts_with('"')) {
        return takeUpTo(line, ',');
    }
    line.remove_prefix(1);
    const std::string_view field = takeUpTo(line, '"');
    takeUpTo(line, ',');
    return field;
}

/// The next part of a call that is not empty; empty at its end.
std::string_view takePart(std::string_view& call) {
    std::string_view part;
    while (part.empty() && !call.empty()) {
        part = takeUpTo(call, '/');
    }
    return part;
}

/// Whether a part behind the first tells how the station works or what it is, and no place.
bool isRemark(std::string_view part) {
    static constexpr std::array<std::string_view, 7> remarks = {"LH", "PM", "FF", "AA",
                                                                "AE", "AG", "KT"};
    constexpr std::string_view placesOfOneLetter = "FGIKW";
    constexpr std::size_t longestPlace = 2; // of letters alone
    if (!allOf(part, isLetter)) {
        return false;
    }
    if (part.size() == 1) {
        return placesOfOneLetter.find(part.front()) == std::string_view::npos;
    }
    return part.size() > longestPlace ||
           std::find(remarks.begin(), remarks.end(), part) != remarks.end();
}

} // namespace

void EntityTable::load() {
    if (loaded_) {
        return;
    }
    loaded_ = true;
    initResource();
    const std::string current = resource(":/tovrel/entities.csv");
    const std::string deleted = resource(":/tovrel/entities-deleted.csv");
    texts_ = current + deleted;
    const std::string_view texts = texts_;
    read(texts.substr(0, current.size()), true);
    read(texts.substr(current.size()), false);
}

/// @param current whether calls may begin with the entities' prefixes
void EntityTable::read(std::string_view csv, bool current) {
    takeUpTo(csv, '\n'); // the names of the columns
    while (!csv.empty()) {
        std::string_view line = takeUpTo(csv, '\n');
        const auto code = static_cast<std::size_t>(numberValue(takeField(line)));
        const std::string_view name = takeField(line);
        takeField(line); // the continent
        const double latitude = numberValue(takeField(line));
        const double longitude = numberValue(takeField(line));
        const std::size_t entity = entities_.size();
        entities_.push_back({static_cast<int>(code), name, {latitude, longitude}});
        numbers_.resize(std::max(numbers_.size(), code + 1));
        numbers_[code] = static_cast<std::uint16_t>(entity + 1);
        if (current) {
            addPrefixes(takeField(line), entity);
        }
    }
}

void EntityTable::addPrefixes(std::string_view prefixes, std::size_t entity) {
    while (!prefixes.empty()) {
        std::string_view behind = takeUpTo(prefixes, ' ');
        const std::string_view prefix = takeUpTo(behind, '/');
        if (behind.empty()) {
            prefixes_.add(prefix, static_cast<int>(entity) + 1);
            longestPrefix_ = std::max(longestPrefix_, prefix.size());
        } else {
            pairs_.push_back({prefix, behind, entity});
        }
    }
}

const Entity* EntityTable::ofCode(int code) {
    load();
    const auto number = static_cast<std::size_t>(code);
    const bool known = code >= 0 && number < numbers_.size() && numbers_[number] != 0;
    return known ? &entities_[numbers_[number] - std::size_t{1}] : nullptr;
}

const Entity* EntityTable::ofCall(std::string_view call) {
    load();
    call.remove_suffix(call.ends_with('=') ? 1 : 0);
    call = trimBlanks(call);
    std::array<char, 64> room; // for any call there is; a longer text takes a moment longer
    std::string longer;
    char* upper = room.data();
    if (call.size() > room.size()) {
        longer.resize(call.size());
        upper = longer.data();
    }
    std::transform(call.begin(), call.end(), upper, upperCase);
    const std::string_view text(upper, call.size());
    const bool good = allOf(text, [](char c) { return isLetter(c) || isDigit(c) || c == '/'; });
    return good ? ofParts(text) : nullptr;
}

/// @param call in upper case, nothing but letters, digits and strokes in it
const Entity* EntityTable::ofParts(std::string_view call) {
    if (call.find('/') == std::string_view::npos) {
        return ofPrefix(call);
    }
    const Entity* const pair = ofPair(call);
    std::string_view rest = call;
    std::string_view best;     // the shortest part that can be nothing but a place
    std::string_view shortest; // the shortest of all that could be one
    int places = 0;
    char area = '\0';
    const auto takePlace = [&](std::string_view part) {
        const bool plain = prefixes_.find(part) != 0 || isDigit(part.back()) ||
                           std::none_of(part.begin(), part.end(), isDigit);
        if (plain && (best.empty() || part.size() < best.size())) {
            best = part;
        }
        if (shortest.empty() || part.size() < shortest.size()) {
            shortest = part;
        }
        ++places;
    };
    const std::string_view first = takePart(rest);
    if (first.empty()) {
        return nullptr;
    }
    takePlace(first);
    for (std::string_view part = takePart(rest); !part.empty(); part = takePart(rest)) {
        if (part == "MM" || part == "AM") {
            return nullptr;
        }
        if (allOf(part, isDigit)) {
            area = part.size() == 1 ? part.front() : area;
        } else if (!isRemark(part) && ofPrefix(part) != nullptr) {
            takePlace(part);
        }
    }
    if (pair != nullptr) {
        return pair;
    }
    if (places == 1) {
        return area == '\0' ? ofPrefix(first) : ofCallArea(first, area);
    }
    return ofPrefix(best.empty() ? shortest : best);
}

const Entity* EntityTable::ofPair(std::string_view call) const {
    for (const Pair& pair : pairs_) {
        bool begun = false;
        std::string_view rest = call;
        for (std::string_view part = takePart(rest); !part.empty(); part = takePart(rest)) {
            if (begun && part == pair.behind) {
                return &entities_[pair.entity];
            }
            begun = begun || part.starts_with(pair.prefix);
        }
    }
    return nullptr;
}

/// The entity with the longest prefix that a place begins with.
const Entity* EntityTable::ofPrefix(std::string_view place) const {
    constexpr std::string_view guantanamo = "KG4"; // alone or with two letters; else a USA call
    constexpr std::size_t withTwoLetters = guantanamo.size() + 2;
    for (std::size_t size = std::min(place.size(), longestPrefix_); size > 0; --size) {
        const std::string_view prefix = place.substr(0, size);
        const bool counts = prefix != guantanamo || place.size() == size ||
                            (place.size() == withTwoLetters && allOf(place.substr(size), isLetter));
        const int row = counts ? prefixes_.find(prefix) : 0;
        if (row != 0) {
            return &entities_[static_cast<std::size_t>(row) - 1];
        }
    }
    return nullptr;
}

/// The entity of a call with the digit of another call area behind it. Those of the outlying
/// states and territories of the USA are in the USA then.
const Entity* EntityTable::ofCallArea(std::string_view place, char digit) {
    static constexpr std::array<std::string_view, 11> outlying = {
        "AH", "KH", "NH", "WH", "AL", "KL", "NL", "WL", "KP", "NP", "WP"};
    if (std::find(outlying.begin(), outlying.end(), place.substr(0, 2)) != outlying.end()) {
        return ofCode(usa);
    }
    std::string moved(place);
    if (const std::size_t last = moved.find_last_of("0123456789"); last != std::string::npos) {
        moved[last] = digit;
    }
    return ofPrefix(moved);
}

} // namespace tovrel
