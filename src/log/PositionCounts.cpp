#include "log/PositionCounts.h"

namespace tovrel {

void PositionCounts::add(PlaceSource from) {
    switch (from) {
    case PlaceSource::LoggerCoordinates:
    case PlaceSource::Coordinates:
        ++coordinates;
        break;
    case PlaceSource::Locator:
        ++locator;
        break;
    case PlaceSource::Country:
        ++country;
        break;
    }
}

void PositionCounts::addLines(std::vector<std::string>& summary) const {
    summary.push_back("   " + std::to_string(coordinates) + " by Coordinates");
    summary.push_back("   " + std::to_string(locator) + " by Locator");
    summary.push_back("   " + std::to_string(country) + " by Country");
}

std::string_view wordOf(PlaceSource from) {
    switch (from) {
    case PlaceSource::LoggerCoordinates:
    case PlaceSource::Coordinates:
        break;
    case PlaceSource::Locator:
        return "locator";
    case PlaceSource::Country:
        return "country";
    }
    return "coordinates";
}

} // namespace tovrel
