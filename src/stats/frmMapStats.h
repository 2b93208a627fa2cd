#pragma once

#include "stats/MapStats.h"
#include "stats/StationModel.h"

#include <QMargins>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>
#include <vector>

class QFrame;
class QLabel;
class QPlainTextEdit;

namespace tovrel {

class frmColourButton;
class frmItemList;
class frmTabStrip;

/// The statistics window beside the map: the lists of the last pass, the filter in force and the
/// colour key. Closing it drops what it shows. While it is hidden it follows nothing.
class frmMapStats : public QWidget {
    Q_OBJECT

public:
    /// @param stats has to outlive the window
    /// @param pickColour called when the user clicks a colour of the key
    frmMapStats(MapStats& stats, std::function<void(MapColour)> pickColour,
                QWidget* parent = nullptr);
    ~frmMapStats() override;
    frmMapStats(const frmMapStats&) = delete;
    frmMapStats& operator=(const frmMapStats&) = delete;

    /// Width of the window with its frame, in pixels.
    static int outerWidth();

    /// Puts the window in its place as it is opened, on its first tab.
    /// @param outer rectangle, frame included
    /// @param frame what the window system puts round this window
    void loadForm(const QRect& outer, const QMargins& frame);

    /// Shows what has changed in the lists since the last call; cheap when nothing has.
    void refreshLists();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    frmItemList* addList(int tab, const char* name, const char* title);
    void addFilterBoxes();
    void addLegend();
    void follow();
    void followStations(frmItemList& view, const SortedList<Station>& list);
    void Form_Resize();
    void tabStats_Click(int tab);
    void mirrorFilters();
    void mirrorColours();

    MapStats& stats_;
    std::function<void(MapColour)> pickColour_;
    frmTabStrip* tabStats_;
    std::array<QFrame*, 6> fraTab_{};
    frmItemList* lstConfirmed_ = nullptr;
    frmItemList* lstWorked_ = nullptr;
    frmItemList* lstHeard_ = nullptr;
    frmItemList* lstStats_ = nullptr;
    QLabel* lblPfxNotPlotted_ = nullptr;
    frmItemList* lstPfxNotPlotted_ = nullptr;
    std::array<QPlainTextEdit*, 3> filterBoxes_{}; ///< in the order of allCriteria
    std::array<frmColourButton*, 7> colourButtons_{};
    Connection followsFilter_;
    Connection followsLegend_;
    std::vector<std::unique_ptr<StatusListModel>> models_; ///< from the first showing on
};

} // namespace tovrel
