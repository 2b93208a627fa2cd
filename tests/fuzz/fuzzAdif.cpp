#include "fuzz/Fuzz.h"
#include "log/AdifReader.h"
#include "log/ContactPlace.h"
#include "platform/TestFolder.h"

#include <cmath>

namespace tovrel {

namespace {

/// The records of a log with their places, as text.
std::vector<std::string> recordsOf(LogFile& log, std::size_t blockSize, EntityTable& entities) {
    std::vector<std::string> records;
    AdifReader reader(log, blockSize);
    Cut cut = reader.next();
    std::size_t bytes = 0;
    for (; cut == Cut::Record; cut = reader.next()) {
        const QsoFields& fields = reader.fields();
        const auto place = contactPlace(fields, &entities);
        require(!place || (std::isfinite(place->position.latitude) &&
                           std::isfinite(place->position.longitude)),
                "a place is finite");
        const Entity* const entity = entityOf(fields, entities);
        records.push_back(std::string(fields.call).append("|").append(fields.gridSquare));
        records.back().append("|").append(entity == nullptr ? "" : entity->name);
        bytes += reader.size();
    }
    require(static_cast<std::int64_t>(bytes) <= log.size(), "no byte is counted twice");
    require(cut == Cut::End || !reader.error().empty(), "a failure has a reason");
    return records;
}

} // namespace

void tryInput(Input input) {
    static const TestFolder folder;
    static EntityTable entities;
    const auto blockSize = static_cast<std::size_t>(input.choice(64) + 1);
    LogFile log(folder.write("log.adi", input.rest()), LogFile::Check::SameBytes);
    require(recordsOf(log, ReadBlock::defaultSize, entities) == recordsOf(log, blockSize, entities),
            "all blocks give the same");
}

} // namespace tovrel
