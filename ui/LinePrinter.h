#pragma once

#include "ui/Report.h"

#include <QString>
#include <QStringList>

namespace qlon {

// The installed printers' device names, in the platform's order.
QStringList InstalledPrinters();

// The program's current printer, which every later print uses, reports included; empty for
// the system's default.
void SetCurrentPrinter(const QString &deviceName);
QString CurrentPrinter();

// A print job of the platform's printer object: text line after line at the left margin, in
// the printer's font at the size set, going on to a new page when one is full, with no header
// and no page number. Tabs print as tab stops.
class LinePrintJob
{
public:
    explicit LinePrintJob(std::unique_ptr<ReportOutput> output);

    void setFontSize(double size) { m_fontSize = size; }
    // One line; an empty text prints an empty line.
    void print(const QString &line = {});
    void endDoc();

private:
    std::unique_ptr<ReportOutput> m_output;
    double m_fontSize = 10;
    int m_page = 0;
    double m_top = 0;
};

} // namespace qlon
