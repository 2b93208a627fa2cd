#pragma once

#include "platform/WorkFolder.h"

#include <QFile>
#include <cstdio>
#include <memory>
#include <string>

namespace tovrel {

/// What can be read only once, standard input or a pipe, copied into a file of this user's alone,
/// which passes can read again and again. Where the system can do without, the file has no name, so
/// that nothing stays of it however the program ends; elsewhere it lies in a work folder.
class SpooledInput {
public:
    /// Copies all there is, waiting for it.
    /// @param pipe UTF-8 path; empty for standard input
    explicit SpooledInput(const std::string& pipe);

    /// Path under which this process can open the copy while this object lives.
    const std::string& path() const { return path_; }

    /// Why the input could not be read or the copy not be written; empty when all is well.
    const std::string& error() const { return error_; }

private:
    void openNameless();
    void openNamed();
    void copyFrom(std::FILE* input);

    std::unique_ptr<WorkFolder> folder_; ///< none for a file without a name
    std::unique_ptr<QFile> file_;        ///< closed before the folder goes
    std::string path_;
    std::string error_;
};

} // namespace tovrel
