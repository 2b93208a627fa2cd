#include "app/Dialogs.h"

#include "platform/ByteText.h"

#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

namespace tovrel {

std::optional<std::string> openFileDialog(QWidget& parent, const std::string& title,
                                          const std::string& folder, const std::string& filter) {
    // "Caption (*.A)|*.A|Caption (*.B)|*.B": the captions name the patterns once more.
    QStringList nameFilters;
    const QStringList parts = displayText(filter).split(QLatin1Char('|'));
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        nameFilters.append(parts[i]);
    }
    QFileDialog dialog(&parent, displayText(title), displayText(folder));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFilters);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return byteText(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()));
}

std::optional<Colour> colourDialog(QWidget& parent, Colour start) {
    const QColor chosen = QColorDialog::getColor(QColor::fromRgb(imageColour(start)), &parent);
    return chosen.isValid() ? std::optional(colourOfImage(chosen.rgb())) : std::nullopt;
}

bool openWithItsProgram(const std::string& path) {
    const QFileInfo file(QString::fromStdString(path));
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

} // namespace tovrel
