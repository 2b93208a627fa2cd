#include "export/GoogleExport.h"
#include "run/RunData.h"
#include "state/InitSettings.h"

#include <cstdio>

namespace {

class Silent : public tovrel::PassListener {
public:
    void beginPass(std::string_view /*caption*/, std::string_view /*status*/,
                   float /*maximum*/) override {}
    void showStatus(std::string_view /*status*/) override {}
    void showProgress(float /*value*/) override {}
    void endPass() override {}
    void yield() override {}
};

class ToStandardError : public tovrel::UserPrompt {
public:
    void tell(const std::string& text, tovrel::MessageIcon /*icon*/) override {
        std::fprintf(stderr, "%s\n", text.c_str());
    }
    bool ask(const tovrel::Question& /*question*/) override { return false; }
};

} // namespace

/// exportKmz FOLDER LOG CALL: exports a log with the data files of a folder, no settings, and a
/// station's call, for readers of the archive that is written beside the log.
int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: exportKmz FOLDER LOG CALL\n");
        return 2;
    }
    tovrel::RunData data(argv[1], "Tovrel.ini", tovrel::PrivateProfile::Storage::Memory);
    tovrel::InitSettings(data.ini, data.maps, data.google, data.run);
    data.ini.WriteIniValue(tovrel::section::globals, "MyCall", argv[3]);
    data.run.LogFileName = argv[2];
    Silent listener;
    ToStandardError prompt;
    tovrel::GoogleExport pass(data.ini, data.google, data.run, data.stats,
                              data.tables.counters.QsosPlotted, listener, prompt,
                              [](const std::string& /*path*/) { return true; });
    const auto end = pass.CreateGoogleFile(tovrel::exportFilesFor(data.run.LogFileName));
    return end == tovrel::ExportEnd::Done ? 0 : 1;
}
