#pragma once

#include <string>

namespace tovrel {

enum class MessageIcon { None, Exclamation, Critical };

/// A question with two answers.
struct Question {
    enum class Buttons { OkCancel, YesNo };
    std::string title;
    std::string text;
    Buttons buttons = Buttons::OkCancel;
    MessageIcon icon = MessageIcon::None;
    bool defaultYes = true; ///< whether the first button is the default one
};

/// Message boxes. Texts are bytes, their lines ended by CR LF as the messages are worded.
class UserPrompt {
public:
    virtual ~UserPrompt() = default;

    /// Shows a message with an OK button and returns when the user has closed it.
    virtual void tell(const std::string& text, MessageIcon icon = MessageIcon::None) = 0;

    /// @return whether the user chose the first of the two buttons (OK, Yes)
    virtual bool ask(const Question& question) = 0;
};

} // namespace tovrel
