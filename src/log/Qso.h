#pragma once

#include "log/ContactPlace.h"
#include "log/EntityTable.h"
#include "log/QsoFields.h"
#include "log/QsoStatus.h"
#include "state/FilterGroup.h"
#include "state/LogReading.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tovrel {

/// A contact as its log tells it, and all that the program asks of one. What differs between the
/// formats of logs is known here and nowhere above.
class Qso {
public:
    /// @param reading how the log is read
    /// @param entities asked in a log of any logger only; has to outlive this object
    Qso(const LogReading& reading, EntityTable& entities)
        : adif_(reading.format == LogFormat::Adif), placeByCountry_(reading.placeByCountry),
          entities_(entities) {}

    /// Takes the record in hand, before anything is asked.
    /// @param fields has to live as long as this record is asked for
    /// @param size bytes of the record
    void take(const QsoFields& fields, std::size_t size) {
        fields_ = &fields;
        size_ = size;
    }

    /// Bytes of the record.
    std::size_t size() const { return size_; }

    /// Call of the station, as the log has it.
    std::string_view call() const { return fields_->call; }

    /// Name of the country, empty where nothing tells it; good until the next record.
    std::string_view country() const;

    /// Whether it meets a filter's three criteria; see passesFilter().
    bool passes(const Filter& filter) const;

    /// How far it got.
    QsoStatus status() const { return statusOf(fields_->call, isConfirmed()); }

    /// Whether it tells where the station is, if only in part: a usable longitude will do.
    bool tellsPlace() const;

    /// Where it lies on the map; nothing where the log does not tell.
    std::optional<ContactPlace> place() const;

    /// Folder that an export has it in, if it has a place there. One of a Logger32 log has none for
    /// a heard station with a confirmation.
    std::optional<QsoStatus> folder() const;

    /// A place as an export writes it, degrees, north and east positive.
    struct PlaceText {
        std::string longitude;
        std::string latitude; ///< of a Logger32 log the bytes that it has
    };

    /// That of a QSO with a folder.
    PlaceText placeText() const;

private:
    bool isConfirmed() const;

    bool adif_;
    bool placeByCountry_;
    EntityTable& entities_;
    const QsoFields* fields_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace tovrel
