#include "stats/frmMapStats.h"

#include "platform/ByteText.h"
#include "platform/Twips.h"
#include "platform/frmControls.h"
#include "stats/frmColourButton.h"
#include "stats/frmItemList.h"
#include "stats/frmTabStrip.h"

#include <QFrame>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QTextDocument>
#include <algorithm>
#include <utility>

namespace tovrel {

namespace {

constexpr double widthInTwips = 2030.0;

enum Tab { Confirmed, Stats, Heard, Filters, Worked, Key };

/// Sizes in twips, as the control has them after it was placed.
float heightOf(const QWidget& control) { return twipsFromPixels(control.height()); }
float widthOf(const QWidget& control) { return twipsFromPixels(control.width()); }

} // namespace

frmMapStats::frmMapStats(MapStats& stats, std::function<void(MapColour)> pickColour,
                         QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      stats_(stats), pickColour_(std::move(pickColour)) {
    setObjectName(QStringLiteral("frmMapStats"));
    setWindowTitle(QStringLiteral("Tovrel Stats"));
    setFont(windowFont());
    tabStats_ = new frmTabStrip({QStringLiteral("Confirmed"), QStringLiteral("Stats"),
                                 QStringLiteral("Heard"), QStringLiteral("Filters"),
                                 QStringLiteral("Worked"), QStringLiteral("Key")},
                                this);
    tabStats_->setObjectName(QStringLiteral("tabStats"));
    for (std::size_t i = 0; i < fraTab_.size(); ++i) {
        fraTab_[i] = i == Key ? new QScrollArea(this) : new QFrame(this);
        fraTab_[i]->setObjectName(memberName("fraTab", static_cast<int>(i)));
    }
    lstConfirmed_ = addList(Confirmed, "lstConfirmed", "Confirmed");
    lstStats_ = addList(Stats, "lstStats", "Stats");
    lblPfxNotPlotted_ = addLabel(*fraTab_[Stats], QStringLiteral("lblPfxNotPlotted"),
                                 QStringLiteral("Unable to Plot"), {60, 60, 1000, 255});
    lstPfxNotPlotted_ = addList(Stats, "lstPfxNotPlotted", "Unable to Plot");
    lstHeard_ = addList(Heard, "lstHeard", "Heard");
    lstWorked_ = addList(Worked, "lstWorked", "Worked");
    addFilterBoxes();
    addLegend();
    connect(tabStats_, &frmTabStrip::chosen, this, &frmMapStats::tabStats_Click);
    tabStats_Click(tabStats_->current());
    followsFilter_ = stats_.changed.connect([this] {
        if (isVisible() && stats_.loaded())
            mirrorFilters();
    });
}

frmMapStats::~frmMapStats() = default;

frmItemList* frmMapStats::addList(int tab, const char* name, const char* title) {
    auto* list = new frmItemList(fraTab_[static_cast<std::size_t>(tab)]);
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(QLatin1String(title));
    return list;
}

void frmMapStats::addFilterBoxes() {
    for (const Criterion criterion : allCriteria) {
        const CriterionNames& names = namesOf(criterion);
        auto* box = new QPlainTextEdit(fraTab_[Filters]);
        box->setObjectName(QStringLiteral("txt%1").arg(displayText(names.group)));
        box->setAccessibleName(displayText(names.heading));
        box->setReadOnly(true);
        box->setTabChangesFocus(true);
        box->setLineWrapMode(QPlainTextEdit::NoWrap);
        box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        // A third of the window is just wide enough for the widest caption.
        box->document()->setDocumentMargin(1.0);
        filterBoxes_[static_cast<std::size_t>(criterion)] = box;
    }
}

void frmMapStats::addLegend() {
    constexpr float firstTop = 240.0F;
    constexpr float step = 360.0F;
    // Beside the low cylindrical map the last entries have no room and are scrolled to.
    auto* area = static_cast<QScrollArea*>(fraTab_[Key]);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* entries = new QWidget;
    entries->resize(pixelsFromTwips(480.0F + 1005.0F),
                    pixelsFromTwips(firstTop + step * static_cast<float>(legendColours.size())));
    area->setWidget(entries);
    area->viewport()->setAutoFillBackground(false);
    entries->setAutoFillBackground(false);
    for (std::size_t i = 0; i < legendColours.size(); ++i) {
        const MapColour entry = legendColours[i];
        const LegendNames& names = namesOf(entry);
        const float top = firstTop + step * static_cast<float>(i);
        auto* button = new frmColourButton(entries);
        setUpControl(*button, displayText(names.button), {120, top, 255, 255});
        button->setAccessibleName(displayText(names.caption) + QStringLiteral(" colour"));
        connect(button, &QPushButton::clicked, this, [this, entry] { pickColour_(entry); });
        colourButtons_[i] = button;
        auto* label = addLabel(*entries, displayText(names.label), plainCaption(names.caption),
                               {480, top, 1005, 255});
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }
}

int frmMapStats::outerWidth() { return pixelsFromTwips(widthInTwips); }

void frmMapStats::loadForm(const QRect& outer, const QMargins& frame) {
    resize(outer.marginsRemoved(frame).size());
    move(outer.topLeft());
    tabStats_->choose(Confirmed);
}

void frmMapStats::showEvent(QShowEvent* event) {
    // Some X11 window managers put the buttons to minimize and maximize on all other windows, and
    // the caption has no room beside them. Only a native window takes the type, by now this is one,
    // and one that comes back is a new one: the attribute counts when it changes.
    setAttribute(Qt::WA_X11NetWmWindowTypeMenu, false);
    setAttribute(Qt::WA_X11NetWmWindowTypeMenu);
    if (models_.empty())
        follow();
    stats_.load();
    mirrorFilters();
    mirrorColours();
    QWidget::showEvent(event);
    refreshLists();
}

void frmMapStats::follow() {
    StatusLists& lists = stats_.lists();
    followStations(*lstConfirmed_, lists.lstConfirmed);
    followStations(*lstWorked_, lists.lstWorked);
    followStations(*lstHeard_, lists.lstHeard);
    models_.push_back(std::make_unique<LineModel>(lists.lstStats));
    lstStats_->setModel(models_.back().get());
    models_.push_back(std::make_unique<CallModel>(lists.lstPfxNotPlotted));
    lstPfxNotPlotted_->setModel(models_.back().get());
    followsLegend_ = stats_.legend().changed.connect([this] {
        // The closing window, too, hears of a change, and may not load what is being dropped.
        if (isVisible() && stats_.loaded())
            mirrorColours();
    });
}

void frmMapStats::followStations(frmItemList& view, const SortedList<Station>& list) {
    auto model = std::make_unique<StationModel>(list);
    view.setModel(model.get());
    connect(&view, &frmItemList::picked, this, [this, stations = model.get()](int row) {
        if (const Station* station = stations->item(row))
            stats_.pickStation(*station);
    });
    models_.push_back(std::move(model));
}

void frmMapStats::refreshLists() {
    if (!isVisible())
        return;
    stats_.load();
    for (const auto& model : models_)
        model->refresh();
}

void frmMapStats::closeEvent(QCloseEvent* event) {
    stats_.unload();
    QWidget::closeEvent(event);
}

void frmMapStats::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Form_Resize();
}

void frmMapStats::Form_Resize() {
    constexpr float gap = 60.0F;
    place(*tabStats_,
          {gap, gap, twipsFromPixels(width()) - 120.0F, twipsFromPixels(height()) - 120.0F});
    const QRect client = tabStats_->clientRect().translated(tabStats_->pos());
    for (QFrame* frame : fraTab_) {
        if (!client.isEmpty())
            frame->setGeometry(client);
    }
    const float W = widthOf(*fraTab_[Confirmed]);
    const float H = heightOf(*fraTab_[Confirmed]);
    for (frmItemList* list : {lstConfirmed_, lstWorked_, lstHeard_})
        place(*list, {gap, gap, W - 120.0F, H - 120.0F});
    place(*lstStats_, {gap, gap, W - 120.0F, H / 2.0F - 80.0F});
    const float below = gap + heightOf(*lstStats_);
    place(*lblPfxNotPlotted_, {gap, below + 80.0F, W - 120.0F, 255.0F});
    const float listTop = below + 60.0F + 255.0F + 60.0F + 20.0F;
    place(*lstPfxNotPlotted_,
          {gap, listTop, W - 120.0F, std::min(H / 2.0F - 315.0F, H - gap - listTop)});
    float left = gap;
    for (QPlainTextEdit* box : filterBoxes_) {
        place(*box, {left, gap, (W - 240.0F) / 3.0F, H - 120.0F});
        left += widthOf(*box) + gap;
    }
}

void frmMapStats::tabStats_Click(int tab) {
    // The others are hidden, so that neither the keyboard nor a reader of the screen finds them.
    for (std::size_t i = 0; i < fraTab_.size(); ++i)
        fraTab_[i]->setVisible(static_cast<int>(i) == tab);
    fraTab_[static_cast<std::size_t>(tab)]->raise();
}

void frmMapStats::mirrorFilters() {
    for (const Criterion criterion : allCriteria) {
        QPlainTextEdit* box = filterBoxes_[static_cast<std::size_t>(criterion)];
        const QString text = displayText(stats_.filterText(criterion));
        if (box->toPlainText() != QString(text).remove(QLatin1Char('\r')))
            box->setPlainText(text);
    }
}

void frmMapStats::mirrorColours() {
    for (std::size_t i = 0; i < legendColours.size(); ++i)
        colourButtons_[i]->setColour(stats_.legend().colour(legendColours[i]));
}

} // namespace tovrel
