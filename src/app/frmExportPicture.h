#pragma once

#include "map/MapUnits.h"
#include "platform/frmControls.h"
#include "run/PictureWish.h"

#include <QFileInfo>
#include <QString>
#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace tovrel {

/// Asks what picture of the map is to be made: its format, its size or paper, and its file.
class frmExportPicture : public frmDialog {
    Q_OBJECT

public:
    /// @param start what the controls show at first
    /// @param shape of the map
    frmExportPicture(const PictureWish& start, MapShape shape, QWidget* parent = nullptr);

    /// What the controls say. The folder of the file is that of the next time.
    PictureWish wish() const;

private:
    void addFormats();
    void addSizes();
    void addFile();
    void showWish(const PictureWish& wish);
    PictureFormat format() const;
    QFileInfo file() const;
    void followFormat();
    void followSize();
    void cmdBrowse_Click();

    MapShape shape_;
    QString folder_; ///< of the last file
    std::array<QRadioButton*, 3> optFormats_{};
    QLabel* lblSize_ = nullptr;
    QSpinBox* txtPixels_ = nullptr;
    QComboBox* cboPaper_ = nullptr;
    QLabel* lblResult_ = nullptr;
    QCheckBox* chkCaption_ = nullptr;
    QLineEdit* txtFile_ = nullptr;
    QPushButton* cmdExport_ = nullptr;
};

} // namespace tovrel
