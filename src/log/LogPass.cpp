#include "log/LogPass.h"

#include "log/AdifReader.h"
#include "log/RecordReader.h"

#include <utility>

namespace tovrel {

namespace {

/// The records of a Logger32 log, whose fields are those that the dictionary lists.
class Logger32Records {
public:
    /// @param fields loaded by load()
    Logger32Records(LogFile& log, const iniFiles& ini, FieldTable& fields)
        : lines_(log), ini_(ini), table_(fields) {}

    Cut next() { return lines_.next(); }
    std::size_t size() const { return lines_.line().size(); }
    const std::string& error() const { return lines_.error(); }

    /// Makes ready for the first record.
    PassEnd load() {
        // A folder that must stay as it is was given no dictionary at the start.
        switch (table_.LoadFieldDictionary(ini_.programFolder(), ini_.isMemoryOnly())) {
        case ReadEnd::Missing:
            return PassEnd::DictionaryMissing;
        case ReadEnd::Unreadable:
            return PassEnd::DictionaryUnreadable;
        case ReadEnd::Content:
            break;
        }
        table_.ResolveFieldRows();
        return PassEnd::Done;
    }

    const QsoFields& fields() {
        table_.ParseRecordLine(lines_.line());
        table_.read(fields_);
        return fields_;
    }

private:
    RecordReader lines_;
    const iniFiles& ini_;
    FieldTable& table_;
    QsoFields fields_;
};

/// The records of a log of any logger.
class AdifRecords {
public:
    explicit AdifRecords(LogFile& log) : reader_(log) {}

    Cut next() { return reader_.next(); }
    std::size_t size() const { return reader_.size(); }
    const std::string& error() const { return reader_.error(); }
    static PassEnd load() { return PassEnd::Done; }
    const QsoFields& fields() const { return reader_.fields(); }

private:
    AdifReader reader_;
};

} // namespace

PassEnd LogPass::read(Visitor& visitor) {
    if (reading_.format == LogFormat::Adif) {
        AdifRecords records(log_);
        return readRecords(records, visitor);
    }
    Logger32Records records(log_, ini_, fields_);
    return readRecords(records, visitor);
}

template <typename Records>
PassEnd LogPass::readRecords(Records& records, Visitor& visitor) {
    EntityTable entities;
    Qso qso(reading_, entities);
    bool loaded = false;
    for (;;) {
        const Cut cut = records.next();
        if (cut == Cut::End)
            return PassEnd::Done;
        if (cut == Cut::Failed) {
            error_ = records.error();
            return PassEnd::LogUnreadable;
        }
        if (cut == Cut::Record) {
            if (!std::exchange(loaded, true)) {
                if (const PassEnd end = records.load(); end != PassEnd::Done)
                    return end;
            }
            if (visitor.wantsRecord()) {
                qso.take(records.fields(), records.size());
                visitor.takeRecord(qso);
            }
            if (takeAbort(Abort::BeforeYield))
                return PassEnd::Aborted;
            LogBytesDone_ += static_cast<std::int64_t>(records.size());
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
