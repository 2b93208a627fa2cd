#pragma once

#include <QFile>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

/// Whole files and paths. Paths are UTF-8 bytes. Reasons are short, in the system's words ("No
/// space left on device"), UTF-8, and name no file.
namespace tovrel {

/// A message of the system as a reason: blanks, line ends and stops at its end taken off.
std::string withoutStop(const QString& text);

/// Why something failed, as the C library words it.
std::string reasonOf(std::errc error);

/// Why the last act on an open file failed, or its opening.
std::string reasonOf(const QIODevice& file);

/// The two parts of a path, cut after the last separator ("/" or "\").
struct PathParts {
    std::string_view folder; ///< with its separator; empty when the path has none
    std::string_view name;   ///< empty when the path ends with a separator
};

/// @return views into `path`, both empty when that is
PathParts splitPath(std::string_view path);

/// Folder and name joined with the platform's separator, never two of them.
std::string joinPath(std::string_view folder, std::string_view name);

/// A path of Qt's, which parts all folders by "/", as users of the system write it; UTF-8.
std::string nativePath(const QString& path);

/// A path as the system's own calls take it.
std::filesystem::path systemPath(const std::string& path);

/// Whether `path` names a plain file (a folder, a pipe or a device is none).
bool fileExists(const std::string& path);

/// Whether two paths lead to one file that exists, be it by another spelling or by a link.
bool isSameFile(const std::string& a, const std::string& b);

/// The same of places, whether a file stands there or not.
bool isSamePlace(const std::string& a, const std::string& b);

/// Whether a path names a device or a pipe, into which is written and which no file may replace.
bool isDevice(const std::string& path);

/// Hides a folder from those who list what its parent holds.
void hideFolder(const std::string& path);

/// Whether this user may make and rename files in a folder. The system is asked, and no file tried.
bool isWritableFolder(const std::string& folder);

/// Why no file can be put in a place, as far as that can be known before it is tried; else empty.
std::string faultOfPlace(const std::string& path);

/// Path of the file in `folder` whose name equals `name`, case not counting; the exact name first.
/// @return empty when there is none
std::string findFile(const std::string& folder, std::string_view name);

/// Path at which a file of the program is read and written: that of findFile(), or of a new file.
std::string filePath(const std::string& folder, std::string_view name);

/// The three ends of reading. They ask for different things: what is missing may be made anew, what
/// can't be read has to be told and must not be written over.
enum class ReadEnd { Content, Missing, Unreadable };

/// How the reading of a file ended, and what came of it.
struct FileContent {
    ReadEnd end = ReadEnd::Missing; ///< tells which of the others is set
    std::string bytes;              ///< with Content
    std::string reason;             ///< with Unreadable

    /// The ends that have something to tell: bytes, be it none at all, or a reason.
    static FileContent of(std::string bytes) { return {ReadEnd::Content, std::move(bytes), {}}; }
    static FileContent unreadable(std::string reason) {
        return {ReadEnd::Unreadable, {}, std::move(reason)};
    }

    /// The end by its name; in a condition, whether the file was read.
    bool isMissing() const { return end == ReadEnd::Missing; }
    bool isUnreadable() const { return end == ReadEnd::Unreadable; }
    explicit operator bool() const { return end == ReadEnd::Content; }
};

/// The bytes of a plain file. Whatever else stands at the path, a folder, a pipe or a file in a
/// folder that can't be entered, is unreadable.
/// @param most how many bytes are wanted at the most
FileContent readFile(const std::string& path,
                     std::int64_t most = std::numeric_limits<std::int64_t>::max());

/// Opens a file to be read without a buffer. On any system other programs may append to it, replace
/// it or take it away meanwhile; a file that its writer shares with nobody can't be opened.
/// @param file has a name and is closed
/// @return reason of a failure; empty when it is open
std::string openForReading(QFile& file);

/// Writes bytes to an open file that has no buffer of its own.
/// @return reason of a failure; empty when all of them were written
std::string writeAll(QFileDevice& file, std::string_view bytes);

/// How the writing of a file ended: well, or for the reason that it tells.
struct [[nodiscard]] WriteEnd {
    std::string reason; ///< empty when the new file stands
    explicit operator bool() const { return reason.empty(); }
};

/// A new file under construction beside the place that it will take. It takes the place when it is
/// whole and on the disk; until then, and if anything fails, what stands there stays. A link is
/// followed to what it names.
class FileReplacement {
public:
    /// @param path of a plain file, or of none; what is wrong with it shows in error()
    explicit FileReplacement(const std::string& path);

    /// A file that was not committed leaves all as it was.
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// Appends bytes. After a failure nothing more is written.
    /// @return whether all is well so far
    bool write(std::string_view bytes);

    /// Brings all to the disk and puts the file into its place.
    WriteEnd commit();

    /// Bytes appended so far.
    std::int64_t size() const { return size_; }

    /// Reason of the first failure; empty when there was none.
    const std::string& error() const { return error_; }

private:
    // Unbuffered, so that each write tells what became of it: what fails in a buffer that is
    // emptied by the commit goes unnoticed, and a short file replaces the good one.
    static constexpr QIODevice::OpenMode openMode = QIODevice::WriteOnly | QIODevice::Unbuffered;

    void takePlace();

    std::string place_; ///< where links of the path lead, on systems that need to know
    std::unique_ptr<QFileDevice> file_;
    std::int64_t size_ = 0;
    std::string error_;
};

/// Replaces a file by one of the given bytes, as FileReplacement does.
WriteEnd writeFile(const std::string& path, std::string_view bytes);

/// Brings a file to the disk and renames it over another, or over a link.
WriteEnd moveFile(const std::string& from, const std::string& to);

} // namespace tovrel
