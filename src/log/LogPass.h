#pragma once

#include "log/FieldTable.h"
#include "log/LogFile.h"
#include "log/Qso.h"
#include "platform/PassListener.h"
#include "platform/UserPrompt.h"
#include "state/RunState.h"
#include "state/iniFiles.h"

#include <cstdint>
#include <string>

namespace tovrel {

/// How a pass over a log came to its end.
enum class PassEnd {
    Done,
    Aborted,              ///< the user asked for it
    Stopped,              ///< by what the pass does with the records
    LogUnreadable,        ///< the log could not be opened or read to its end
    DictionaryMissing,    ///< the field dictionary has gone; the program must end
    DictionaryUnreadable, ///< the field dictionary can't be read
};

/// One pass over a log, record by record, whichever way it is written: cuts it, reads its fields
/// (of a Logger32 log by the field dictionary, loaded at the first record), tells how far it is,
/// lets events run and looks whether the user wants it to stop.
class LogPass {
public:
    /// What a pass does with the records.
    class Visitor {
    public:
        virtual ~Visitor() = default;

        /// Whether the next record is to be looked at; asked once for each, in their order.
        virtual bool wantsRecord() { return true; }

        /// The next record that is wanted.
        /// @param qso valid within the call
        virtual void takeRecord(const Qso& qso) = 0;

        /// Whether the pass shall stop; asked after each record and each blank line.
        virtual bool failed() const { return false; }

        /// Value of the progress bar.
        /// @param done bytes of the records taken
        /// @param size bytes of the log
        virtual float progress(double done, double size) = 0;
    };

    /// When a request to abort is looked at.
    enum class Abort {
        BeforeYield, ///< after a record: one that is made in a yield stops it after the next
        AfterYield   ///< after each record and blank line
    };

    /// @param log, ini, run, listener have to outlive the pass
    /// @param reading how the log is read
    LogPass(LogFile& log, const LogReading& reading, const iniFiles& ini, RunState& run,
            PassListener& listener, Abort abort)
        : log_(log), reading_(reading), ini_(ini), run_(run), listener_(listener), abort_(abort) {}

    /// Reads the log from its start. An abort clears the request for it.
    PassEnd read(Visitor& visitor);

    /// Whether the log's contacts tell in which kind of field they have their place.
    bool tellsSources() const { return reading_.format == LogFormat::Adif; }

    /// Tells the user why the log or its dictionary could not be read, if that was the end.
    /// @param shownLog how to name the log
    void tellEnd(PassEnd end, const std::string& shownLog, UserPrompt& prompt) const;

private:
    template <typename Records>
    PassEnd readRecords(Records& records, Visitor& visitor);
    bool takeAbort(Abort when);

    LogFile& log_;
    LogReading reading_;
    const iniFiles& ini_;
    RunState& run_;
    PassListener& listener_;
    Abort abort_;
    FieldTable fields_;
    std::int64_t LogBytesDone_ = 0;
    std::string error_;
};

} // namespace tovrel
