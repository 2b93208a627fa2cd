#include "app/frmInfoInput.h"

#include "platform/ByteText.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tovrel {

frmInfoInput::frmInfoInput(iniFiles& ini, UserPrompt& prompt, QWidget* parent)
    : frmDialog(parent), ini_(ini), prompt_(prompt) {
    setUpDialog(*this, QStringLiteral("frmInfoInput"), QStringLiteral("Information Input"), 3930,
                2895);
    const auto addBox = [this](const char* name, const TwipRect& at, QLabel* caption) {
        auto* box = new QLineEdit(this);
        setUpControl(*box, QLatin1String(name), at);
        caption->setBuddy(box);
        return box;
    };
    txtCallSign_ = addBox("txtCallSign", {1320, 360, 1695, 285},
                          addLabel(*this, QStringLiteral("lblCallSign"),
                                   QStringLiteral("Call Sign"), {120, 360, 1095, 375}));
    txtLatitude_ = addBox("txtLatitude", {1320, 1320, 1695, 285},
                          addLabel(*this, QStringLiteral("lblLatitude"), QStringLiteral("Latitude"),
                                   {120, 1335, 975, 255}));
    txtLongitude_ = addBox("txtLongitude", {1320, 1680, 1695, 285},
                           addLabel(*this, QStringLiteral("lblLongitude"),
                                    QStringLiteral("Longitude"), {120, 1725, 975, 255}));
    auto* apply = addButton(*this, QStringLiteral("cmdInfoApply"), QStringLiteral("Apply"),
                            {120, 2160, 1695, 375});
    auto* exit = addButton(*this, QStringLiteral("cmdInfoExit"), QStringLiteral("Exit"),
                           {1920, 2160, 1455, 375});
    auto* description = addLabel(
        *this, QStringLiteral("lblCoordinatesDesc"),
        QStringLiteral("Enter your operating coordinates.  Display West and South as Negative"),
        {120, 720, 2895, 375});
    description->setWordWrap(true);

    setTabOrder(txtCallSign_, txtLatitude_);
    setTabOrder(txtLatitude_, txtLongitude_);
    setTabOrder(txtLongitude_, apply);
    setTabOrder(apply, exit);
    connect(apply, &QPushButton::clicked, this, [this] { cmdInfoApply_Click(); });
    connect(exit, &QPushButton::clicked, this, &QDialog::reject);
}

void frmInfoInput::loadForm() {
    if (isVisible())
        return;
    const StationInfo info = readStationInfo(ini_);
    txtCallSign_->setText(displayText(info.MyCall));
    txtLatitude_->setText(displayText(info.Latitude));
    txtLongitude_->setText(displayText(info.Longitude));
}

void frmInfoInput::cmdInfoApply_Click() {
    const bool latitudeGood = accepts(*txtLatitude_, "Latitude");
    const bool longitudeGood = accepts(*txtLongitude_, "Longitude");
    if (!latitudeGood || !longitudeGood)
        return;
    writeStationInfo(ini_, {byteText(txtCallSign_->text()), byteText(txtLatitude_->text()),
                            byteText(txtLongitude_->text())});
    accept();
}

bool frmInfoInput::accepts(QLineEdit& box, std::string_view coordinate) {
    const CoordinateFault fault = coordinateFault(byteText(box.text()));
    if (fault == CoordinateFault::None)
        return true;
    if (fault == CoordinateFault::Blank)
        box.clear();
    prompt_.tell(coordinateMessage(coordinate, fault));
    return false;
}

} // namespace tovrel
