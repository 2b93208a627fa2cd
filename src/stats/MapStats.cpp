#include "stats/MapStats.h"

#include "map/WorldMap.h"

namespace tovrel {

MapStats::MapStats(iniFiles& ini, MapOptionForms& maps, RunState& run, PlotLine& lneGCPlotLine)
    : ini_(ini), maps_(maps), run_(run), lneGCPlotLine_(lneGCPlotLine) {}

void MapStats::load() {
    if (loaded_)
        return;
    loaded_ = true;
    const iniFiles::Batch together(ini_);
    const Projection projection = run_.marks.projection;
    legend_.load(ini_, projection);
    maps_.takeLineWidth(projection);
    showFilter(projection);
}

void MapStats::unload() {
    if (!loaded_)
        return;
    loaded_ = false;
    lists_.clear();
    legend_.resetToDesign();
    changed();
}

void MapStats::showFilter(Projection projection) {
    load();
    for (const Criterion criterion : allCriteria) {
        filterTexts_[static_cast<std::size_t>(criterion)] =
            tovrel::filterText(ini_, namesOf(projection).section, criterion);
    }
    changed();
}

void MapStats::pickColour(MapColour entry, Colour colour) {
    load();
    legend_.set(entry, colour);
    legend_.save(ini_, run_.marks.projection, entry);
}

void MapStats::pickStation(const Station& station) {
    if (!station.shown()) {
        lneGCPlotLine_.hide();
        return;
    }
    load();
    const MapPoint start =
        worldMap(run_.marks.projection, run_.HomeLatitude, run_.HomeLongitude)->lineStart();
    PlotLine::Shape line;
    line.fromX = start.x;
    line.fromY = start.y;
    line.toX = station.mapX;
    line.toY = station.mapY;
    line.width = maps_.PlotLineWidth();
    line.colour = legend_.colour(MapColour::Line);
    lneGCPlotLine_.show(line);
}

} // namespace tovrel
