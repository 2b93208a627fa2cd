#pragma once

#include "log/EntityTable.h"
#include "log/QsoFields.h"

#include <optional>
#include <string_view>

namespace tovrel {

/// Where a record told the place of its contact.
enum class PlaceSource : unsigned char {
    LoggerCoordinates, ///< in the coordinates of a Logger32 log
    Coordinates,       ///< in LAT and LON
    Locator,           ///< in the locator of its square
    Country            ///< by its country alone
};

/// The place of a contact.
struct ContactPlace {
    Position position;
    PlaceSource from = PlaceSource::LoggerCoordinates;
};

/// Degrees that a coordinate of ADIF tells: a Location as in "N051 30.250" (a letter in any case,
/// one to three digits of degrees, blanks, one or two of minutes with or without decimals), or
/// plain decimal degrees, north and east positive.
/// @param positive, negative upper-case letters of the two sides: 'N' and 'S', or 'E' and 'W'
/// @param most largest size, degrees: 90 or 180
/// @return nothing where the text is neither, or tells more than `most` or 60 minutes
std::optional<double> locationDegrees(std::string_view text, char positive, char negative,
                                      double most);

/// Middle of the square of a Maidenhead locator: pairs of letters A to R, digits, letters A to X,
/// digits, letters, digits, in any case. Of a text that is longer or partly wrong the longest good
/// beginning of 4, 6, 8, 10 or 12 characters counts.
/// @param extension characters 9 to 12, which count behind a square of 8 alone
/// @return nothing where not even the first 4 characters are good
std::optional<Position> locatorPosition(std::string_view square, std::string_view extension);

/// Place by the coordinates of a Logger32 log, each of which has to begin with a number other
/// than 0. No range is tested.
std::optional<ContactPlace> loggerPlace(const QsoFields& fields);

/// Place of a contact in a log of any logger: the first that is told of the coordinates of a
/// Logger32 log, LAT and LON (0, 0 is what loggers write for "unknown"), the locator, and the
/// country.
/// @param byCountry null: no place by country
std::optional<ContactPlace> contactPlace(const QsoFields& fields, EntityTable* byCountry);

/// The entity that a record tells: that of its DXCC, deleted ones too, else of its call. A DXCC of
/// 0 says that the station is in none; one that is no number or in no table says nothing.
/// @return null for none; good as long as the table
const Entity* entityOf(const QsoFields& fields, EntityTable& table);

} // namespace tovrel
