#pragma once

#include "platform/UserPrompt.h"
#include "platform/frmControls.h"
#include "state/StationInfo.h"

#include <string_view>

class QLineEdit;

namespace tovrel {

/// Asks for the station's call sign and position, modally on a first run, else beside the map.
class frmInfoInput : public frmDialog {
    Q_OBJECT

public:
    /// @param ini, prompt have to outlive the window
    frmInfoInput(iniFiles& ini, UserPrompt& prompt, QWidget* parent = nullptr);

    /// Fills the boxes from the settings, unless the window is open and holds what the user types.
    void loadForm();

private:
    void cmdInfoApply_Click();
    bool accepts(QLineEdit& box, std::string_view coordinate);

    iniFiles& ini_;
    UserPrompt& prompt_;
    QLineEdit* txtCallSign_ = nullptr;
    QLineEdit* txtLatitude_ = nullptr;
    QLineEdit* txtLongitude_ = nullptr;
};

} // namespace tovrel
