#pragma once

#include <QList>
#include <QMap>
#include <QRectF>
#include <QString>

#include <optional>

#include <functional>
#include <memory>

class QPainter;
class QPagedPaintDevice;
class QWidget;

class QTextStream;

namespace qlon {

// A named place on a section that prints a value.
class ReportCell
{
public:
    QString name;
    QRectF box; // in points, within the section
    int fontSize = 10;
    bool bold = false;
    Qt::Alignment alignment = Qt::AlignLeft;
    QString value;
    // A second text that the template engine kept beside the value; it doesn't print.
    QString text2;
};

// A band of the page: printed whole, one below the other, with its cells.
class ReportSection
{
public:
    QString name;
    double height = 0; // points
    QList<ReportCell> cells;

    // The cell of that name, or none.
    ReportCell *cell(const QString &cellName);
};

// Where a printed report goes: pages with sections on them.
class ReportOutput
{
public:
    virtual ~ReportOutput() = default;
    virtual double pageHeight() const = 0; // points
    virtual void beginPage(int number) = 0;
    virtual void printSection(const ReportSection &section, double top) = 0;
    virtual void finish() = 0;
};

// What a report printed, kept to be printed again on another output, as a print preview draws
// the same pages once for the screen and once for the printer.
class ReportRecording : public ReportOutput
{
public:
    explicit ReportRecording(double pageHeight)
        : m_pageHeight(pageHeight)
    {
    }
    double pageHeight() const override { return m_pageHeight; }
    void beginPage(int number) override { m_steps.append({number, {}, 0}); }
    void printSection(const ReportSection &section, double top) override { m_steps.append({0, section, top}); }
    void finish() override { }

    // Prints the same pages and sections on `output`, and finishes it.
    void replay(ReportOutput &output) const;

private:
    struct Step
    {
        int newPage; // the page that begins, or 0 for a section
        ReportSection section;
        double top;
    };
    double m_pageHeight;
    QList<Step> m_steps;
};

// The program's report engine: it loads a template of named sections and cells, prints
// sections by name down the pages, and tells its owner when a page begins and when the footer
// of a page is due, so that the owner fills and prints them.
//
// The template is a text file, one statement a line ("#" starts a comment):
//   section NAME HEIGHT
//   cell NAME X Y WIDTH HEIGHT FONTSIZE bold|plain left|center|right
//   label - X Y WIDTH HEIGHT FONTSIZE bold|plain left|center|right TEXT
// Lengths are in points (1/72 inch); a cell or label belongs to the section above it. Named
// cells print the value the program gives them, labels their own text.
class Report
{
public:
    explicit Report(std::unique_ptr<ReportOutput> output);
    ~Report();

    // False when the file can't be read or holds no section.
    bool LoadTemplate(const QString &hostPath);
    // The same, from a template's text.
    bool LoadTemplateText(QString text);
    void setFooterSection(const QString &name) { m_footerName = name; }
    void setMargins(int top, int bottom);

    int sectionCount() const { return int(m_sections.size()); }
    ReportSection *section(int index);
    ReportSection *section(const QString &name);

    // Prints the section below the last one; a section that doesn't fit above the footer starts
    // a new page. Nothing prints before a template has loaded.
    void PrintSection(const QString &name);
    // Ends the last page with its footer and finishes the document.
    void EndReport();
    int pageNumber() const { return m_page; }

    std::function<void()> onNewPage;
    std::function<void()> onPrintFooter;

private:
    bool readTemplate(QTextStream &lines);
    void startPage();
    void endPage();
    double footerHeight();

    std::unique_ptr<ReportOutput> m_output;
    QList<ReportSection> m_sections;
    QString m_footerName;
    int m_topMargin = 0;
    int m_bottomMargin = 0;
    int m_page = 0;
    double m_top = 0;
    bool m_inFooter = false;
    bool m_startingPage = false;
};

// Where the program's reports go when they are not for the default printer: a PDF file. When
// set, every report goes there; when empty, reports go to the default printer, or to a PDF
// beside the site's data when the machine has no printer.
void SetReportPdfPath(const QString &hostPath);

// Where reports go instead, for a test that records what prints; none restores the above.
using ReportOutputFactory = std::function<std::unique_ptr<ReportOutput>()>;
void SetReportOutputFactory(ReportOutputFactory factory);

// Where the next report goes: the output a test set, the PDF a script asked for, the current
// printer (see LinePrinter.h), or else a PDF at `fallbackPdf`. `pdfPath` receives the PDF's path, or an empty text.
std::unique_ptr<ReportOutput> ChooseReportOutput(const QString &fallbackPdf, QString *pdfPath);

// A print that went to a PDF says where it is, and on a desktop offers to open it; one that went
// to a printer says nothing.
void TellWherePrinted(QWidget *parent, const QString &pdfPath);

} // namespace qlon
