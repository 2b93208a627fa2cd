#pragma once

#include "platform/Files.h"

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#ifdef __unix__
#include <unistd.h>
#endif

namespace tovrel {

/// A folder of a test's own, removed with it. Files are written and read without the program's own
/// routines.
class TestFolder {
public:
    std::string path() const { return folder_.path().toStdString(); }
    std::string path(std::string_view name) const { return joinPath(path(), name); }

    std::string write(std::string_view name, std::string_view bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

    std::string read(std::string_view name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Names in the folder, each followed by a blank, in rising order.
    std::string names() const {
        std::string all;
        for (const QString& name : QDir(folder_.path()).entryList(QDir::Files, QDir::Name))
            all += name.toStdString() + " ";
        return all;
    }

private:
    QTemporaryDir folder_;
};

#ifdef __unix__
/// While it lives, nobody may write in a folder: it is read-only, and the superuser, whom that
/// would not stop, is another user.
class ReadOnlyFolder {
public:
    /// @param rights 0777 for a folder in which only the files are out of reach
    explicit ReadOnlyFolder(const TestFolder& folder, int rights = 0555)
        : path_(folder.path()), user_(geteuid()) {
        std::filesystem::permissions(path_, std::filesystem::perms(rights));
        if (user_ == 0)
            (void)seteuid(nobody);
    }
    ~ReadOnlyFolder() {
        (void)seteuid(user_);
        std::filesystem::permissions(path_, std::filesystem::perms(0755));
    }
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    std::string path_;
    uid_t user_;
};
#endif

} // namespace tovrel
