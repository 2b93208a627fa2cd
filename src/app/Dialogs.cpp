#include "app/Dialogs.h"

#include "platform/ByteText.h"
#include "platform/Files.h"

#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

namespace tovrel {

std::optional<std::string> openFileDialog(QWidget& parent, const std::string& title,
                                          const std::string& folder, const std::string& filter) {
    // Qt wants the patterns in brackets behind the caption, parted by blanks, and shows them or
    // not.
    QStringList nameFilters;
    QStringList parts = displayText(filter).split(QLatin1Char('|'));
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = parts[i + 1].replace(QLatin1Char(';'), QLatin1Char(' '));
        nameFilters.append(QStringLiteral("%1 (%2)").arg(parts[i], patterns));
    }
    QFileDialog dialog(&parent, displayText(title), displayText(folder));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return nativePath(dialog.selectedFiles().constFirst());
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
