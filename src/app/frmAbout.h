#pragma once

#include "platform/UserPrompt.h"
#include "platform/frmControls.h"

#include <QString>

namespace tovrel {

/// Title, version and origin of the program, and where its user's files lie.
class frmAbout : public frmDialog {
    Q_OBJECT

public:
    /// @param prompt has to outlive the window
    /// @param version major.minor.revision
    /// @param folder of settings, maps and saved pictures
    frmAbout(UserPrompt& prompt, const QString& version, const QString& folder,
             QWidget* parent = nullptr);

private:
    UserPrompt& prompt_;
};

} // namespace tovrel
