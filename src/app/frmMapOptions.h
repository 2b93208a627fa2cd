#pragma once

#include "platform/frmControls.h"
#include "state/MapOptions.h"
#include "state/frmFilterBoxes.h"

#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QPushButton;
class QRadioButton;

namespace tovrel {

/// The option window of one map: frmGCMapOptions or frmMCMapOptions. It shows the live options and
/// writes into them at every act of the user. Closing it drops
/// what was not applied.
class frmMapOptions : public frmDialog {
    Q_OBJECT

public:
    /// @param forms has to outlive the window
    /// @param cmdApply_Click called when the user applies: it is to save, and to close the window
    frmMapOptions(Projection projection, MapOptionForms& forms,
                  std::function<void()> cmdApply_Click, QWidget* parent = nullptr);

    /// Every way of closing ends here.
    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addMarkers();
    void addLines();
    void addTipBoxes();
    void setTabOrders();
    void mirror();

    Projection projection_;
    MapOptionForms& forms_;
    MapOptions& options_;
    std::unique_ptr<frmFilterBoxes> filterBoxes_;
    Connection follows_;
    std::array<QRadioButton*, 3> markers_{};
    std::array<QRadioButton*, 3> lines_{};
    QCheckBox* chkCall_ = nullptr;
    QCheckBox* chkLatLong_ = nullptr;
    QCheckBox* chkCountry_ = nullptr;
    QPushButton* cmdApply_ = nullptr;
};

} // namespace tovrel
