#include "ui/LinePrinter.h"

#include "core/Ansi.h"
#include "core/FixedField.h"
#include "store/SiteConfig.h"

#include <QPrinterInfo>

namespace qlon {

namespace {

QString currentPrinter;

// The width of a line's box: the printable width of a Letter page with the printer's margins.
constexpr double lineWidth = 540;
constexpr double lineSpacing = 1.25;

} // namespace

QStringList InstalledPrinters()
{
    return QPrinterInfo::availablePrinterNames();
}

QString ChooseReportPrinter(const QStringList &devices, QByteArrayView configuredName, const QString &current)
{
    const QString name = FromAnsi(TrimBlanks(configuredName));
    QString chosen = current;
    for (const QString &device : devices) {
        if (device.left(name.size()) == name)
            chosen = device;
    }
    return chosen;
}

void SelectReportPrinter()
{
    SetCurrentPrinter(ChooseReportPrinter(InstalledPrinters(), Site().Config.trimmedField(IniRec2300::ReportPrinter), CurrentPrinter()));
}

void SetCurrentPrinter(const QString &deviceName)
{
    currentPrinter = deviceName;
}

QString CurrentPrinter()
{
    return currentPrinter;
}

LinePrintJob::LinePrintJob(std::unique_ptr<ReportOutput> output)
    : m_output(std::move(output))
{
}

void LinePrintJob::print(const QString &line)
{
    // A size of 0 or less reaches the printer as it stands; the smallest size prints it.
    const int size = qMax(1, qRound(m_fontSize));
    const double height = size * lineSpacing;
    if (m_page == 0 || m_top + height > m_output->pageHeight()) {
        m_output->beginPage(++m_page);
        m_top = 0;
    }
    ReportCell cell;
    cell.box = QRectF(0, 0, lineWidth, height);
    cell.fontSize = size;
    cell.alignment = Qt::AlignLeft | Qt::AlignVCenter;
    cell.value = line;
    m_output->printSection(ReportSection{QStringLiteral("line"), height, {cell}}, m_top);
    m_top += height;
}

void LinePrintJob::endDoc()
{
    m_output->finish();
}

} // namespace qlon
