#include "log/Qso.h"

#include "log/QsoFilter.h"
#include "platform/ByteText.h"
#include "platform/Numbers.h"

#include <algorithm>
#include <array>

namespace tovrel {

namespace {

/// Name of the mode group of a mode as any logger writes it.
std::string_view modeGroupOfAny(std::string_view mode) {
    static constexpr std::array<std::string_view, 8> phone = {
        "SSB", "USB", "LSB", "AM", "FM", "DIGITALVOICE", "C4FM", "PHONE"};
    if (std::any_of(phone.begin(), phone.end(),
                    [mode](std::string_view name) { return equalIgnoringCase(mode, name); })) {
        return "Phone";
    }
    return equalIgnoringCase(mode, "CW") ? "CW" : "Digital";
}

} // namespace

std::string_view Qso::country() const {
    if (adif_ && fields_->country.empty()) {
        const Entity* const entity = entityOf(*fields_, entities_);
        return entity == nullptr ? std::string_view() : entity->name;
    }
    return fields_->country;
}

bool Qso::passes(const Filter& filter) const {
    return adif_ ? passesFilter(filter, fields_->band, modeGroupOfAny(fields_->mode), fields_->iota,
                                LetterCase::Any)
                 : passesFilter(filter, fields_->band, modeGroupOf(fields_->mode), fields_->iota,
                                LetterCase::AsWritten);
}

bool Qso::tellsPlace() const {
    return adif_ ? place().has_value() : coordinateValue(fields_->loggerWest) != 0.0;
}

std::optional<ContactPlace> Qso::place() const {
    return adif_ ? contactPlace(*fields_, placeByCountry_ ? &entities_ : nullptr)
                 : loggerPlace(*fields_);
}

std::optional<QsoStatus> Qso::folder() const {
    if (adif_) {
        return place() ? std::optional(status()) : std::nullopt;
    }
    const bool heard = status() == QsoStatus::Heard;
    const bool none = numberValue(fields_->loggerWest) == 0.0 || (heard && isConfirmed());
    return none ? std::nullopt : std::optional(status());
}

Qso::PlaceText Qso::placeText() const {
    constexpr int places = 6;
    const std::optional<ContactPlace> place = adif_ ? this->place() : std::nullopt;
    if (place && place->from != PlaceSource::LoggerCoordinates) {
        return {fixedText(place->position.longitude, places),
                fixedText(place->position.latitude, places)};
    }
    const double east = place ? place->position.longitude : -numberValue(fields_->loggerWest);
    return {generalText(east), std::string(fields_->loggerNorth)};
}

bool Qso::isConfirmed() const {
    const auto yes = [this](std::string_view value) {
        return adif_ ? equalIgnoringCase(value, "Y") : value == "Y";
    };
    return yes(fields_->qslRcvd) || yes(fields_->eqslRcvd) || yes(fields_->lotwRcvd);
}

} // namespace tovrel
