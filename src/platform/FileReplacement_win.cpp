#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/SystemFiles.h"

#include <QFile>
#include <QRandomGenerator>

namespace tovrel {

namespace {

/// A name beside a place that no file has.
QString nameBeside(const QString& place) {
    QString name;
    do {
        const QString number = QString::number(QRandomGenerator::global()->generate(), 36);
        name = place + QLatin1Char('.') + number;
    } while (QFile::exists(name));
    return name;
}

} // namespace

FileReplacement::FileReplacement(const std::string& path)
    : place_(resolvedPlace(path)),
      file_(std::make_unique<QFile>(nameBeside(QString::fromStdString(place_)))),
      error_(faultOfPlace(path)) {
    if (error_.empty() && !file_->open(openMode | QIODevice::NewOnly))
        error_ = reasonOf(*file_);
}

FileReplacement::~FileReplacement() {
    if (file_->isOpen()) {
        auto& file = static_cast<QFile&>(*file_);
        file.close();
        file.remove();
    }
}

void FileReplacement::takePlace() {
    auto& file = static_cast<QFile&>(*file_);
    file.close();
    error_ = renameOver(byteText(file.fileName()), place_);
    if (!error_.empty())
        file.remove();
}

} // namespace tovrel
