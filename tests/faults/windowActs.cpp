#include "platform/TestDoubles.h"
#include "run/Commands.h"
#include "run/FakeWindow.h"
#include "state/StationInfo.h"

#include <QGuiApplication>
#include <cstdio>
#include <functional>
#include <map>
#include <optional>

using namespace tovrel;

namespace {

/// A run of the window program without its windows. Every act begins with a start.
struct Run {
    explicit Run(const std::string& folder) : data(folder, "Tovrel.ini") {}

    /// One minute for all runs, so that a saved map has one name and its stamp one text.
    static QDateTime clock() { return {QDate(2011, 3, 2), QTime(7, 5, 9)}; }

    RunData data;
    FakeWindow window;
    ScriptedListener listener;
    ScriptedPrompt prompt;
    MapPictures map{data, window, listener, prompt};
    Commands commands{data, map, window.faces(), listener, prompt, clock};
};

const std::map<std::string, std::function<void(Run&)>> acts = {
    {"start", [](Run& /*run*/) {}},
    {"save", [](Run& run) { run.commands.mnuSaveMap(); }},
    {"export",
     [](Run& run) {
         run.prompt.answer = true; // the file may be replaced
         run.window.onChoosePicture = [&run](PictureWish wish) -> std::optional<PictureWish> {
             if (run.window.pictureDialogs.size() > 1)
                 return std::nullopt; // what can't be saved is asked for again
             wish.options.pixels = PictureOptions::leastPixels;
             wish.path = joinPath(run.data.ini.programFolder(), "export.png");
             return wish;
         };
         run.commands.mnuExportPicture();
     }},
    {"recreate", [](Run& run) { run.commands.mnuRecreateMap(); }},
    {"setting",
     [](Run& run) {
         writeStationInfo(run.data.ini, {"W2NEW", "20", "30"});
     }},
    {"plot", [](Run& run) { run.commands.mnuLoadADIF(); }},
    {"kmz", [](Run& run) { run.commands.mnuGoogle(); }}};

} // namespace

/// windowActs FOLDER ACT: does in a program folder what the window program does, with the log that
/// the settings name, and prints the messages that it would show.
int main(int argc, char** argv) {
    const auto act = argc == 3 ? acts.find(argv[2]) : acts.end();
    if (act == acts.end()) {
        std::fputs("usage: windowActs FOLDER start|save|export|recreate|setting|plot|kmz\n",
                   stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int qtArguments = 1;
    const QGuiApplication application(qtArguments, argv);
    Run run(argv[1]);
    run.prompt.answer = false;
    run.prompt.onTell = [&run] {
        std::puts(run.prompt.told.back().c_str());
        std::fflush(stdout);
    };
    run.commands.Form_Load();
    act->second(run);
    while (const std::optional<FileFailure> failure = run.data.ini.takeFailure()) {
        run.prompt.tellFailure(*failure);
    }
    return 0;
}
