#pragma once

#include "ui/Report.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace qlon {

// The installed printers' device names, in the platform's order.
QStringList InstalledPrinters();

// The program's current printer, which every later print uses, reports included; empty for
// the system's default.
void SetCurrentPrinter(const QString &deviceName);
QString CurrentPrinter();

// The report printer of the site's configuration among the installed ones: the last whose device
// name begins with the trimmed name. An empty name begins every device name, so the last printer
// wins, deliberately; with no match the current printer stays.
QString ChooseReportPrinter(const QStringList &devices, QByteArrayView configuredName, const QString &current);
// Makes the site's report printer the current one, as the server sales paper and the Items Sold
// slip do before they print.
void SelectReportPrinter();

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
