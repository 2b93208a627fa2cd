// Reads a log as the plot pass does, and keeps and draws nothing: cut, parsed, classified.
//
//     read_log LOG [adif]        adif: as a log of any logger

#include "log/LogPass.h"
#include "state/FilterGroup.h"

#include <QTemporaryDir>
#include <cstdio>
#include <string_view>

namespace {

class Reading : public tovrel::LogPass::Visitor {
public:
    void takeRecord(const tovrel::Qso& qso) override {
        const bool counts = qso.place().has_value() && qso.passes(everything_);
        confirmed += counts && qso.status() == tovrel::QsoStatus::Confirmed ? 1 : 0;
    }

    float progress(double /*done*/, double /*size*/) override { return 0.0F; }

    int confirmed = 0;

private:
    tovrel::Filter everything_;
};

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 2) {
        std::fputs("usage: read_log LOG [adif]\n", stderr);
        return 2;
    }
    const QTemporaryDir empty;
    const tovrel::iniFiles ini(empty.path().toStdString(), "Tovrel.ini",
                               tovrel::PrivateProfile::Storage::Memory);
    const bool adif = argc > 2 && std::string_view(argv[2]) == "adif";
    tovrel::LogReading reading;
    reading.format = adif ? tovrel::LogFormat::Adif : tovrel::LogFormat::Logger32;
    tovrel::RunState run;
    tovrel::SilentListener listener;
    tovrel::LogFile file(argv[1]);
    tovrel::LogPass pass(file, reading, ini, run, listener, tovrel::LogPass::Abort::BeforeYield);
    Reading visitor;
    const tovrel::PassEnd end = pass.read(visitor);
    std::printf("%d\n", visitor.confirmed);
    return end == tovrel::PassEnd::Done ? 0 : 1;
}
