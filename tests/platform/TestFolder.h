#pragma once

#include "platform/Files.h"

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace tovrel {

/// A folder of a test's own, removed with it. Files are written and read without the program's own
/// routines.
class TestFolder {
public:
    std::string path() const { return nativePath(folder_.path()); }
    std::string path(std::string_view name) const { return joinPath(path(), name); }

    std::string write(std::string_view name, std::string_view bytes) const {
        std::ofstream(systemPath(path(name)), std::ios::binary) << bytes;
        return path(name);
    }

    std::string read(std::string_view name) const {
        std::ifstream file(systemPath(path(name)), std::ios::binary);
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

} // namespace tovrel
