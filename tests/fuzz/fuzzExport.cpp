#include "export/GoogleExport.h"
#include "fuzz/Fuzz.h"
#include "platform/TestDoubles.h"
#include "platform/TestFolder.h"
#include "run/RunData.h"

namespace tovrel {

namespace {

std::int32_t placemarksOf(const std::string& document) {
    std::int32_t count = 0;
    for (std::size_t at = 0; (at = document.find("<Placemark>", at)) != document.npos; ++at)
        ++count;
    return count;
}

} // namespace

void tryInput(Input input) {
    static const TestFolder folder;
    RunData data(folder.path(), "Tovrel.ini", PrivateProfile::Storage::Memory);
    data.run.LogFileName = folder.write("log.adi", input.rest());
    data.google.chkCall = input.choice(2) == 0;
    data.google.filter.mode.set(input.choice(4), true);
    const int abortAt = input.choice(256) - 230; // 0 and below is never
    ScriptedListener listener;
    listener.onYield = [&](int yield) { data.run.AbortRequested = yield == abortAt; };
    ScriptedPrompt prompt;
    prompt.answer = false;
    std::int32_t plotted = 0;
    GoogleExport pass(data.ini, data.google, data.run, data.stats, plotted, listener, prompt, {});
    const ExportFiles files{folder.path("log.kml"), folder.path("log.kmz"),
                            ExportFiles::Document::Kept};
    std::filesystem::remove(files.KmlFileName);
    std::filesystem::remove(files.archive);
    const ExportEnd end = pass.CreateGoogleFile(files);

    const bool aborted = abortAt > 0 && listener.yields == abortAt;
    const std::int32_t placed = pass.counters().GooglePlaced();
    const ExportEnd whole = placed > 0 ? ExportEnd::Done : ExportEnd::NothingPlaced;
    const std::string document = folder.read("log.kml");
    const std::string archive = folder.read("log.kmz");
    require(end == (aborted ? ExportEnd::Aborted : whole), "any log will do");
    require(document.ends_with("</kml>\r\n") != aborted, "a whole document stays");
    require(placemarksOf(document) == (aborted ? 0 : placed), "the placemarks are counted");
    require(archive.starts_with("PK") == (end == ExportEnd::Done), "an export has an archive");
    require(archive.empty() == (end != ExportEnd::Done), "there is no half archive");
}

} // namespace tovrel
