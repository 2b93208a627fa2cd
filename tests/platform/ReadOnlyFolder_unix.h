#pragma once

#include "platform/TestFolder.h"

#include <filesystem>
#include <string>
#include <unistd.h>

namespace tovrel {

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

} // namespace tovrel
