#include "log/LogPass.h"

#include "log/RecordReader.h"

#include <utility>

namespace tovrel {

PassEnd LogPass::read(Visitor& visitor) {
    RecordReader records(log_);
    bool dictionaryLoaded = false;
    for (;;) {
        const Cut cut = records.next();
        if (cut == Cut::End)
            return PassEnd::Done;
        if (cut == Cut::Failed) {
            error_ = records.error();
            return PassEnd::LogUnreadable;
        }
        if (cut == Cut::Record) {
            if (!std::exchange(dictionaryLoaded, true)) {
                // A folder that must stay as it is was given no dictionary at the start.
                const ReadEnd loaded =
                    fields_.LoadFieldDictionary(ini_.programFolder(), ini_.isMemoryOnly());
                if (loaded != ReadEnd::Content) {
                    return loaded == ReadEnd::Missing ? PassEnd::DictionaryMissing
                                                      : PassEnd::DictionaryUnreadable;
                }
                fields_.ResolveFieldRows();
            }
            visitor.takeRecord(fields_, records.line());
            if (takeAbort(Abort::BeforeYield))
                return PassEnd::Aborted;
            LogBytesDone_ += static_cast<std::int64_t>(records.line().size());
        }
        if (visitor.failed())
            return PassEnd::Stopped;
        listener_.showProgress(
            visitor.progress(static_cast<double>(LogBytesDone_), static_cast<double>(log_.size())));
        listener_.yield();
        if (takeAbort(Abort::AfterYield))
            return PassEnd::Aborted;
    }
}

bool LogPass::takeAbort(Abort when) {
    return when == abort_ && std::exchange(run_.AbortRequested, false);
}

void LogPass::tellEnd(PassEnd end, const std::string& shownLog, UserPrompt& prompt) const {
    switch (end) {
    case PassEnd::LogUnreadable:
        prompt.tellFailure(
            {FileFailure::Act::Read, "The ADIF file could not be read.", shownLog, error_});
        break;
    case PassEnd::DictionaryMissing:
        prompt.tell(std::string(FieldTable::missingMessage), MessageIcon::Critical);
        break;
    case PassEnd::DictionaryUnreadable:
        prompt.tellFailure(fields_.failure());
        break;
    case PassEnd::Done:
    case PassEnd::Aborted:
    case PassEnd::Stopped:
        break;
    }
}

} // namespace tovrel
