#pragma once

#include <cstdint>
#include <string>

namespace tovrel {

/// A lock in a folder that the system takes back when its holder dies. The content of its file says
/// nothing, so that a full disk and a kill at any moment leave none that is held for ever.
class FolderLock {
public:
    /// Name of the file.
    static constexpr const char* name = "lock";

    /// Takes the lock of a folder, if nobody holds it.
    /// @param folder UTF-8 path
    /// @param make whether the file is made if need be
    FolderLock(const std::string& folder, bool make);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// Whether it was taken. The folder may be removed meanwhile, the file of the lock with it.
    bool isHeld() const { return held_; }

private:
    std::intptr_t file_; ///< as the system numbers open files
    bool held_ = false;
};

/// Whether a file or folder belongs to the user of this process; one that is not there doesn't.
bool isOwn(const std::string& path);

} // namespace tovrel
