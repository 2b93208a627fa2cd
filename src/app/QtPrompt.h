#pragma once

#include "platform/UserPrompt.h"

#include <QWidget>

namespace tovrel {

/// Message boxes over the program's windows.
class QtPrompt : public UserPrompt {
public:
    /// @param parent window over which the boxes lie
    explicit QtPrompt(QWidget* parent) : parent_(parent) {}

    void tell(const std::string& text, MessageIcon icon) override;
    bool ask(const Question& question) override;

private:
    QWidget* parent_;
};

} // namespace tovrel
