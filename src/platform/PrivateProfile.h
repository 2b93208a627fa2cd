#pragma once

#include "platform/Signal.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovrel {

/// A settings file of `[Section]` lines followed by `Key=Value` lines, all of it bytes.
///
/// Section and key names compare without regard to case, and the first of several equal ones
/// counts. Blanks round the name, the "=" and the value are no part of them, and one pair of
/// matching quotes round a value is taken off on reading. Writing a key keeps the order, the
/// comments and the unknown lines of the file, and its line ends.
///
/// The file itself is the state: every read looks at the file, every write that changes something
/// replaces it as a whole. A file that can't be read, or that is no settings file, is never
/// written; while it is so, what was read of it last serves.
class PrivateProfile {
public:
    /// Where writes go.
    enum class Storage {
        File,  ///< to the file, at once
        Memory ///< nowhere: the file is read once and never written
    };

    /// What stands at the path. A file that holds a NUL byte or UTF-16, that is longer than 4 MiB,
    /// or that has no line of the form `[Section]` is somebody else's; an empty one is a settings
    /// file.
    enum class State { Missing, Settings, Unreadable, Foreign };

    /// @param path UTF-8; nothing need stand there
    /// @param storage with Memory the file is read here, else at every use but in a batch
    explicit PrivateProfile(std::string path, Storage storage = Storage::File);

    /// The path that was given.
    const std::string& path() const { return path_; }

    /// What stands at the path now; in a batch, or in memory, what stood there at its start.
    State state() const { return content().state; }

    /// Why the file can't serve, with the states Unreadable and Foreign; else empty.
    std::string fault() const { return content().reason; }

    /// Value of a key, cut to `size` - 1 bytes; `defaultValue` when section or key are missing.
    std::string read(std::string_view section, std::string_view key, std::string_view defaultValue,
                     std::size_t size) const;

    /// Sets a key, adding it after the last line of its section, and the section at the end. A key
    /// that has the value already is left as it is spelt.
    /// @return whether the key has the value now, in a batch in what the batch holds; not when the
    ///         file can't be read or written, is no settings file, or the value holds a line end
    bool write(std::string_view section, std::string_view key, std::string_view value);

    /// What the file could not be used for, and why.
    struct Failure {
        enum class Of { Reading, Writing } of; ///< what was tried
        std::string reason;                    ///< short, UTF-8, without the name of the file
    };

    /// Called at each failure, within the read or write that met it.
    Signal<Failure> failed;

    /// While one lives, reads and writes work on one copy in memory; the file is replaced once, at
    /// the end of the outermost, and only if a write changed it.
    class Batch {
    public:
        /// Reads the file, unless another batch has done so that still lives.
        /// @param profile has to outlive the batch
        explicit Batch(PrivateProfile& profile);
        ~Batch() { finish(); }
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

        /// Ends the batch.
        /// @return whether all writes since its start are stored, in the file if it was the
        ///         outermost
        bool finish();

    private:
        PrivateProfile& profile_;
        bool finished_ = false;
        bool good_ = true;
    };

private:
    struct Content {
        State state = State::Missing;
        std::string text;
        std::string reason;

        bool serves() const { return state == State::Missing || state == State::Settings; }
    };

    Content content() const;
    Content readContent() const;
    bool store(std::string text);
    bool fail(Failure::Of of, const std::string& reason) const;

    std::string path_;
    Storage storage_;
    int batches_ = 0;
    Content held_;                   ///< content during a batch
    bool heldChanged_ = false;       ///< by a write
    bool heldGood_ = true;           ///< no write of the batch was refused
    mutable std::string lastServed_; ///< what was read last of a file that served
};

} // namespace tovrel
