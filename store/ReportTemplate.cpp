#include "store/ReportTemplate.h"

#include <QFile>
#include <QTextStream>

namespace qlon {

namespace {
bool defaultWhenMissing = false;
} // namespace

void UseDefaultTemplateWhenMissing(bool use)
{
    defaultWhenMissing = use;
}

bool UsesDefaultTemplateWhenMissing()
{
    return defaultWhenMissing;
}

bool WriteItemsSoldTemplate(const QString &hostPath)
{
    QFile file(hostPath);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        return false;
    QTextStream out(&file);
    out << ItemsSoldTemplateText();
    return out.status() == QTextStream::Ok;
}

QString ItemsSoldTemplateText()
{
    QString text;
    QTextStream out(&text);
    out << "# The Items Sold report: the span on top, the items three across (units, name,\n"
           "# volume), the grand total, and the page number at the foot of each page.\n"
           "# section NAME HEIGHT / cell NAME X Y WIDTH HEIGHT SIZE bold|plain left|center|right\n"
           "# label - X Y WIDTH HEIGHT SIZE bold|plain left|center|right TEXT (lengths in points)\n"
           "section top 74\n"
           "label - 36 18 540 22 16 bold center Items Sold\n"
           "label - 36 44 40 16 10 plain left From\n"
           "cell T1 76 44 100 16 10 bold left\n"
           "label - 186 44 24 16 10 plain left To\n"
           "cell T2 210 44 100 16 10 bold left\n"
           "cell T3 330 44 246 16 10 bold right\n";
    for (int group = 0; group < 3; ++group) {
        const int left = 36 + group * 182;
        out << (group == 0 ? "section mid 16\n" : "");
        out << "cell T" << group + 1 << "1 " << left << " 0 30 16 9 plain right\n"
            << "cell T" << group + 1 << "2 " << left + 34 << " 0 92 16 9 plain left\n"
            << "cell T" << group + 1 << "3 " << left + 126 << " 0 54 16 9 plain right\n";
    }
    out << "section Bottom 34\n"
           "label - 330 10 140 18 11 bold right Total Sales\n"
           "cell TS 476 10 100 18 11 bold right\n"
           "section Footer 24\n"
           "label - 256 4 40 16 9 plain right Page\n"
           "cell T13 300 4 40 16 9 plain left\n";
    return text;
}

} // namespace qlon
