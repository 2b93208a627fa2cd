#include "app/frmExportPicture.h"

#include "platform/ByteText.h"
#include "platform/Files.h"
#include "run/MapSheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

namespace tovrel {

namespace {

struct FormatChoice {
    PictureFormat format;
    const char* name;
    const char* caption;
};

constexpr std::array<FormatChoice, 3> formats = {
    {{PictureFormat::Png, "optPng", "PNG, a picture for the web and for slides"},
     {PictureFormat::Jpeg, "optJpeg", "JPEG, smaller with relief and few contacts"},
     {PictureFormat::Pdf, "optPdf", "PDF, a page to print"}}};

} // namespace

frmExportPicture::frmExportPicture(const PictureWish& start, MapShape shape, QWidget* parent)
    : frmDialog(parent), shape_(shape), folder_(QFileInfo(displayText(start.path)).absolutePath()) {
    setUpDialog(*this, QStringLiteral("frmExportPicture"), QStringLiteral("Export Picture"), 6300,
                4710);
    addFormats();
    addSizes();
    addFile();
    showWish(start);
}

void frmExportPicture::addFormats() {
    auto* frame = new QGroupBox(QStringLiteral("Format"), this);
    setUpControl(*frame, QStringLiteral("fraFormat"), {240, 150, 5820, 1185});
    float top = 285;
    for (std::size_t i = 0; i < formats.size(); ++i, top += 285) {
        optFormats_[i] = addOptionButton(*frame, QLatin1String(formats[i].name),
                                         QLatin1String(formats[i].caption), {150, top, 5400, 255});
        connect(optFormats_[i], &QRadioButton::toggled, this, [this](bool on) {
            if (on)
                followFormat();
        });
    }
}

void frmExportPicture::addSizes() {
    auto* frame = new QGroupBox(QStringLiteral("Size"), this);
    setUpControl(*frame, QStringLiteral("fraSize"), {240, 1425, 5820, 1140});
    lblSize_ = addLabel(*frame, QStringLiteral("lblSize"), QString(), {150, 345, 1500, 255});
    txtPixels_ = new QSpinBox(frame);
    setUpControl(*txtPixels_, QStringLiteral("txtPixels"), {1725, 300, 1500, 330});
    txtPixels_->setRange(PictureOptions::leastPixels, PictureOptions::mostPixels);
    txtPixels_->setSingleStep(100);
    txtPixels_->setAccessibleName(QStringLiteral("Width in pixels"));
    cboPaper_ = new QComboBox(frame);
    setUpControl(*cboPaper_, QStringLiteral("cboPaper"), {1725, 300, 1500, 330});
    cboPaper_->setAccessibleName(QStringLiteral("Paper"));
    for (const Paper paper : allPapers)
        cboPaper_->addItem(displayText(nameOf(paper)));
    lblResult_ = addLabel(*frame, QStringLiteral("lblResult"), QString(), {150, 750, 5580, 255});
    chkCaption_ = addCheckBox(*this, QStringLiteral("chkCaption"),
                              QStringLiteral("Tell station, log, contacts and date below the map"),
                              {240, 2670, 5820, 255});
    connect(txtPixels_, &QSpinBox::valueChanged, this, [this] { followSize(); });
    connect(cboPaper_, &QComboBox::currentIndexChanged, this, [this] { followSize(); });
}

void frmExportPicture::addFile() {
    QLabel* label =
        addLabel(*this, QStringLiteral("lblFile"), QStringLiteral("File"), {240, 3135, 5820, 255});
    txtFile_ = new QLineEdit(this);
    setUpControl(*txtFile_, QStringLiteral("txtFile"), {240, 3420, 4500, 330});
    label->setBuddy(txtFile_);
    auto* browse = addButton(*this, QStringLiteral("cmdBrowse"), QStringLiteral("Browse..."),
                             {4860, 3405, 1200, 360});
    cmdExport_ = addButton(*this, QStringLiteral("cmdExport"), QStringLiteral("Export"),
                           {2640, 4065, 1635, 405});
    auto* cancel = addButton(*this, QStringLiteral("cmdCancel"), QStringLiteral("Cancel"),
                             {4425, 4065, 1635, 405});
    connect(browse, &QPushButton::clicked, this, [this] { cmdBrowse_Click(); });
    connect(cmdExport_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    // A file needs a name besides its folder, and no folder's.
    connect(txtFile_, &QLineEdit::textChanged, this, [this](const QString& path) {
        cmdExport_->setEnabled(!splitPath(byteText(path.trimmed())).name.empty() &&
                               !file().isDir());
    });
}

void frmExportPicture::showWish(const PictureWish& wish) {
    txtPixels_->setValue(wish.options.pixels);
    cboPaper_->setCurrentIndex(static_cast<int>(wish.options.paper));
    chkCaption_->setChecked(wish.options.caption);
    txtFile_->setText(QDir::toNativeSeparators(displayText(wish.path)));
    for (std::size_t i = 0; i < formats.size(); ++i)
        optFormats_[i]->setChecked(formats[i].format == wish.options.format);
    followSize();
}

PictureFormat frmExportPicture::format() const {
    for (std::size_t i = 0; i < formats.size(); ++i) {
        if (optFormats_[i]->isChecked())
            return formats[i].format;
    }
    return PictureFormat::Png;
}

void frmExportPicture::followFormat() {
    const bool page = format() == PictureFormat::Pdf;
    lblSize_->setText(page ? QStringLiteral("Paper") : QStringLiteral("Width in pixels"));
    txtPixels_->setVisible(!page);
    cboPaper_->setVisible(page);
    const std::string path = byteText(txtFile_->text());
    if (!splitPath(path).name.empty())
        txtFile_->setText(displayText(withExtensionOf(format(), path)));
    followSize();
}

void frmExportPicture::followSize() {
    const PictureOptions now = wish().options;
    lblResult_->setText(displayText(sheetSizeText({now.format, now.paper}, now.pixels, shape_)));
}

void frmExportPicture::cmdBrowse_Click() {
    const QString extension = displayText(extensionOf(format()));
    // Whether a file is replaced is asked later, wherever its name comes from.
    const QString chosen = QFileDialog::getSaveFileName(
        this, QStringLiteral("Export Picture"), file().absoluteFilePath(),
        QStringLiteral("%1 Files (*%2)").arg(extension.mid(1).toUpper(), extension), nullptr,
        QFileDialog::DontConfirmOverwrite);
    if (!chosen.isEmpty())
        txtFile_->setText(
            QDir::toNativeSeparators(displayText(withExtensionOf(format(), byteText(chosen)))));
}

/// What the field tells. A name alone is meant to lie where the last file does, and not where the
/// program was started.
QFileInfo frmExportPicture::file() const {
    return QFileInfo(QDir::cleanPath(QDir(folder_).absoluteFilePath(txtFile_->text().trimmed())));
}

PictureWish frmExportPicture::wish() const {
    const QFileInfo file = this->file();
    const auto native = [](const QString& path) {
        return byteText(QDir::toNativeSeparators(path));
    };
    PictureWish wish;
    wish.options = {.format = format(),
                    .pixels = txtPixels_->value(),
                    .paper = allPapers[static_cast<std::size_t>(cboPaper_->currentIndex())],
                    .caption = chkCaption_->isChecked(),
                    .folder = native(file.absolutePath())};
    wish.path = withExtensionOf(format(), native(file.absoluteFilePath()));
    return wish;
}

} // namespace tovrel
