#include "run/MapCaption.h"

#include "platform/ByteText.h"
#include "platform/Numbers.h"
#include "state/StationInfo.h"

#include <QLocale>
#include <QPainter>
#include <QTextOption>
#include <algorithm>
#include <cmath>

namespace tovrel {

namespace {

// Shares of the height of the letters.
constexpr double lineGap = 0.35; ///< between two lines
constexpr double itemGap = 1.6;  ///< between two things in a line
constexpr double dotWidth = 0.8;
constexpr double dotGap = 0.4; ///< between a dot and its text

const QLocale& english() {
    static const QLocale locale(QLocale::English);
    return locale;
}

/// A coordinate as far as single precision knows it: "48.1° N".
QString coordinate(float degrees, const char* positive, const char* negative) {
    constexpr double tenThousandths = 10000.0;
    const double shown =
        std::round(std::abs(static_cast<double>(degrees)) * tenThousandths) / tenThousandths;
    return displayText(decimalText(shown)) + QStringLiteral("° ") +
           QLatin1String(degrees < 0.0F && shown > 0.0 ? negative : positive);
}

QFont captionFont(double textHeight, bool bold) {
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, roundToInt(textHeight)));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

MapCaption captionOf(const RunData& data, const std::vector<MapLayer>& layers,
                     const QDateTime& now) {
    MapCaption caption;
    const QString call = displayText(readStationInfo(data.ini).MyCall);
    caption.station = call + (call.isEmpty() ? QString() : QStringLiteral(", ")) +
                      coordinate(data.run.HomeLatitude, "N", "S") + QStringLiteral(", ") +
                      coordinate(data.run.HomeLongitude, "E", "W");
    for (const MapLayer& layer : layers) {
        const auto* const plot = std::get_if<PlotLayer>(&layer);
        if (plot == nullptr) {
            continue;
        }
        const PassCounters& n = data.tables.counters;
        const auto add = [&caption, plot](QsoStatus status, MapColour name, std::int32_t count) {
            const auto* const at = std::find(markLayers.begin(), markLayers.end(), status);
            caption.classes.push_back(
                {plot->style.outline,
                 plot->style.inner[static_cast<std::size_t>(at - markLayers.begin())],
                 displayText(namesOf(name).caption) + QLatin1Char(' ') +
                     english().toString(count)});
        };
        add(QsoStatus::Confirmed, MapColour::Confirmed, n.QsosConfirmed);
        add(QsoStatus::Worked, MapColour::Worked, n.QsosWorked);
        add(QsoStatus::Heard, MapColour::Heard, n.QsosHeard);
        caption.log = QStringLiteral("Log: ") + displayText(plot->log);
        caption.filter =
            QStringLiteral("Filter: ") +
            (plot->filter.empty() ? QStringLiteral("all contacts") : displayText(plot->filter));
    }
    caption.date = QStringLiteral("Created by Tovrel, ") +
                   english().toString(now, QStringLiteral("d MMMM yyyy, hh:mm")) +
                   (now.timeSpec() == Qt::UTC ? QStringLiteral(" UTC") : QString());
    return caption;
}

CaptionLayout::CaptionLayout(const MapCaption& caption, double width, double textHeight)
    : width_(width), textHeight_(textHeight), font_(captionFont(textHeight, false)) {
    addText(caption.station, captionFont(textHeight, true));
    newLine();
    for (const MapCaption::Class& entry : caption.classes) {
        addClass(entry);
    }
    newLine();
    for (const QString& text : {caption.log, caption.filter}) {
        if (!text.isEmpty()) {
            addText(text, font_);
        }
    }
    newLine();
    addText(caption.date, font_);
}

void CaptionLayout::newLine() {
    if (right_ > 0.0) {
        right_ = 0.0;
        top_ = bottom_ + lineGap * textHeight_;
    }
}

/// The text in lines of a width, to be put in its place.
QTextLayout& CaptionLayout::layOut(const QString& text, const QFont& font, double width) {
    QTextLayout& layout = texts_.emplace_back(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    double height = 0.0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0.0, height});
        height += line.height();
    }
    layout.endLayout();
    return layout;
}

/// Puts a text behind what stands in the line, or into a line of its own where it has no room.
void CaptionLayout::addText(const QString& text, const QFont& font) {
    QTextLayout& layout = layOut(text, font, width_);
    const double wanted = layout.lineCount() > 1 ? width_ : layout.lineAt(0).naturalTextWidth();
    if (right_ + wanted > width_) {
        newLine();
    }
    layout.setPosition({right_, top_});
    right_ += wanted + itemGap * textHeight_;
    bottom_ = std::max(bottom_, top_ + layout.boundingRect().height());
}

void CaptionLayout::addClass(const MapCaption::Class& entry) {
    const double indent = (dotWidth + dotGap) * textHeight_;
    QTextLayout& layout = layOut(entry.text, font_, width_ - indent);
    const double wanted = indent + layout.lineAt(0).naturalTextWidth();
    if (right_ + wanted > width_) {
        newLine();
    }
    const double height = layout.lineAt(0).height();
    dots_.push_back(
        {{right_ + dotWidth / 2.0 * textHeight_, top_ + height / 2.0}, entry.outline, entry.inner});
    layout.setPosition({right_ + indent, top_});
    right_ += wanted + itemGap * textHeight_;
    bottom_ = std::max(bottom_, top_ + layout.boundingRect().height());
}

void CaptionLayout::draw(QPainter& painter, QPointF topLeft) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const double ring = dotWidth * textHeight_ / 8.0;
    const double radius = (dotWidth * textHeight_ - ring) / 2.0;
    for (const Dot& dot : dots_) {
        painter.setPen(QPen(QColor::fromRgb(imageColour(dot.outline)), ring));
        painter.setBrush(QColor::fromRgb(imageColour(dot.inner)));
        painter.drawEllipse(topLeft + dot.middle, radius, radius);
    }
    painter.setPen(Qt::black);
    for (const QTextLayout& text : texts_) {
        text.draw(&painter, topLeft);
    }
}

} // namespace tovrel
