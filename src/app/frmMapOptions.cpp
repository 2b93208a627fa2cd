#include "app/frmMapOptions.h"

#include "platform/ByteText.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <utility>
#include <vector>

namespace tovrel {

namespace {

constexpr std::array<TwipRect, 3> optionPlaces = {
    {{120, 280, 1455, 195}, {120, 480, 1455, 255}, {120, 720, 1455, 255}}};

/// The three option buttons of a frame, the first one on; `choose` is told the number, from 0, of
/// the one that is switched on.
std::array<QRadioButton*, 3> addOptions(QWidget& frame, const std::array<QString, 3>& names,
                                        const std::array<QString, 3>& captions,
                                        const std::function<void(int)>& choose) {
    std::array<QRadioButton*, 3> buttons{};
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        buttons[i] = addOptionButton(frame, names[i], captions[i], optionPlaces[i]);
        buttons[i]->setChecked(i == 0);
        QObject::connect(buttons[i], &QRadioButton::toggled, buttons[i], [choose, i](bool on) {
            if (on)
                choose(static_cast<int>(i));
        });
    }
    return buttons;
}

} // namespace

frmMapOptions::frmMapOptions(Projection projection, MapOptionForms& forms,
                             std::function<void()> cmdApply_Click, QWidget* parent)
    : frmDialog(parent), projection_(projection), forms_(forms), options_(forms.of(projection)) {
    const MapNames& names = namesOf(projection);
    setUpDialog(*this, displayText(names.dialog),
                displayText(names.caption) + QStringLiteral(" Map Options"), 6150, 6810);
    filterBoxes_ = std::make_unique<frmFilterBoxes>(
        *this, frmFilterBoxes::IotaColumn{.headingLeft = 2400, .offWidth = 735});
    addMarkers();
    addLines();
    addTipBoxes();
    cmdApply_ = addButton(*this, QStringLiteral("cmdApply"), QStringLiteral("Apply Changes"),
                          {3960, 6120, 1935, 375});
    cmdApply_->setFont(windowFont(11, true));
    connect(cmdApply_, &QPushButton::clicked, this, std::move(cmdApply_Click));
    setTabOrders();
    follows_ = options_.changed.connect([this] { mirror(); });
    filterBoxes_->bind(options_.filter);
}

void frmMapOptions::addMarkers() {
    auto* frame = new QGroupBox(QStringLiteral("Map Plot Marker Size"), this);
    setUpControl(*frame, QStringLiteral("Frame1"), {240, 4080, 2295, 1095});
    markers_ = addOptions(
        *frame, {QStringLiteral("Option1"), QStringLiteral("Option2"), QStringLiteral("Option3")},
        {QStringLiteral("Small Marker"), QStringLiteral("Medium Marker"),
         QStringLiteral("Large Marker")},
        [this](int number) { options_.marker = static_cast<MarkerSize>(number); });
}

void frmMapOptions::addLines() {
    auto* frame = new QGroupBox(QStringLiteral("Plot Line Thickness"), this);
    setUpControl(*frame, QStringLiteral("Frame2"), {240, 5400, 2295, 1095});
    lines_ = addOptions(
        *frame,
        {QStringLiteral("optLine1"), QStringLiteral("optLine2"), QStringLiteral("optLine3")},
        {QStringLiteral("Thin Line"), QStringLiteral("Medium Line"), QStringLiteral("Thick Line")},
        [this](int number) { options_.line = number + 1; });
}

void frmMapOptions::addTipBoxes() {
    addLabel(*this, QStringLiteral("lblPlotDisplay"), QStringLiteral("Display with plot tooltip:"),
             {2760, 4080, 3015, 255});
    const auto addBox = [this](const char* name, const char* caption, const TwipRect& at,
                               bool MapOptions::*option) {
        auto* box = addCheckBox(*this, QLatin1String(name), QLatin1String(caption), at);
        connect(box, &QCheckBox::toggled, this, [this, option](bool on) { options_.*option = on; });
        return box;
    };
    chkCall_ = addBox("chkCall", "Callsign", {2760, 4320, 855, 375}, &MapOptions::chkCall);
    chkLatLong_ =
        addBox("chkLatLong", "Lat/Long", {3720, 4320, 1095, 375}, &MapOptions::chkLatLong);
    chkCountry_ = addBox("chkCountry", "Country", {4920, 4320, 855, 375}, &MapOptions::chkCountry);
}

void frmMapOptions::setTabOrders() {
    std::vector<QWidget*> order;
    const auto append = [&order](const auto& controls) {
        order.insert(order.end(), controls.begin(), controls.end());
    };
    append(filterBoxes_->column(Criterion::Band));
    order.push_back(cmdApply_);
    append(filterBoxes_->column(Criterion::Mode));
    order.push_back(chkCall_);
    append(filterBoxes_->column(Criterion::Iota));
    append(markers_);
    order.insert(order.end(), {chkLatLong_, chkCountry_, lines_[2], lines_[1], lines_[0]});
    for (std::size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void frmMapOptions::showEvent(QShowEvent* event) {
    mirror();
    frmDialog::showEvent(event);
}

void frmMapOptions::mirror() {
    markers_[static_cast<std::size_t>(options_.marker)]->setChecked(true);
    lines_[static_cast<std::size_t>(options_.line - 1)]->setChecked(true);
    chkCall_->setChecked(options_.chkCall);
    chkLatLong_->setChecked(options_.chkLatLong);
    chkCountry_->setChecked(options_.chkCountry);
}

void frmMapOptions::done(int result) {
    QDialog::done(result);
    forms_.loadBoxes(projection_);
}

} // namespace tovrel
