#include "export/frmGoogleMapOptions.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

namespace tovrel {

frmGoogleMapOptions::frmGoogleMapOptions(iniFiles& ini, GoogleMapOptions& options, QWidget* parent)
    : frmDialog(parent), ini_(ini), options_(options) {
    setUpDialog(*this, QStringLiteral("frmGoogleMapOptions"), QStringLiteral("Google Map Options"),
                6120, 5670);
    filterBoxes_ = std::make_unique<frmFilterBoxes>(
        *this, frmFilterBoxes::IotaColumn{.headingLeft = 2520, .offWidth = 855});
    addMarkers();
    chkCall_ = addCheckBox(*this, QStringLiteral("chkCall"),
                           QStringLiteral("Show Callsign with Plot"), {3240, 4320, 2055, 375});
    connect(chkCall_, &QCheckBox::toggled, this, [this](bool on) { options_.chkCall = on; });
    auto* apply = addButton(*this, QStringLiteral("cmdApply"), QStringLiteral("Apply Changes"),
                            {4080, 5040, 1815, 375});
    apply->setFont(windowFont(11, true));
    connect(apply, &QPushButton::clicked, this, [this] { cmdApply_Click(); });

    filterBoxes_->bind(options_.filter);
    follows_ = options_.changed.connect([this] { mirror(); });
    mirror();
}

void frmGoogleMapOptions::addMarkers() {
    auto* frame = new QGroupBox(QStringLiteral("Map Plot Marker"), this);
    setUpControl(*frame, QStringLiteral("frmPlotMarker"), {240, 4200, 1935, 1215});
    markers_ = {addOptionButton(*frame, QStringLiteral("optSmallMarker"),
                                QStringLiteral("Small Marker"), {240, 240, 1335, 255}),
                addOptionButton(*frame, QStringLiteral("optMediumMarker"),
                                QStringLiteral("Medium Marker"), {240, 540, 1455, 255}),
                addOptionButton(*frame, QStringLiteral("optLargeMarker"),
                                QStringLiteral("Large Marker"), {240, 840, 1335, 255})};
    for (std::size_t i = 0; i < markers_.size(); ++i) {
        const auto size = static_cast<MarkerSize>(i);
        connect(markers_[i], &QRadioButton::toggled, this, [this, size](bool on) {
            if (on && options_.marker != size)
                options_.pickMarker(ini_, size);
        });
        // A click counts on the marker that is on, too: after a close box the settings may hold
        // another one than the window shows.
        connect(markers_[i], &QRadioButton::clicked, this,
                [this, size] { options_.pickMarker(ini_, size); });
    }
}

void frmGoogleMapOptions::showEvent(QShowEvent* event) {
    mirror();
    if (!event->spontaneous())
        applied_ = Choices{options_.filter, options_.chkCall};
    frmDialog::showEvent(event);
}

void frmGoogleMapOptions::mirror() {
    markers_[static_cast<std::size_t>(options_.marker)]->setChecked(true);
    chkCall_->setChecked(options_.chkCall);
}

void frmGoogleMapOptions::cmdApply_Click() {
    options_.apply(ini_);
    hide();
}

void frmGoogleMapOptions::reject() {
    if (applied_) {
        for (const Criterion criterion : allCriteria)
            options_.filter.group(criterion).assign(applied_->filter.group(criterion));
        options_.chkCall = applied_->chkCall;
        applied_.reset();
    }
    mirror();
    frmDialog::reject();
}

void frmGoogleMapOptions::closeEvent(QCloseEvent* event) {
    applied_.reset();
    options_.resetToDesign();
    frmDialog::closeEvent(event);
}

} // namespace tovrel
