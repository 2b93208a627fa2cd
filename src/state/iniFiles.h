#pragma once

#include "platform/PrivateProfile.h"
#include "platform/Signal.h"
#include "platform/UserPrompt.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tovrel {

/// The settings: all lasting state of the program, in one file in the program's folder. A consumer
/// reads a value at the moment that it needs it, a writer stores it at the moment that it changes.
class iniFiles {
public:
    /// @param programFolder folder of the program and its data
    /// @param IniFileName name of the settings file, appended to the folder unchanged; an existing
    ///        file is found in any case of its letters
    /// @param storage Memory for a run that must leave the folder as it is: what it writes lives
    ///        as long as this object
    iniFiles(std::string programFolder, std::string_view IniFileName,
             PrivateProfile::Storage storage = PrivateProfile::Storage::File);

    /// Where settings and data files are, and all that the program writes by itself; UTF-8.
    const std::string& programFolder() const { return programFolder_; }

    /// Path of the settings file, be it there or not, with its name as the folder spells it.
    const std::string& path() const { return profile_.path(); }

    /// What stands at the path; see PrivateProfile::state().
    PrivateProfile::State state() const { return profile_.state(); }

    /// Whether this is a run that must leave the folder as it is.
    bool isMemoryOnly() const { return storage_ == PrivateProfile::Storage::Memory; }

    /// Whether there is a file that can't serve: it can't be read or is no settings file. Defaults,
    /// or what was read before, take its place then, and nothing is stored.
    bool isOutOfReach() const { return !profile_.fault().empty(); }

    /// Why the file can't be read; to be asked for when it is out of reach.
    FileFailure unreadable() const;

    /// A read or write that has failed since the last call. Each of the two is told once in a run:
    /// a disk that is full stays full for a while.
    std::optional<FileFailure> takeFailure();

    /// Called, within any read or write, when takeFailure() has something new to give.
    Signal<> failed;

    /// Value of a key, at most 511 bytes; `defaultValue` when it is missing.
    std::string ReadIniValue(std::string_view section, std::string_view key,
                             std::string_view defaultValue = {}) const;

    /// Path that a key holds. Bytes that are no UTF-8 count as Windows-1252, as programs for
    /// Windows used to write it.
    std::string readPath(std::string_view section, std::string_view key) const;

    /// Stores a value, blanks at both ends taken off key and value. The file is left alone when the
    /// key has that value.
    /// @return false when the value could not be stored
    bool WriteIniValue(std::string_view section, std::string_view key, std::string_view value);

    /// Number of a key, or `fallback` when the key is empty or begins with no number.
    double readNumber(std::string_view section, std::string_view key, double fallback = 0.0) const;

    /// Whether a key reads "True", case not counting; `fallback` when it is empty.
    bool readBoolean(std::string_view section, std::string_view key, bool fallback = false) const;

    /// Stores "True" or "False".
    void writeBoolean(std::string_view section, std::string_view key, bool value);

    /// Whether a check box value reads as the number 1.
    bool readCheck(std::string_view section, std::string_view key) const;

    /// Stores 1 or 0.
    void writeCheck(std::string_view section, std::string_view key, bool value);

    /// While one lives, the file is looked at once, and all writes reach it together, at its end.
    class Batch {
    public:
        /// @param ini has to outlive the batch; batches may lie within one another
        explicit Batch(iniFiles& ini) : batch_(ini.profile_) {}

        /// Ends the batch.
        /// @return whether all that was written since its start is stored
        bool finish() { return batch_.finish(); }

    private:
        PrivateProfile::Batch batch_;
    };

private:
    void note(const PrivateProfile::Failure& failure);

    std::string programFolder_;
    PrivateProfile::Storage storage_;
    PrivateProfile profile_;
    Connection hearsFailure_;
    std::array<bool, 2> noted_{}; ///< a failure of reading, of writing, has been kept for telling
    std::optional<FileFailure> untold_;
};

/// Sections of the settings file, besides that of each map.
namespace section {
inline constexpr std::string_view globals = "Globals";
inline constexpr std::string_view log = "Log";
inline constexpr std::string_view google = "GoogleMapOptions";
inline constexpr std::string_view pictures = "PictureOptions"; ///< of the export of pictures
} // namespace section

/// Key of a member of a filter group, for example "Band12".
std::string memberKey(std::string_view group, int member);

} // namespace tovrel
