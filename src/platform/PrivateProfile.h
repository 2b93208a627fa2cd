#pragma once

#include <optional>
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
/// The file itself is the state: every read looks at the file, every write replaces it as a whole.
class PrivateProfile {
public:
    /// Where writes go.
    enum class Storage {
        File,  ///< to the file, at once
        Memory ///< nowhere: the file is read once and never written
    };

    explicit PrivateProfile(std::string path, Storage storage = Storage::File);

    const std::string& path() const { return path_; }
    bool exists() const;

    /// Value of a key, cut to `size` - 1 bytes; `defaultValue` when section or key are missing.
    std::string read(std::string_view section, std::string_view key, std::string_view defaultValue,
                     std::size_t size) const;

    /// Sets a key, adding it behind the last line of its section, and the section at the end.
    /// @return false when the file can't be read or written, or the value holds a line end
    bool write(std::string_view section, std::string_view key, std::string_view value);

    /// While one lives, reads and writes work on one copy in memory; the file is replaced once, at
    /// the end of the outermost, and only if a write changed it.
    class Batch {
    public:
        explicit Batch(PrivateProfile& profile);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        PrivateProfile& profile_;
    };

private:
    std::optional<std::string> content() const;
    bool store(std::string content);

    std::string path_;
    int batches_ = 0;
    std::optional<std::string> held_; ///< content during a batch; nothing when unreadable
    bool heldChanged_ = false;
};

} // namespace tovrel
