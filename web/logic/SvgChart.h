#pragma once

#include <QList>
#include <QString>

namespace qlon::web {

struct ChartBar
{
    QString label;
    double value = 0;
};

// A bar chart as SVG, drawn whole on the server so that no script is needed to see it; each bar
// carries its label and amount as a title, which a browser shows on hover. Plain text in, so the
// desktop can draw the same chart later.
QString SvgBarChart(const QString &title, const QList<ChartBar> &bars);

} // namespace qlon::web
