#include "run/Commands.h"

#include "export/GoogleExport.h"
#include "log/FieldTable.h"
#include "map/MapImage.h"
#include "map/PictureFile.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "plot/GCMapLoadADIF.h"
#include "state/InitSettings.h"

#include <array>
#include <optional>
#include <utility>

namespace tovrel {

namespace {

constexpr float defaultGCHeight = 8000.0F;
constexpr float defaultMlWidth = 7000.0F;
constexpr Colour landWhenEmpty = 0xC0FFC0;
constexpr Colour waterWhenEmpty = 0xFECDA5;

} // namespace

std::string_view GetVersionString() { return TOVREL_VERSION; }

Commands::Commands(RunData& data, MapRun& map, MapWindow& window, PassListener& listener,
                   UserPrompt& prompt, Clock clock)
    : data_(data), map_(map), window_(window), listener_(listener), prompt_(prompt),
      clock_(std::move(clock)) {}

void Commands::Form_Load() {
    const bool firstRun = data_.ini.state() == PrivateProfile::State::Missing;
    const bool stored = InitSettings(data_.ini, data_.maps, data_.google, data_.run);
    if (firstRun) {
        window_.askStationInfo();
    }
    if (const WriteEnd created = FieldTable::CreateFieldDictionary(data_.ini.programFolder());
        !created) {
        prompt_.tellFailure({FileFailure::Act::Write, "The tag list could not be created.",
                             joinPath(data_.ini.programFolder(), FieldTable::fileName),
                             created.reason});
    }
    // Alone in a new file it would make the next start believe that the station is known.
    if (stored) {
        data_.ini.WriteIniValue(section::globals, "Version", GetVersionString());
    }

    data_.run.LogFileName = data_.ini.ReadIniValue(section::log, "adifile");
    if (!fileExists(data_.run.LogFileName)) {
        data_.run.LogFileName.clear();
    }
    map_.readHome();
    const std::string display = data_.ini.ReadIniValue(section::globals, "Display");
    const bool azimuthal = display.empty() || display == "Azimuthal";
    setProjection(azimuthal ? Projection::Azimuthal : Projection::Miller);
    for (const Projection map : {Projection::Azimuthal, Projection::Miller}) {
        data_.maps.loadBoxes(map);
    }
    data_.maps.load(data_.run.marks.projection);
    data_.stats.load();

    map_.LoadBaseMap();
    map_.SetWindowAspect();
    window_.setWaitPointer(false);
    map_.ResetMap();
    data_.run.FormReady = true;
}

void Commands::setProjection(Projection projection) {
    data_.run.marks.projection = projection;
    data_.run.tellMarksChanged();
    window_.setCaption(projection == Projection::Azimuthal
                           ? "Tovrel - Azimuthal Equidistant Projection"
                           : "Tovrel - Miller Cylindrical Projection");
    setStoredSize();
}

void Commands::setStoredSize() {
    if (data_.run.marks.azimuthal()) {
        window_.setHeight(
            toSingle(data_.ini.readNumber(section::globals, "GCHeight", defaultGCHeight)));
    } else {
        window_.setWidth(
            toSingle(data_.ini.readNumber(section::globals, "MlWidth", defaultMlWidth)));
    }
}

void Commands::fitWindow() {
    setStoredSize();
    map_.SetWindowAspect();
    window_.CenterForm();
    map_.followSize();
}

void Commands::loadLegendAtStart() {
    // Whichever map is shown first, with marks in its own colours, these six go on with the palette
    // of the azimuthal one; the meridians keep the colour of the map in force.
    for (const LegendEntry entry :
         {LegendEntry::Confirmed, LegendEntry::Worked, LegendEntry::Heard, LegendEntry::Home,
          LegendEntry::PlotOutline, LegendEntry::Line}) {
        data_.stats.legend().load(data_.ini, Projection::Azimuthal, entry);
    }
}

void Commands::Form_Unload() {
    if (data_.run.marks.azimuthal()) {
        data_.ini.WriteIniValue(section::globals, "GCHeight", decimalText(window_.Height()));
    } else {
        data_.ini.WriteIniValue(section::globals, "MlWidth", decimalText(window_.Width()));
    }
    data_.run.FormReady = false;
}

void Commands::mnuOpenADIFFile() {
    const std::string known = data_.ini.ReadIniValue(section::log, "adifile");
    const std::optional<std::string> chosen = window_.openFile(
        "Load Log Input File", std::string(splitPath(known).folder), "ADIF Files (*.ADI)|*.ADI");
    if (!chosen) {
        return;
    }
    data_.run.LogFileName = *chosen;
    data_.ini.WriteIniValue(section::log, "adifile", *chosen);
}

void Commands::mnuSaveMap() {
    const Projection projection = data_.run.marks.projection;
    PictureSurface Picture3(map_.Picture2.Width(), map_.Picture2.Height());
    composeMapImage(map_.Picture2, projection, clock_(), Picture3);
    const std::string name = mapImageName(projection, clock_()) + ".bmp";
    const std::string path = joinPath(data_.ini.programFolder(), name);
    if (const WriteEnd saved = SavePicture(Picture3.Image(), path); !saved) {
        prompt_.tellFailure(
            {FileFailure::Act::Write, name + " could not be saved.", path, saved.reason});
        return;
    }
    // The clock is read once more: a slow save may show a second that no file has in its name.
    prompt_.tell(mapImageName(projection, clock_()) + ".bmp has been saved.");
}

bool Commands::logChosen() const { return fileExists(data_.run.LogFileName); }

bool Commands::chooseLog() {
    if (!logChosen()) {
        mnuOpenADIFFile();
    }
    if (!logChosen()) {
        prompt_.tell("You must select an ADIF file before continuing.\r\n"
                     "From the menu bar select File -> Open ADIF file.\r\n");
    }
    return logChosen();
}

void Commands::mnuLoadADIF() {
    map_.ResetMap();
    data_.stats.load();
    data_.stats.lists().clear();
    if (!chooseLog()) {
        data_.tables.clearHover();
        return;
    }
    GCMapLoadADIF pass(data_.ini, data_.maps, data_.run, data_.stats, data_.tables, map_.Picture2,
                       listener_, prompt_);
    // A new size shapes the picture before the marks are drawn on it; behind them it would wipe
    // them.
    pass.beforeMarks = [this] {
        window_.settleSize();
        map_.followSize();
    };
    const PassEnd end = pass.PlotLog();
    window_.setWaitPointer(false);
    map_.showMap();
    if (end == PassEnd::Done) {
        // Its next tick would wipe the marks.
        window_.setTimer1(false);
    } else if (end == PassEnd::DictionaryMissing) {
        window_.close();
    }
}

void Commands::mnuGoogle() {
    if (!chooseLog()) {
        return;
    }
    window_.setWaitPointer(false);
    data_.stats.load();
    GoogleExport pass(data_.ini, data_.google, data_.run, data_.stats,
                      data_.tables.counters.QsosPlotted, listener_, prompt_,
                      [this](const std::string& path) { return window_.openWithSystem(path); });
    const ExportEnd end = pass.CreateGoogleFile(exportFilesFor(data_.run.LogFileName));
    if (end == ExportEnd::DictionaryMissing) {
        window_.close();
    }
}

void Commands::replot() {
    if (data_.run.MapPlotted) {
        mnuLoadADIF();
    }
}

void Commands::mnuClearMap() {
    map_.ResetMap();
    data_.stats.load();
    data_.stats.lists().clear();
    data_.run.MapPlotted = false;
    data_.tables.clearHover();
}

void Commands::toggleOverlay(bool MenuMarks::*mark, void (MapRun::*draw)(),
                             bool MenuMarks::*otherMark, void (MapRun::*drawOther)()) {
    MenuMarks& marks = data_.run.marks;
    marks.*mark = !(marks.*mark);
    data_.run.tellMarksChanged();
    if (marks.*mark) {
        (map_.*draw)();
    } else {
        map_.ResetMap();
        replot();
    }
    if (marks.*otherMark) {
        (map_.*drawOther)();
    }
    data_.maps.saveInForce();
}

void Commands::mnuShowMe() {
    toggleOverlay(&MenuMarks::mnuShowMe, &MapRun::DrawHomeMarker, &MenuMarks::mnuMeridian,
                  &MapRun::DrawGraticule);
}

void Commands::mnuMeridian() {
    toggleOverlay(&MenuMarks::mnuMeridian, &MapRun::DrawGraticule, &MenuMarks::mnuShowMe,
                  &MapRun::DrawHomeMarker);
}

void Commands::mnuTopo() {
    data_.run.marks.mnuTopo = !data_.run.marks.mnuTopo;
    data_.run.tellMarksChanged();
    map_.RebuildBaseMap();
}

void Commands::mnuShowCompass() {
    data_.run.marks.mnuShowCompass = !data_.run.marks.mnuShowCompass;
    data_.run.tellMarksChanged();
    map_.ResetMap();
    data_.maps.SaveGCMapOptions();
}

void Commands::setCompassWeight(bool bold) {
    data_.run.marks.mnuBoldCompass = bold;
    data_.run.marks.mnuLightCompass = !bold;
    data_.run.tellMarksChanged();
    map_.ResetMap();
    data_.maps.SaveGCMapOptions();
}

void Commands::setCompassStep(bool every15) {
    data_.run.marks.mnu15Degrees = every15;
    data_.run.marks.mnu45Degrees = !every15;
    data_.run.tellMarksChanged();
    map_.ResetMap();
    data_.maps.SaveGCMapOptions();
}

void Commands::switchProjection(Projection projection) {
    const bool StatsWereVisible = window_.statsVisible();
    if (StatsWereVisible) {
        window_.hideStats();
    }
    window_.setVisible(false);
    data_.maps.load(projection);
    if (data_.run.marks.projection != projection) {
        data_.tables.clearHover();
        map_.readHome();
        setProjection(projection);
        map_.SetWindowAspect();
        map_.LoadBaseMap();
        map_.ResetMap();
        data_.maps.save(projection);
        data_.ini.WriteIniValue(section::globals, "Display",
                                projection == Projection::Azimuthal ? "Azimuthal" : "Miller");
    }
    window_.setVisible(true);
    if (StatsWereVisible) {
        window_.closeStats();
        window_.mnuView_Stats();
    }
    replot();
}

void Commands::mnuRecreateMap() {
    map_.readHome();
    window_.setWaitPointer(true);
    window_.setTimer1(false);
    map_.BuildBaseMap();
    window_.setTimer1(true);
    map_.ResetMap();
    data_.maps.saveInForce();
    window_.setWaitPointer(false);
}

void Commands::mnuLoadCustomMap() {
    const bool azimuthal = data_.run.marks.azimuthal();
    const std::optional<std::string> chosen = window_.openFile(
        azimuthal ? "Select Base Map for Azimuthal Equidistant Projection"
                  : "Select Base Map for Miller Projection",
        data_.ini.programFolder(), "JPG Files (*.JPG)|*.JPG|BMP Files (*.BMP)|*.BMP");
    if (!chosen) {
        return;
    }
    map_.loadMapPix(*chosen);
    data_.ini.WriteIniValue(sectionOf(data_.run.marks.projection), "BaseMap", *chosen);
    mnuRecreateMap();
}

void Commands::changeBaseColour(std::string_view key, Colour whenEmpty) {
    const std::string_view section = sectionOf(data_.run.marks.projection);
    const Colour start = readColour(data_.ini, section, key, whenEmpty);
    const std::optional<Colour> chosen = window_.chooseColour(start);
    if (!chosen) {
        return;
    }
    data_.ini.WriteIniValue(section, key, std::to_string(*chosen));
    if (*chosen != start) {
        mnuRecreateMap();
    }
}

void Commands::mnuChangeLandColor() { changeBaseColour("LandColor", landWhenEmpty); }

void Commands::mnuChangeWaterColor() { changeBaseColour("WaterColor", waterWhenEmpty); }

void Commands::mnuResetBaseColors() {
    const std::string_view section = sectionOf(data_.run.marks.projection);
    data_.ini.WriteIniValue(section, "LandColor", std::to_string(landWhenEmpty));
    data_.ini.WriteIniValue(section, "WaterColor", std::to_string(waterWhenEmpty));
    mnuRecreateMap();
}

void Commands::mnuHelp() {
    const std::string guide = findFile(data_.ini.programFolder(), "Tovrel-Help.pdf");
    if (!guide.empty() && !window_.openWithSystem(guide)) {
        prompt_.tell("No program could be started to show the help file:\r\n" + guide,
                     MessageIcon::Exclamation);
    }
}

void Commands::applyMapOptions(Projection projection) {
    data_.maps.save(projection);
    data_.stats.load();
    data_.stats.showFilter(projection);
}

bool Commands::pickLegendColour(LegendEntry entry) {
    data_.stats.load();
    const Colour before = data_.stats.legend().colour(entry);
    // Cancelling keeps the colour that the dialog began with.
    const Colour chosen = window_.chooseColour(before).value_or(before);
    data_.stats.pickColour(entry, chosen);
    return entry == LegendEntry::Meridian && chosen != before;
}

} // namespace tovrel
