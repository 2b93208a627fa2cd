#pragma once

#include "platform/PassListener.h"
#include "platform/UserPrompt.h"

#include <string>
#include <string_view>
#include <vector>

namespace tovrel {

/// Standard error in the place of windows: messages, which are kept for the report too, and, on a
/// terminal, the progress of a pass in one line. Questions are answered with their default button,
/// since nobody is there to ask.
class BatchConsole : public UserPrompt, public PassListener {
public:
    /// @param quiet messages are only kept, and no progress is shown
    /// @param AbortRequested set when the program was interrupted within a pass; has to outlive
    ///        this object
    BatchConsole(bool quiet, bool& AbortRequested);

    void tell(const std::string& text, MessageIcon icon) override;
    void tellFailure(const FileFailure& failure) override;

    /// Says what is no message of the run, be it quiet or not.
    void print(const std::string& line);

    /// The same, unless it is quiet.
    void hint(const std::string& line);

    /// The run has failed: the line that tells why is shown even when the run is quiet.
    void showFailure();

    bool ask(const Question& question) override { return question.defaultYes; }

    void beginPass(std::string_view caption, std::string_view status, float maximum) override;
    void showStatus(std::string_view status) override;
    void showProgress(float value) override;
    void endPass() override { endLine(); }
    void yield() override;

    /// All messages so far, also those of a quiet run, in full and with their CR LF.
    const std::vector<std::string>& messages() const { return messages_; }

private:
    void keep(const std::string& message, const std::string& line);
    void endLine();

    bool quiet_;
    bool progressVisible_;
    bool& AbortRequested_;
    std::vector<std::string> messages_;
    std::string lastLine_; ///< of the last message
    std::string status_;
    float maximum_ = 100.0F;
    int shownPercent_ = -1; ///< in the line that stands unfinished; -1 when none does
};

} // namespace tovrel
