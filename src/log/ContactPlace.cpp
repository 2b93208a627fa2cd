#include "log/ContactPlace.h"

#include "platform/ByteText.h"
#include "platform/Numbers.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace tovrel {

namespace {

constexpr double mostNorth = 90.0;
constexpr double mostEast = 180.0;

std::string_view takeDigits(std::string_view& text) {
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    const std::string_view digits = text.substr(0, count);
    text.remove_prefix(count);
    return digits;
}

/// Degrees and minutes, as they stand behind the letter of a Location.
std::optional<double> degreesAndMinutes(std::string_view text) {
    constexpr double minutesPerDegree = 60.0;
    const std::string_view degrees = takeDigits(text);
    const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
    const std::string_view minutes = text.substr(blanks);
    const std::size_t whole = std::min(minutes.find('.'), minutes.size());
    const bool wellFormed = !degrees.empty() && degrees.size() <= 3 && blanks > 0 && whole > 0 &&
                            whole <= 2 && minutes.front() != '+' && minutes.front() != '-' &&
                            isPlainDecimal(minutes);
    if (!wellFormed || numberValue(minutes) >= minutesPerDegree) {
        return std::nullopt;
    }
    return numberValue(degrees) + numberValue(minutes) / minutesPerDegree;
}

std::optional<ContactPlace> placeByLocation(const QsoFields& fields) {
    const std::optional<double> north = locationDegrees(fields.lat, 'N', 'S', mostNorth);
    const std::optional<double> east = locationDegrees(fields.lon, 'E', 'W', mostEast);
    if (!north || !east || (*north == 0.0 && *east == 0.0)) {
        return std::nullopt;
    }
    return ContactPlace{{*north, *east}, PlaceSource::Coordinates};
}

/// What a character of a locator counts within its pair; -1 where it may not stand.
/// @param letters how many letters from A on are good; 0 for a digit
int locatorValue(char c, int letters) {
    const int value = letters == 0 ? c - '0' : upperCase(c) - 'A';
    return value >= 0 && value < (letters == 0 ? 10 : letters) ? value : -1;
}

/// Whether the station was on a ship or in an aircraft, and so in no country.
bool isMobile(std::string_view call) {
    call.remove_suffix(call.ends_with('=') ? 1 : 0);
    for (std::size_t stroke = call.find('/'); stroke != std::string_view::npos;
         stroke = call.find('/')) {
        call.remove_prefix(stroke + 1);
        const std::string_view part = call.substr(0, call.find('/'));
        if (equalIgnoringCase(part, "MM") || equalIgnoringCase(part, "AM")) {
            return true;
        }
    }
    return false;
}

/// The number of a DXCC; -1 where it is none, or one that no entity can have.
int dxccNumber(std::string_view text) {
    constexpr std::size_t mostDigits = 4;
    const std::string_view digits = takeDigits(text);
    if (digits.empty() || !text.empty()) {
        return -1;
    }
    const std::string_view number =
        digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
    return number.size() > mostDigits ? -1 : static_cast<int>(numberValue(number));
}

} // namespace

std::optional<double> locationDegrees(std::string_view text, char positive, char negative,
                                      double most) {
    const char side = text.empty() ? '\0' : upperCase(text.front());
    std::optional<double> degrees;
    if (side == positive || side == negative) {
        degrees = degreesAndMinutes(text.substr(1));
        if (degrees && side == negative) {
            degrees = 0.0 - *degrees;
        }
    } else if (isPlainDecimal(text)) {
        degrees = numberValue(text) + 0.0;
    }
    return degrees && *degrees >= -most && *degrees <= most ? degrees : std::nullopt;
}

std::optional<Position> locatorPosition(std::string_view square, std::string_view extension) {
    // Of each pair how many letters are good, 0 for digits, and with that into how many parts it
    // cuts its square in each direction.
    static constexpr std::array<int, 6> lettersOfPair = {18, 0, 24, 0, 24, 0};
    constexpr std::size_t extended = 8;
    constexpr std::size_t fewestPairs = 2;
    constexpr std::size_t longest = 2 * lettersOfPair.size();

    std::array<char, longest> room{};
    std::size_t size = square.substr(0, longest).copy(room.data(), longest);
    if (square.size() == extended) {
        size += extension.substr(0, longest - size).copy(room.data() + size, longest - size);
    }
    // In whole numbers, so that the middle is the nearest double there is.
    std::int64_t east = 0;
    std::int64_t north = 0;
    std::int64_t parts = 1; // of 360 degrees of longitude, or 180 of latitude
    std::size_t pairs = 0;
    for (const int letters : lettersOfPair) {
        const std::size_t at = 2 * pairs;
        if (at + 1 >= size) {
            break;
        }
        const int x = locatorValue(room[at], letters);
        const int y = locatorValue(room[at + 1], letters);
        if (x < 0 || y < 0) {
            break;
        }
        const int cut = letters == 0 ? 10 : letters;
        east = east * cut + x;
        north = north * cut + y;
        parts *= cut;
        ++pairs;
    }
    if (pairs < fewestPairs) {
        return std::nullopt;
    }
    const auto middle = [parts](std::int64_t number, std::int64_t span) {
        return static_cast<double>((2 * number + 1) * span - parts * span) /
               static_cast<double>(2 * parts);
    };
    return Position{middle(north, 180), middle(east, 360)};
}

std::optional<ContactPlace> loggerPlace(const QsoFields& fields) {
    const double north = coordinateValue(fields.loggerNorth);
    const double west = coordinateValue(fields.loggerWest);
    if (north == 0.0 || west == 0.0) {
        return std::nullopt;
    }
    return ContactPlace{{north, -west}, PlaceSource::LoggerCoordinates};
}

std::optional<ContactPlace> contactPlace(const QsoFields& fields, EntityTable* byCountry) {
    if (const std::optional<ContactPlace> place = loggerPlace(fields)) {
        return place;
    }
    if (const std::optional<ContactPlace> place = placeByLocation(fields)) {
        return place;
    }
    if (const auto position = locatorPosition(fields.gridSquare, fields.gridSquareExt)) {
        return ContactPlace{*position, PlaceSource::Locator};
    }
    if (byCountry == nullptr || isMobile(fields.call)) {
        return std::nullopt;
    }
    const Entity* const entity = entityOf(fields, *byCountry);
    return entity == nullptr ? std::nullopt
                             : std::optional(ContactPlace{entity->position, PlaceSource::Country});
}

const Entity* entityOf(const QsoFields& fields, EntityTable& table) {
    const int number = dxccNumber(fields.dxcc);
    if (number == 0) {
        return nullptr;
    }
    const Entity* const told = table.ofCode(number);
    return told != nullptr ? told : table.ofCall(fields.call);
}

} // namespace tovrel
