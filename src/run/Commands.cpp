#include "run/Commands.h"

#include "export/GoogleExport.h"
#include "log/FieldTable.h"
#include "log/LogFile.h"
#include "map/MapImage.h"
#include "map/PictureFile.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "plot/GCMapLoadADIF.h"
#include "run/OtherPlaces.h"
#include "run/PictureExport.h"
#include "state/InitSettings.h"
#include "state/MapColours.h"
#include "state/StationInfo.h"

#include <array>
#include <optional>
#include <utility>

namespace tovrel {

std::string_view GetVersionString() { return TOVREL_VERSION; }

Commands::Commands(RunData& data, MapPictures& map, const Windows& windows, PassListener& listener,
                   UserPrompt& prompt, Clock clock)
    : data_(data), map_(map), windows_(windows), listener_(listener), prompt_(prompt),
      clock_(std::move(clock)) {}

void Commands::Form_Load() {
    const bool firstRun = data_.ini.state() == PrivateProfile::State::Missing;
    const bool stored = InitSettings(data_.ini, data_.maps, data_.google, data_.run);
    if (firstRun) {
        windows_.dialogs.askStationInfo();
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

    data_.run.LogFileName = data_.ini.readPath(section::log, "adifile");
    if (!fileExists(data_.run.LogFileName)) {
        data_.run.LogFileName.clear();
    }
    data_.run.reading = readLogReading(data_.ini);
    readHome(data_.ini, data_.run);
    setProjection(projectionShown(data_.ini.ReadIniValue(section::globals, "Display")));
    for (const Projection map : allProjections) {
        data_.maps.loadBoxes(map);
    }
    data_.maps.load(data_.run.marks.projection);
    data_.stats.load();

    windows_.main.CenterForm();
    map_.LoadBaseMap();
    SetWindowAspect();
    windows_.screen.setWaitPointer(false);
    map_.ResetMap();
    data_.run.FormReady = true;
}

void Commands::setProjection(Projection projection) {
    data_.run.marks.projection = projection;
    data_.run.marksChanged();
    windows_.main.setCaption("Tovrel - " + std::string(data_.mapNames().caption));
    setStoredSize();
}

void Commands::setStoredSize() {
    const MapNames& names = data_.mapNames();
    const float size =
        toSingle(data_.ini.readNumber(section::globals, names.sizeKey, names.defaultSize));
    if (data_.map()->shape().ofClientArea) {
        windows_.main.setHeight(size);
    } else {
        windows_.main.setWidth(size);
    }
}

void Commands::SetWindowAspect() {
    data_.run.FormReady = false;
    const MapShape shape = data_.map()->shape();
    const auto widthPerHeight = static_cast<float>(shape.widthPerHeight);
    if (shape.ofClientArea) {
        windows_.main.setWidth(windows_.main.ScaleHeight() * widthPerHeight);
    } else {
        windows_.main.setHeight(windows_.main.Width() / widthPerHeight);
    }
    data_.run.FormReady = true;
}

void Commands::fitWindow() {
    setStoredSize();
    SetWindowAspect();
    windows_.main.CenterForm();
    map_.followSize();
}

void Commands::loadLegendAtStart() {
    // Whichever map is shown first, with marks in its own colours, these six go on with the palette
    // of the azimuthal one; the meridians keep the colour of the map in force.
    for (const MapColour entry : {MapColour::Confirmed, MapColour::Worked, MapColour::Heard,
                                  MapColour::Home, MapColour::PlotOutline, MapColour::Line}) {
        data_.stats.legend().load(data_.ini, Projection::Azimuthal, entry);
    }
}

void Commands::Form_Unload() {
    const float size =
        data_.map()->shape().ofClientArea ? windows_.main.Height() : windows_.main.Width();
    data_.ini.WriteIniValue(section::globals, data_.mapNames().sizeKey, decimalText(size));
    data_.run.FormReady = false;
}

void Commands::mnuOpenADIFFile() {
    const std::string known = data_.ini.readPath(section::log, "adifile");
    std::string filter = "ADIF Files (*.ADI)|*.ADI";
    if (data_.run.reading.format == LogFormat::Adif) {
        filter += "|All ADIF Files (*.adi;*.adif)|*.adi;*.adif";
    }
    const std::optional<std::string> chosen = windows_.dialogs.openFile(
        "Load Log Input File", std::string(splitPath(known).folder), filter);
    if (chosen) {
        keepLog(*chosen);
    }
}

void Commands::keepLog(const std::string& path) {
    data_.run.LogFileName = path;
    data_.ini.WriteIniValue(section::log, "adifile", path);
}

void Commands::plotFile(const std::string& path) {
    if (path.empty()) {
        prompt_.tell("Please drop one ADIF file onto the map.");
    } else if (const LogFile log(path); !log.error().empty()) {
        prompt_.tellFailure(
            {FileFailure::Act::Read, "The ADIF file could not be read.", path, log.error()});
    } else {
        keepLog(path);
        mnuLoadADIF();
    }
}

void Commands::mnuSaveMap() {
    const Projection projection = data_.run.marks.projection;
    PictureSurface Picture3(map_.Picture2.Width(), map_.Picture2.Height());
    composeMapImage(map_.Picture2, *data_.map(), clock_(), Picture3);
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

std::optional<PictureWish> Commands::choosePicture(PictureWish start) {
    std::optional<PictureWish> wish = std::move(start);
    do {
        wish = windows_.dialogs.choosePicture(*wish, data_.map()->shape());
    } while (wish && fileExists(wish->path) &&
             !prompt_.ask({.title = "Tovrel",
                           .text = wish->path + "\r\nThis file exists. Do you wish to replace it?",
                           .buttons = Question::Buttons::YesNo,
                           .icon = MessageIcon::Exclamation,
                           .defaultYes = false}));
    return wish;
}

void Commands::mnuExportPicture() {
    std::optional<PictureWish> wish =
        choosePicture(firstWish(data_.ini, data_.run.marks.projection, clock_()));
    while (wish) {
        writePictureOptions(data_.ini, wish->options);
        const PictureEnd end = exportPicture(*wish, data_, map_, clock_(), listener_);
        const std::string name(splitPath(wish->path).name);
        if (end.stopped) {
            return;
        }
        if (end.written) {
            prompt_.tell(name + " has been saved.");
            return;
        }
        prompt_.tellFailure({FileFailure::Act::Write, name + " could not be saved.", wish->path,
                             end.written.reason});
        wish = choosePicture(*std::move(wish));
    }
}

void Commands::setLogFormat(LogFormat format) {
    data_.run.reading.format = format;
    data_.run.marksChanged();
    writeLogFormat(data_.ini, format);
}

void Commands::mnuPlaceByCountry() {
    bool& wanted = data_.run.reading.placeByCountry;
    wanted = !wanted;
    data_.run.marksChanged();
    writePlaceByCountry(data_.ini, wanted);
}

bool Commands::takesOtherPlaces(const std::string& act) {
    const std::int64_t places = countOtherPlaces(data_, listener_);
    const bool wanted =
        places > 0 &&
        prompt_.ask({.title = "Tovrel",
                     .text = "This log tells " + std::to_string(places) +
                             " places by other fields (LAT, LON, GRIDSQUARE) or by the country of "
                             "the call.\r\nDo you wish to " +
                             act + " them?",
                     .buttons = Question::Buttons::YesNo,
                     .defaultYes = false});
    if (wanted) {
        setLogFormat(LogFormat::Adif);
    }
    return wanted;
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
        data_.tables.HoverTable.clear();
        return;
    }
    GCMapLoadADIF pass(data_.ini, data_.maps, data_.run, data_.stats, data_.tables, map_.Picture2,
                       listener_, prompt_);
    const PassEnd end = pass.PlotLog([this] {
        // A new size shapes the picture before the marks are drawn on it; after that it would wipe
        // them.
        windows_.main.settleSize();
        map_.followSize();
    });
    windows_.screen.setWaitPointer(false);
    map_.showMap();
    if (end == PassEnd::Done) {
        // Its next tick would wipe the marks.
        windows_.main.setTimer1(false);
        if (data_.tables.counters.QsosPlotted == 0 && !data_.tables.LogHasCoordinates &&
            takesOtherPlaces("plot")) {
            mnuLoadADIF();
        }
    } else if (end == PassEnd::DictionaryMissing) {
        windows_.main.close();
    }
}

void Commands::mnuGoogle() {
    if (!chooseLog()) {
        return;
    }
    windows_.screen.setWaitPointer(false);
    data_.stats.load();
    GoogleExport pass(
        data_.ini, data_.google, data_.run, data_.stats, data_.tables.counters.QsosPlotted,
        listener_, prompt_,
        [this](const std::string& path) { return windows_.dialogs.openWithSystem(path); });
    const ExportEnd end = pass.CreateGoogleFile(exportFilesFor(data_.run.LogFileName));
    if (end == ExportEnd::DictionaryMissing) {
        windows_.main.close();
    } else if (end == ExportEnd::NothingPlaced && !pass.LogHasCoordinates() &&
               takesOtherPlaces("export")) {
        mnuGoogle();
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
    data_.tables.HoverTable.clear();
}

void Commands::toggleOverlay(bool MenuMarks::*mark, void (MapPictures::*draw)(),
                             bool MenuMarks::*otherMark, void (MapPictures::*drawOther)()) {
    MenuMarks& marks = data_.run.marks;
    marks.*mark = !(marks.*mark);
    data_.run.marksChanged();
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
    toggleOverlay(&MenuMarks::mnuShowMe, &MapPictures::DrawHomeMarker, &MenuMarks::mnuMeridian,
                  &MapPictures::DrawGraticule);
}

void Commands::mnuMeridian() {
    toggleOverlay(&MenuMarks::mnuMeridian, &MapPictures::DrawGraticule, &MenuMarks::mnuShowMe,
                  &MapPictures::DrawHomeMarker);
}

void Commands::mnuTopo() {
    data_.run.marks.mnuTopo = !data_.run.marks.mnuTopo;
    data_.run.marksChanged();
    map_.RebuildBaseMap();
}

void Commands::mnuShowCompass() {
    data_.run.marks.mnuShowCompass = !data_.run.marks.mnuShowCompass;
    data_.run.marksChanged();
    map_.ResetMap();
    data_.maps.SaveGCMapOptions();
}

void Commands::setCompassWeight(bool bold) {
    data_.run.marks.mnuBoldCompass = bold;
    data_.run.marks.mnuLightCompass = !bold;
    data_.run.marksChanged();
    map_.ResetMap();
    data_.maps.SaveGCMapOptions();
}

void Commands::setCompassStep(bool every15) {
    data_.run.marks.mnu15Degrees = every15;
    data_.run.marks.mnu45Degrees = !every15;
    data_.run.marksChanged();
    map_.ResetMap();
    data_.maps.SaveGCMapOptions();
}

void Commands::switchProjection(Projection projection) {
    const bool StatsWereVisible = windows_.stats.statsVisible();
    if (StatsWereVisible) {
        windows_.stats.hideStats();
    }
    windows_.main.setVisible(false);
    data_.maps.load(projection);
    if (data_.run.marks.projection != projection) {
        data_.tables.HoverTable.clear();
        readHome(data_.ini, data_.run);
        setProjection(projection);
        SetWindowAspect();
        windows_.main.CenterForm();
        map_.LoadBaseMap();
        map_.ResetMap();
        data_.maps.save(projection);
        data_.ini.WriteIniValue(section::globals, "Display", data_.mapNames().display);
    }
    windows_.main.setVisible(true);
    if (StatsWereVisible) {
        windows_.stats.closeStats();
        windows_.stats.mnuView_Stats();
    }
    replot();
}

void Commands::mnuRecreateMap() {
    readHome(data_.ini, data_.run);
    windows_.screen.setWaitPointer(true);
    windows_.main.setTimer1(false);
    map_.BuildBaseMap();
    windows_.main.setTimer1(true);
    map_.ResetMap();
    data_.maps.saveInForce();
    windows_.screen.setWaitPointer(false);
}

void Commands::mnuLoadCustomMap() {
    const std::optional<std::string> chosen = windows_.dialogs.openFile(
        "Select Base Map for " + std::string(data_.mapNames().shortCaption),
        data_.ini.programFolder(), "JPG Files (*.JPG)|*.JPG|BMP Files (*.BMP)|*.BMP");
    if (!chosen) {
        return;
    }
    map_.loadMapPix(*chosen);
    data_.ini.WriteIniValue(data_.mapNames().section, "BaseMap", *chosen);
    mnuRecreateMap();
}

void Commands::changeBaseColour(MapColour which) {
    const Projection projection = data_.run.marks.projection;
    const Colour start = readColour(data_.ini, projection, which, keyOf(which).byDefault);
    const std::optional<Colour> chosen = windows_.dialogs.chooseColour(start);
    if (!chosen) {
        return;
    }
    writeColour(data_.ini, projection, which, *chosen);
    if (*chosen != start) {
        mnuRecreateMap();
    }
}

void Commands::mnuResetBaseColors() {
    for (const MapColour which : {MapColour::Land, MapColour::Water}) {
        writeColour(data_.ini, data_.run.marks.projection, which, keyOf(which).byDefault);
    }
    mnuRecreateMap();
}

void Commands::mnuHelp() {
    const std::string guide = findFile(data_.ini.programFolder(), "Tovrel-Help.pdf");
    if (!guide.empty() && !windows_.dialogs.openWithSystem(guide)) {
        prompt_.tell("No program could be started to show the help file:\r\n" + guide,
                     MessageIcon::Exclamation);
    }
}

void Commands::applyMapOptions(Projection projection) {
    data_.maps.save(projection);
    data_.stats.load();
    data_.stats.showFilter(projection);
}

bool Commands::pickLegendColour(MapColour entry) {
    data_.stats.load();
    const Colour before = data_.stats.legend().colour(entry);
    // Cancelling keeps the colour that the dialog began with.
    const Colour chosen = windows_.dialogs.chooseColour(before).value_or(before);
    data_.stats.pickColour(entry, chosen);
    return entry == MapColour::Meridian && chosen != before;
}

} // namespace tovrel
