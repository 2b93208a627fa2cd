#include "export/GoogleExport.h"
#include "platform/TestDoubles.h"
#include "run/RunData.h"
#include "state/InitSettings.h"

#include <cstdio>

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
    tovrel::ScriptedListener listener;
    tovrel::ScriptedPrompt prompt;
    prompt.answer = false;
    tovrel::GoogleExport pass(data.ini, data.google, data.run, data.stats,
                              data.tables.counters.QsosPlotted, listener, prompt,
                              [](const std::string& /*path*/) { return true; });
    const auto end = pass.CreateGoogleFile(tovrel::exportFilesFor(data.run.LogFileName));
    for (const std::string& text : prompt.told)
        std::fprintf(stderr, "%s\n", text.c_str());
    return end == tovrel::ExportEnd::Done ? 0 : 1;
}
