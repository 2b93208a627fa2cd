#include "platform/Files.h"
#include "platform/SystemFiles.h"

#include <QSaveFile>

namespace tovrel {

FileReplacement::FileReplacement(const std::string& path)
    : file_(std::make_unique<QSaveFile>(QString::fromStdString(path))), error_(faultOfPlace(path)) {
    if (error_.empty() && !file_->open(openMode))
        error_ = reasonOf(*file_);
}

FileReplacement::~FileReplacement() = default;

void FileReplacement::takePlace() {
    auto& file = static_cast<QSaveFile&>(*file_);
    if (!file.commit())
        error_ = reasonOf(file);
}

} // namespace tovrel
