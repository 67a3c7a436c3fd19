#include "ui/Report.h"

#include "ui/Dialogs.h"
#include "ui/LinePrinter.h"

#include "core/RuntimeError.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPageSize>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScreen>
#include <QTextStream>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace qlon {

namespace {

constexpr double pointsPerInch = 72.0;

Qt::Alignment alignmentNamed(const QString &name)
{
    if (name == QLatin1String("right"))
        return Qt::AlignRight;
    if (name == QLatin1String("center"))
        return Qt::AlignHCenter;
    return Qt::AlignLeft;
}

// "NAME X Y WIDTH HEIGHT SIZE WEIGHT ALIGN" from the words of a cell or label line.
std::optional<ReportCell> cellOf(const QStringList &words)
{
    if (words.size() < 9)
        return std::nullopt;
    bool numbers = true;
    const auto number = [&](int index) {
        bool ok = false;
        const double value = words[index].toDouble(&ok);
        numbers = numbers && ok && std::isfinite(value) && value >= 0;
        return value;
    };
    ReportCell cell;
    cell.name = words[1];
    cell.box = QRectF(number(2), number(3), number(4), number(5));
    cell.fontSize = int(number(6));
    cell.bold = words[7] == QLatin1String("bold");
    cell.alignment = alignmentNamed(words[8]) | Qt::AlignVCenter;
    if (!numbers)
        return std::nullopt;
    return cell;
}

// Reports are laid out in points on a page as wide as Letter, the site's paper. A narrower paper,
// such as A4, takes the page scaled to its width, and longer in proportion.
constexpr double layoutWidth = 612;

QSizeF layoutPageOf(const QPrinter &printer)
{
    const QSizeF paper = printer.pageLayout().fullRectPoints().size();
    return paper.width() < layoutWidth ? paper * (layoutWidth / paper.width()) : paper;
}

// Letter, unless the printer's own paper is A4; the whole sheet, the template keeping its own
// margins, as on every road a report takes.
void choosePaper(QPrinter &printer, QPageSize::PageSizeId printersPaper)
{
    printer.setPageSize(QPageSize(printersPaper == QPageSize::A4 ? QPageSize::A4 : QPageSize::Letter));
    printer.setFullPage(true);
    printer.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Point);
}

class PrinterOutput : public ReportOutput
{
public:
    explicit PrinterOutput(std::unique_ptr<QPrinter> printer)
        : m_owned(std::move(printer))
        , m_printer(m_owned.get())
        , m_layoutPage(layoutPageOf(*m_printer))
    {
    }
    // Prints pages laid out for `layoutPage` on a printer that someone else keeps, such as a print
    // preview's: each page fits the paper chosen there, whatever it is.
    PrinterOutput(QPrinter *printer, QSizeF layoutPage)
        : m_printer(printer)
        , m_layoutPage(layoutPage)
    {
    }

    double pageHeight() const override { return m_layoutPage.height(); }

    void beginPage(int number) override
    {
        if (number == 1) {
            // A file that can't be opened now (a folder by that name, a full disk) ends the run
            // naming it, rather than printing nothing.
            if (!m_painter.begin(m_printer)) {
                const QString where = m_printer->outputFileName().isEmpty() ? m_printer->printerName() : m_printer->outputFileName();
                throw RuntimeError(RuntimeError::PathFileAccessError, where);
            }
            const QSizeF paper = m_printer->pageLayout().fullRectPoints().size();
            const double fit = std::min(paper.width() / m_layoutPage.width(), paper.height() / m_layoutPage.height());
            m_painter.scale(fit * m_printer->logicalDpiX() / pointsPerInch, fit * m_printer->logicalDpiY() / pointsPerInch);
        } else {
            m_printer->newPage();
        }
    }

    void printSection(const ReportSection &section, double top) override
    {
        for (const ReportCell &cell : section.cells) {
            // The painter works in points, so a font size in points is its size in units.
            QFont font(QStringLiteral("Sans Serif"));
            font.setPixelSize(cell.fontSize);
            font.setBold(cell.bold);
            m_painter.setFont(font);
            drawWithTabs(cell.box.translated(0, top), cell.alignment, cell.value);
        }
    }

    void finish() override
    {
        if (m_painter.isActive())
            m_painter.end();
    }

private:
    // A tab goes on to the next stop, eight average characters along.
    void drawWithTabs(QRectF box, Qt::Alignment alignment, const QString &text)
    {
        const QStringList pieces = text.split(QLatin1Char('\t'));
        const QFontMetricsF metrics(m_painter.font());
        const double tabStop = 8 * metrics.averageCharWidth();
        for (qsizetype index = 0; index < pieces.size(); ++index) {
            if (index > 0)
                box.setLeft(tabStop * (std::floor(box.left() / tabStop) + 1));
            m_painter.drawText(box, int(alignment), pieces[index]);
            box.setLeft(box.left() + metrics.horizontalAdvance(pieces[index]));
        }
    }

    std::unique_ptr<QPrinter> m_owned;
    QPrinter *m_printer;
    QSizeF m_layoutPage; // points
    QPainter m_painter;
};

// A report for a desktop user: kept while it prints, then shown in the system's print preview,
// whose print command asks for the printer in the system's print dialog.
class PreviewOutput : public ReportRecording
{
public:
    explicit PreviewOutput(std::unique_ptr<QPrinter> printer)
        : ReportRecording(layoutPageOf(*printer).height())
        , m_printer(std::move(printer))
    {
    }

    void finish() override
    {
        QPrintPreviewDialog preview(m_printer.get());
        QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, [this](QPrinter *printer) {
            // The pages were laid out for Letter's width or the A4 it scales to, and as long as recorded.
            PrinterOutput output(printer, QSizeF(layoutWidth, pageHeight()));
            replay(output);
        });
        // Large enough that its tool bar shows every command, Print among them.
        const QRect screen = preview.screen()->availableGeometry();
        preview.resize(QSize(1000, 800).boundedTo(screen.size()));
        preview.exec();
    }

private:
    std::unique_ptr<QPrinter> m_printer;
};

} // namespace

void ReportRecording::replay(ReportOutput &output) const
{
    for (const Step &step : m_steps) {
        if (step.newPage > 0)
            output.beginPage(step.newPage);
        else
            output.printSection(step.section, step.top);
    }
    output.finish();
}

ReportCell *ReportSection::cell(const QString &cellName)
{
    for (ReportCell &candidate : cells) {
        if (candidate.name == cellName)
            return &candidate;
    }
    return nullptr;
}

Report::Report(std::unique_ptr<ReportOutput> output)
    : m_output(std::move(output))
{
}

Report::~Report() = default;

bool Report::LoadTemplate(const QString &hostPath)
{
    m_sections.clear();
    QFile file(hostPath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    QTextStream lines(&file);
    return readTemplate(lines);
}

bool Report::LoadTemplateText(QString text)
{
    m_sections.clear();
    QTextStream lines(&text);
    return readTemplate(lines);
}

bool Report::readTemplate(QTextStream &lines)
{
    while (!lines.atEnd()) {
        const QString line = lines.readLine().trimmed();
        const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (words.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        if (words[0] == QLatin1String("section") && words.size() == 3) {
            bool isNumber = false;
            const double height = words[2].toDouble(&isNumber);
            // A template with a height that can't be measured is no template.
            if (!isNumber || !std::isfinite(height) || height < 0) {
                m_sections.clear();
                return false;
            }
            m_sections.append(ReportSection{words[1], height, {}});
        } else if ((words[0] == QLatin1String("cell") || words[0] == QLatin1String("label")) && !m_sections.isEmpty()) {
            std::optional<ReportCell> cell = cellOf(words);
            if (!cell)
                continue;
            // A label prints its own text, the rest of its line, and has no name to fill.
            if (words[0] == QLatin1String("label")) {
                cell->value = words.mid(9).join(QLatin1Char(' '));
                cell->name.clear();
            }
            m_sections.last().cells.append(*cell);
        }
    }
    return !m_sections.isEmpty();
}

void Report::setMargins(int top, int bottom)
{
    m_topMargin = top;
    m_bottomMargin = bottom;
}

ReportSection *Report::section(int index)
{
    return index >= 0 && index < m_sections.size() ? &m_sections[index] : nullptr;
}

ReportSection *Report::section(const QString &name)
{
    for (ReportSection &candidate : m_sections) {
        if (candidate.name.compare(name, Qt::CaseInsensitive) == 0)
            return &candidate;
    }
    return nullptr;
}

double Report::footerHeight()
{
    const ReportSection *footer = section(m_footerName);
    return footer ? footer->height : 0;
}

void Report::startPage()
{
    ++m_page;
    m_top = m_topMargin;
    m_output->beginPage(m_page);
    if (m_page > 1 && onNewPage) {
        m_startingPage = true;
        onNewPage();
        m_startingPage = false;
    }
}

void Report::endPage()
{
    m_inFooter = true;
    if (onPrintFooter)
        onPrintFooter();
    m_inFooter = false;
}

void Report::PrintSection(const QString &name)
{
    const ReportSection *printed = section(name);
    if (!printed)
        return;
    if (printed->name.compare(m_footerName, Qt::CaseInsensitive) == 0) {
        if (m_inFooter)
            m_output->printSection(*printed, m_output->pageHeight() - m_bottomMargin - printed->height);
        return;
    }
    // A section that doesn't fit goes to a fresh page, where it prints even if it doesn't fit
    // there either; the sections a new page opens with never turn it.
    if (m_page == 0)
        startPage();
    else if (!m_startingPage && m_top > m_topMargin && m_top + printed->height > m_output->pageHeight() - m_bottomMargin - footerHeight()) {
        endPage();
        startPage();
    }
    m_output->printSection(*printed, m_top);
    m_top += printed->height;
}

void Report::EndReport()
{
    if (m_page > 0)
        endPage();
    m_output->finish();
}

namespace {

QString reportPdfPath;
ReportOutputFactory outputFactory;

std::unique_ptr<ReportOutput> pdfOutput(const QString &pdfPath)
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(pdfPath);
    choosePaper(*printer, QPageSize::Letter);
    // The document's title, which a PDF viewer shows: "ItemsSold" for ItemsSold.pdf.
    printer->setDocName(QFileInfo(pdfPath).completeBaseName());
    return std::make_unique<PrinterOutput>(std::move(printer));
}

// A person at a desktop sees the report before it prints; a script or a run without a display
// prints at once.
bool previewsReports()
{
    return !Dialogs::scripted() && QGuiApplication::platformName() != QLatin1String("offscreen");
}

// The program's current printer, or the system's default.
std::unique_ptr<ReportOutput> printerOutput()
{
    const QPrinterInfo printer = CurrentPrinter().isEmpty() ? QPrinterInfo::defaultPrinter() : QPrinterInfo::printerInfo(CurrentPrinter());
    if (printer.isNull())
        return nullptr;
    auto output = std::make_unique<QPrinter>(printer, QPrinter::HighResolution);
    choosePaper(*output, printer.defaultPageSize().id());
    if (previewsReports())
        return std::make_unique<PreviewOutput>(std::move(output));
    return std::make_unique<PrinterOutput>(std::move(output));
}

} // namespace

void SetReportOutputFactory(ReportOutputFactory factory)
{
    outputFactory = std::move(factory);
}

void SetReportPdfPath(const QString &hostPath)
{
    reportPdfPath = hostPath;
}

// On a desktop the PDF is offered to open in the desktop's viewer.
void TellWherePrinted(QWidget *parent, const QString &pdfPath)
{
    if (pdfPath.isEmpty())
        return;
    const QString where = QStringLiteral("The report is in ") + pdfPath;
    if (Dialogs::scripted()) {
        Dialogs::noteForScript(where);
        return;
    }
    if (Dialogs::showMessage(parent, QStringLiteral("PRINT"), where + QStringLiteral("\n\nOpen it?"), MessageButtons::YesNo) !=
        MessageAnswer::Yes)
        return;
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(pdfPath)))
        Dialogs::showNote(parent, QStringLiteral("PRINT"), QStringLiteral("No program here opens PDF files. ") + where);
}

std::unique_ptr<ReportOutput> ChooseReportOutput(const QString &fallbackPdf, QString *pdfPath)
{
    pdfPath->clear();
    if (outputFactory)
        return outputFactory();
    if (reportPdfPath.isEmpty()) {
        if (std::unique_ptr<ReportOutput> printer = printerOutput())
            return printer;
    }
    *pdfPath = reportPdfPath.isEmpty() ? fallbackPdf : reportPdfPath;
    return pdfOutput(*pdfPath);
}

} // namespace qlon
