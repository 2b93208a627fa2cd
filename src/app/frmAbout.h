#pragma once

#include "platform/UserPrompt.h"
#include "platform/frmControls.h"

#include <QString>

namespace tovrel {

/// Title, version and origin of the program.
class frmAbout : public frmDialog {
    Q_OBJECT

public:
    /// @param prompt has to outlive the window
    /// @param version major.minor.revision
    frmAbout(UserPrompt& prompt, const QString& version, QWidget* parent = nullptr);

private:
    void StartSysInfo();

    UserPrompt& prompt_;
};

} // namespace tovrel
