#include "web/logic/SvgChart.h"

#include "web/logic/Html.h"

#include <algorithm>

namespace qlon::web {

namespace {

constexpr double width = 480;
constexpr double height = 220;
constexpr double left = 56; // room for the scale's amounts
constexpr double bottom = 36; // room for the labels
constexpr double top = 24; // room for the title

// A label under every bar while they fit, else under every n-th.
int labelStep(qsizetype bars)
{
    return int(std::max<qsizetype>(1, (bars + 11) / 12));
}

QString scale(double highest)
{
    QString lines;
    for (int step = 0; step <= 4; ++step) {
        const double value = highest * step / 4;
        const double y = height - bottom - (height - bottom - top) * step / 4;
        lines += QStringLiteral("<line x1=\"%1\" y1=\"%2\" x2=\"%3\" y2=\"%2\" stroke=\"#ddd\"/>"
                                "<text x=\"%4\" y=\"%5\" text-anchor=\"end\" font-size=\"10\">%6</text>")
                     .arg(left)
                     .arg(y)
                     .arg(width)
                     .arg(left - 4)
                     .arg(y + 3)
                     .arg(Escaped(MoneyText(value)));
    }
    return lines;
}

} // namespace

QString SvgBarChart(const QString &title, const QList<ChartBar> &bars)
{
    double highest = 0;
    for (const ChartBar &bar : bars)
        highest = std::max(highest, bar.value);
    if (highest <= 0)
        highest = 1;
    QString svg = QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %1 %2\" width=\"%1\" height=\"%2\" role=\"img\" "
                                 "aria-label=\"%3\"><title>%3</title><text x=\"%4\" y=\"14\" font-size=\"13\">%3</text>")
                      .arg(width)
                      .arg(height)
                      .arg(Escaped(title))
                      .arg(left);
    svg += scale(highest);
    const double slot = bars.isEmpty() ? 0 : (width - left) / double(bars.size());
    const int step = labelStep(bars.size());
    for (qsizetype index = 0; index < bars.size(); ++index) {
        const ChartBar &bar = bars[index];
        const double barHeight = (height - bottom - top) * std::max(0.0, bar.value) / highest;
        const double x = left + slot * double(index);
        svg +=
            QStringLiteral("<rect class=\"bar\" x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" fill=\"#3a6ea5\"><title>%5: %6</title></rect>")
                .arg(x + slot * 0.1)
                .arg(height - bottom - barHeight)
                .arg(slot * 0.8)
                .arg(barHeight)
                .arg(Escaped(bar.label), Escaped(MoneyText(bar.value)));
        if (index % step == 0) {
            svg += QStringLiteral("<text x=\"%1\" y=\"%2\" text-anchor=\"middle\" font-size=\"10\">%3</text>")
                       .arg(x + slot / 2)
                       .arg(height - bottom + 14)
                       .arg(Escaped(bar.label));
        }
    }
    return svg + QStringLiteral("</svg>");
}

} // namespace qlon::web
