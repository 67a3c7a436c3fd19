#pragma once

#include "ui/Report.h"

#include <QList>
#include <QMap>
#include <QStringList>

namespace qlon::test {

// What one printed section showed: its page, its name, its named cells and every cell's value.
struct Printed
{
    int page;
    QString section;
    QMap<QString, QString> cells;
    QStringList values;
};

// A report output that records what prints instead of printing it.
class RecordingOutput : public ReportOutput
{
public:
    RecordingOutput(QList<Printed> &record, double pageHeight)
        : m_record(record)
        , m_pageHeight(pageHeight)
    {
    }
    double pageHeight() const override { return m_pageHeight; }
    void beginPage(int number) override { m_page = number; }
    void printSection(const ReportSection &section, double) override
    {
        Printed printed{m_page, section.name, {}, {}};
        for (const ReportCell &cell : section.cells) {
            if (!cell.name.isEmpty())
                printed.cells.insert(cell.name, cell.value);
            printed.values.append(cell.value);
        }
        m_record.append(printed);
    }
    void finish() override { }

private:
    QList<Printed> &m_record;
    double m_pageHeight;
    int m_page = 0;
};

} // namespace qlon::test
