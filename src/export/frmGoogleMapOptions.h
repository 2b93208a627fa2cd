#pragma once

#include "platform/frmControls.h"
#include "state/GoogleMapOptions.h"
#include "state/frmFilterBoxes.h"

#include <array>
#include <memory>
#include <optional>

class QCheckBox;
class QRadioButton;

namespace tovrel {

/// The option window of the export. It shows the live options and writes into them at every act of
/// the user. Apply stores them and hides the window. Escape hides it and takes back what was not
/// applied; the close box puts all back to the design.
class frmGoogleMapOptions : public frmDialog {
    Q_OBJECT

public:
    /// @param ini, options have to outlive the window
    frmGoogleMapOptions(iniFiles& ini, GoogleMapOptions& options, QWidget* parent = nullptr);

    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void addMarkers();
    void cmdApply_Click();
    void mirror();

    /// What Escape goes back to: the marker is stored as soon as it is chosen, and stays.
    struct Choices {
        Filter filter;
        bool chkCall;
    };

    iniFiles& ini_;
    GoogleMapOptions& options_;
    std::optional<Choices> applied_; ///< while the window is open
    std::unique_ptr<frmFilterBoxes> filterBoxes_;
    Connection follows_;
    std::array<QRadioButton*, 3> markers_{}; ///< in the order of MarkerSize
    QCheckBox* chkCall_ = nullptr;
};

} // namespace tovrel
