#include "run/TipText.h"

#include "platform/ByteText.h"

#include <QTextDocument>

namespace tovrel {

QString toolTipText(const PlotTables& tables, const MapOptions& options, double mapY, double mapX) {
    constexpr std::size_t longest = 1500; // a screen full of calls
    constexpr qsizetype longestLine = 120;
    const TipParts parts{
        .latLong = options.chkLatLong, .country = options.chkCountry, .call = options.chkCall};
    QString tip;
    qsizetype line = 0;
    for (const std::string& bytes : tipStations(tables, parts, mapY, mapX, longest)) {
        const QString station = displayText(bytes);
        if (line > 0 && line + station.size() > longestLine) {
            tip += QLatin1Char('\n');
            line = 0;
        }
        tip += station;
        line += station.size();
    }
    if (!Qt::mightBeRichText(tip)) {
        return tip;
    }
    return QStringLiteral("<p style=\"white-space: pre\">") + tip.toHtmlEscaped() +
           QStringLiteral("</p>");
}

} // namespace tovrel
