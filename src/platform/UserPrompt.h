#pragma once

#include <string>
#include <string_view>

namespace tovrel {

/// The picture beside a message: none, that of a warning, or that of what ends the program.
enum class MessageIcon { None, Exclamation, Critical };

/// A question with two answers.
struct Question {
    /// Captions of the two, of which the first one agrees.
    enum class Buttons { OkCancel, YesNo };
    std::string title;                    ///< in the caption bar, bytes
    std::string text;                     ///< bytes, lines parted by CR LF
    Buttons buttons = Buttons::OkCancel;  ///< see there
    MessageIcon icon = MessageIcon::None; ///< beside the text
    bool defaultYes = true;               ///< whether the first button is the default one
};

/// What a file could not be used for, and why.
struct FileFailure {
    /// What was tried. Use is what comes after reading: to decode the file, to have it opened.
    enum class Act { Read, Write, Use };
    Act act;            ///< for those who word the failure themselves
    std::string what;   ///< a sentence that says what could not be done
    std::string path;   ///< bytes, as a user knows the file
    std::string reason; ///< short, without a stop
};

/// The failure as a message: what, the file and the reason, a line each.
inline std::string messageOf(const FileFailure& failure) {
    return failure.what + "\r\n" + failure.path + "\r\n" + failure.reason;
}

/// Message boxes. Texts are bytes, their lines ended by CR LF as the messages are worded.
class UserPrompt {
public:
    virtual ~UserPrompt() = default;

    /// Shows a message with an OK button and returns when the user has closed it.
    virtual void tell(const std::string& text, MessageIcon icon = MessageIcon::None) = 0;

    /// Shows what became of a file, as a message does.
    virtual void tellFailure(const FileFailure& failure) {
        tell(messageOf(failure), MessageIcon::Exclamation);
    }

    /// @return whether the user chose the first of the two buttons (OK, Yes)
    virtual bool ask(const Question& question) = 0;
};

/// Hands everything on to another prompt, for those that want a part of it otherwise.
class ForwardingPrompt : public UserPrompt {
public:
    /// @param prompt has to outlive this object
    explicit ForwardingPrompt(UserPrompt& prompt) : prompt_(prompt) {}

    void tell(const std::string& text, MessageIcon icon) override { prompt_.tell(text, icon); }
    void tellFailure(const FileFailure& failure) override { prompt_.tellFailure(failure); }
    bool ask(const Question& question) override { return prompt_.ask(question); }

private:
    UserPrompt& prompt_;
};

} // namespace tovrel
