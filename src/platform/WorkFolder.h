#pragma once

#include "platform/FolderLock.h"

#include <QTemporaryDir>
#include <memory>
#include <string>

namespace tovrel {

/// A folder of a run's own for work files, hidden in the folder where their result will stand, so
/// that they can be renamed into place. It goes with this object, with all that is in it.
///
/// What a run left that was killed is cleared by the next one in the same place. A folder counts as
/// such only when it holds a lock file that belongs to this user and that nobody holds, or nothing.
class WorkFolder {
public:
    /// @param place folder in which it is made; empty for the current one
    explicit WorkFolder(const std::string& place);
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    /// Whether it could be made; path() leads nowhere else.
    bool isValid() const { return folder_->isValid(); }

    /// Why it could not be made; to be asked for when it is not valid.
    std::string error() const;

    /// Path of a file in it.
    std::string path(std::string_view name) const;

private:
    static void clearDeadOnes(const std::string& place);

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<FolderLock> lock_; ///< released when only the folder is left
};

} // namespace tovrel
