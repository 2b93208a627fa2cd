#include "state/frmFilterBoxes.h"

#include "platform/frmControls.h"

#include <QCheckBox>
#include <QLabel>
#include <QPainter>
#include <QRegularExpression>
#include <QStyle>

namespace tovrel {

namespace {

/// Places of a criterion's column.
struct Column {
    TwipRect heading;
    TwipRect off;
    TwipRect firstMember; ///< each further one 240 twips below
};

constexpr float memberStep = 240.0F;

Column columnOf(Criterion criterion, const frmFilterBoxes::IotaColumn& iota) {
    switch (criterion) {
    case Criterion::Band:
        return {{240, 120, 735, 255}, {240, 480, 735, 255}, {240, 840, 735, 255}};
    case Criterion::Mode:
        return {{1320, 120, 855, 255}, {1320, 480, 855, 255}, {1320, 840, 855, 255}};
    case Criterion::Iota:
        break;
    }
    return {
        {iota.headingLeft, 120, 855, 255}, {2520, 480, iota.offWidth, 255}, {2520, 840, 855, 255}};
}

const char* const explanation =
    "Filters:  For a QSO to be plotted it must match one selection from each criteria that is not "
    "turned OFF.                                                            Examples:              "
    "         If you want to plot all QSOs then turn OFF all three criterias.           If you "
    "want "
    "to show plots for all contacts made on 10M and 12M, Phone - then select 10M, 12M, Phone and "
    "turn OFF the IOTA criteria.                                       To show all IOTA contacts, "
    "then select all of the IOTA options and set Band and Mode to OFF.";

/// The explanation: a run of blanks in its caption stands for a new line, whatever the widths.
class Explanation : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        static const QRegularExpression blanks(QStringLiteral(" {3,}"));
        QPainter painter(this);
        style()->drawItemText(
            &painter, contentsRect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, palette(),
            isEnabled(), text().replace(blanks, QStringLiteral("\n")), foregroundRole());
    }
};

} // namespace

frmFilterBoxes::frmFilterBoxes(QWidget& window, const IotaColumn& iota) {
    for (const Criterion criterion : allCriteria) {
        const CriterionNames& names = namesOf(criterion);
        const Column column = columnOf(criterion, iota);
        auto* heading = addLabel(window, QStringLiteral("lbl%1").arg(plainCaption(names.group)),
                                 plainCaption(names.heading), column.heading);
        heading->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        for (int member = 0; member <= names.lastMember; ++member) {
            TwipRect at = member == 0 ? column.off : column.firstMember;
            if (member > 0)
                at.top += memberStep * static_cast<float>(member - 1);
            auto* box =
                addCheckBox(window, memberName(std::string("chk").append(names.group), member),
                            plainCaption(names.captions[static_cast<std::size_t>(member)]), at);
            box->setAccessibleDescription(plainCaption(names.group));
            box->setChecked(member == 0);
            columns_[static_cast<std::size_t>(criterion)].push_back(box);
            QObject::connect(box, &QCheckBox::toggled, box,
                             [this, criterion, member](bool on) { choose(criterion, member, on); });
        }
    }
    auto* text = new Explanation(QLatin1String(explanation), &window);
    setUpControl(*text, QStringLiteral("lblFilterExplaination"), {3480, 360, 2415, 3015});
    text->setWordWrap(true);
    addLine(window, QStringLiteral("Line1"), 120, 5880, 3960);
}

void frmFilterBoxes::bind(Filter& filter) {
    filter_ = &filter;
    for (const Criterion criterion : allCriteria) {
        follows_[static_cast<std::size_t>(criterion)] =
            filter.group(criterion).changed.connect([this, criterion] { mirror(criterion); });
        mirror(criterion);
    }
}

void frmFilterBoxes::mirror(Criterion criterion) {
    const FilterGroup& group = filter_->group(criterion);
    int member = 0;
    for (QCheckBox* box : column(criterion))
        box->setChecked(group.selected(member++));
}

void frmFilterBoxes::choose(Criterion criterion, int member, bool on) {
    // A box that follows the filter comes here too and finds nothing to do. The signal for clicks
    // would not do instead: an assistive tool toggles without a click.
    if (filter_)
        filter_->group(criterion).set(member, on);
}

} // namespace tovrel
