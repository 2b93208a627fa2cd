#include "app/MainMenu.h"

#include "platform/frmControls.h"

#include <QActionGroup>
#include <QMenu>
#include <array>
#include <vector>

namespace tovrel {

namespace {

enum class Kind { Submenu, Command, Check, Radio, Separator };

struct Item {
    int level;
    const char* name;
    const char* caption; ///< "&" stands before the letter that picks it by keyboard
    Kind kind;
};

constexpr std::array items = std::to_array<Item>({
    {0, "mnuFile", "&File", Kind::Submenu},
    {1, "mnuInfo", "&Your Information", Kind::Command},
    {1, "mnuOpenADIFFile", "&Open ADIF File", Kind::Command},
    {1, "mnuSaveMap", "&Save Map", Kind::Command},
    {1, "mnuExportPicture", "&Export Picture...", Kind::Command},
    {1, "mnuNothing12", "-", Kind::Separator},
    {1, "mnuLogFormat", "&Log Format", Kind::Submenu},
    {2, "mnuLogger32", "&Logger32", Kind::Radio},
    {2, "mnuAnyLogger", "&Any Logger (ADIF)", Kind::Radio},
    {2, "mnuNothing13", "-", Kind::Separator},
    {2, "mnuPlaceByCountry", "&Place by Country", Kind::Check},
    {0, "mnuLoadADIF", "&Load ADIF", Kind::Command},
    {0, "mnuMap", "&Map", Kind::Submenu},
    {1, "mnuClearMap", "&Clear Map", Kind::Command},
    {1, "mnuHidePlotLine", "&Hide Plot Line", Kind::Command},
    {1, "mnuNothing11", "-", Kind::Separator},
    {1, "mnuAppearance", "&Appearance", Kind::Submenu},
    {2, "mnuShowMe", "Show &Home Location", Kind::Check},
    {2, "mnuMeridian", "Show &Meridian Lines", Kind::Check},
    {2, "mnuTopo", "Color &Topogographic Overlay", Kind::Check},
    {2, "mnuNothing4", "-", Kind::Separator},
    {2, "mnuCompass", "&Compass", Kind::Submenu},
    {3, "mnuShowCompass", "&Show Compass", Kind::Check},
    {3, "mnuNothing7", "-", Kind::Separator},
    {3, "mnuBoldCompass", "&Bold characters", Kind::Radio},
    {3, "mnuLightCompass", "&Normal characters", Kind::Radio},
    {3, "mnuNothing8", "-", Kind::Separator},
    {3, "mnu15Degrees", "Show every &15°", Kind::Radio},
    {3, "mnu45Degrees", "Show every &45°", Kind::Radio},
    {1, "mnuChangeBaseMap", "Change &Base Map", Kind::Submenu},
    {2, "mnuLoadCustomMap", "&Load Custom Map", Kind::Command},
    {2, "mnuChangeBaseColors", "Change Base &Colors", Kind::Submenu},
    {3, "mnuChangeLandColor", "&Land Color", Kind::Command},
    {3, "mnuChangeWaterColor", "&Water Color", Kind::Command},
    {3, "mnuResetBaseColors", "&Reset to Default", Kind::Command},
    {1, "mnuNothing2", "-", Kind::Separator},
    {1, "mnuProjection", "&Projection", Kind::Submenu},
    {2, "mnuGreatCircle", "&Azimuthal Equidistant projection", Kind::Radio},
    {2, "mnuMiller", "&Miller Cylindrical projection", Kind::Radio},
    {1, "mnuNothing9", "-", Kind::Separator},
    {1, "mnuGoogle", "Create &Google File", Kind::Command},
    {1, "mnuGoogleMapOptions", "Google Map &Options", Kind::Command},
    {1, "mnuNothing10", "-", Kind::Separator},
    {1, "mnuRecreateMap", "&Recreate map", Kind::Command},
    {0, "mnuView_Stats", "&View Statistics", Kind::Command},
    {0, "mnuPlotOptions", "&Plot Options", Kind::Command},
    {0, "mnuAbort", "&Abort Function", Kind::Command},
    {0, "mnuHelpFile", "&Help", Kind::Submenu},
    {1, "mnuHelp", "&Help", Kind::Command},
    {1, "mnuAbout", "&About", Kind::Command},
});

/// Adds an item to the menu or bar `owner` and gives the menu that its own items go to, if it is
/// one.
QMenu* addItem(QWidget& owner, const Item& item) {
    if (item.kind == Kind::Submenu) {
        auto* menu = new QMenu(QString::fromUtf8(item.caption), &owner);
        menu->menuAction()->setObjectName(QLatin1String(item.name));
        owner.addAction(menu->menuAction());
        return menu;
    }
    auto* action = new QAction(QString::fromUtf8(item.caption), &owner);
    action->setObjectName(QLatin1String(item.name));
    action->setSeparator(item.kind == Kind::Separator);
    action->setCheckable(item.kind == Kind::Check || item.kind == Kind::Radio);
    // A system's own menu may move items whose captions it knows into a place of its liking.
    action->setMenuRole(QAction::NoRole);
    owner.addAction(action);
    return nullptr;
}

/// Two items of which at most one is checked, shown as such.
void pair(const QMenuBar& menuBar, const char* one, const char* other) {
    auto* group = new QActionGroup(menuItem(menuBar, one).parent());
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    group->addAction(&menuItem(menuBar, one));
    group->addAction(&menuItem(menuBar, other));
}

} // namespace

void buildMainMenu(QMenuBar& menuBar) {
    // In a larger font of the desktop the last commands would not fit above the map.
    menuBar.setFont(windowFont());
    std::vector<QWidget*> owners = {&menuBar};
    for (const Item& item : items) {
        owners.resize(static_cast<std::size_t>(item.level) + 1);
        if (QMenu* menu = addItem(*owners.back(), item)) {
            owners.push_back(menu);
        }
    }
    pair(menuBar, "mnuLogger32", "mnuAnyLogger");
    pair(menuBar, "mnuBoldCompass", "mnuLightCompass");
    pair(menuBar, "mnu15Degrees", "mnu45Degrees");
    pair(menuBar, "mnuGreatCircle", "mnuMiller");
}

QAction& menuItem(const QMenuBar& menuBar, const char* name) {
    QAction* const action = menuBar.findChild<QAction*>(QLatin1String(name));
    Q_ASSERT(action != nullptr);
    return *action;
}

void showMarks(const QMenuBar& menuBar, const RunState& run) {
    const MenuMarks& marks = run.marks;
    const auto check = [&menuBar](const char* name, bool on) {
        menuItem(menuBar, name).setChecked(on);
    };
    check("mnuShowMe", marks.mnuShowMe);
    check("mnuMeridian", marks.mnuMeridian);
    check("mnuTopo", marks.mnuTopo);
    check("mnuShowCompass", marks.mnuShowCompass);
    check("mnuBoldCompass", marks.mnuBoldCompass);
    check("mnuLightCompass", marks.mnuLightCompass);
    check("mnu15Degrees", marks.mnu15Degrees);
    check("mnu45Degrees", marks.mnu45Degrees);
    check("mnuGreatCircle", marks.projection == Projection::Azimuthal);
    check("mnuMiller", marks.projection == Projection::Miller);
    menuItem(menuBar, "mnuCompass").setEnabled(namesOf(marks.projection).compass);
    const bool adif = run.reading.format == LogFormat::Adif;
    check("mnuLogger32", !adif);
    check("mnuAnyLogger", adif);
    check("mnuPlaceByCountry", run.reading.placeByCountry);
    menuItem(menuBar, "mnuPlaceByCountry").setEnabled(adif);
}

} // namespace tovrel
