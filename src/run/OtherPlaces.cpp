#include "run/OtherPlaces.h"

#include "log/LogPass.h"
#include "platform/Files.h"
#include "platform/Numbers.h"

namespace tovrel {

namespace {

constexpr float fullBar = 100.0F;

/// Counts the records with a place of their own.
class PlaceCounter : public LogPass::Visitor {
public:
    void takeRecord(const Qso& qso) override {
        const std::optional<ContactPlace> place = qso.place();
        count += place && place->from != PlaceSource::LoggerCoordinates ? 1 : 0;
    }

    float progress(double done, double size) override { return toSingle(done / size * fullBar); }

    std::int64_t count = 0;
};

} // namespace

std::int64_t countOtherPlaces(RunData& data, PassListener& listener) {
    LogReading reading = data.run.reading;
    LogFile log(data.run.LogFileName);
    if (reading.format == LogFormat::Adif || log.size() == 0) {
        return 0;
    }
    reading.format = LogFormat::Adif;
    const std::string name(splitPath(data.run.shownLog()).name);
    listener.beginPass("Looking for Other Places", "Processing: " + name, fullBar);
    LogPass pass(log, reading, data.ini, data.run, listener, LogPass::Abort::BeforeYield);
    PlaceCounter counter;
    const PassEnd end = pass.read(counter);
    listener.endPass();
    return end == PassEnd::Done ? counter.count : 0;
}

} // namespace tovrel
