#pragma once

#include "platform/frmControls.h"
#include "state/GoogleMapOptions.h"
#include "state/frmFilterBoxes.h"

#include <array>

class QCheckBox;
class QRadioButton;

namespace tovrel {

/// The option window of the export. It shows the live options and writes into them at every act of
/// the user. Apply stores them and hides the window; closing it puts them back to the design.
class frmGoogleMapOptions : public frmDialog {
    Q_OBJECT

public:
    /// @param ini, options have to outlive the window
    frmGoogleMapOptions(iniFiles& ini, GoogleMapOptions& options, QWidget* parent = nullptr);
    ~frmGoogleMapOptions() override;

    /// Every way of closing ends here; hiding does not.
    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addMarkers();
    void cmdApply_Click();
    void mirror();

    iniFiles& ini_;
    GoogleMapOptions& options_;
    frmFilterBoxes filterBoxes_;
    std::array<QRadioButton*, 3> markers_{}; ///< in the order of MarkerSize
    QCheckBox* chkCall_ = nullptr;
};

} // namespace tovrel
