#include "serversales/ServerPaper.h"

#include "core/Ansi.h"
#include "core/Clock.h"
#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/HostPath.h"
#include "core/ListRows.h"
#include "core/TextFile.h"
#include "store/SiteConfig.h"
#include "ui/LinePrinter.h"

namespace qlon {

namespace {

const QString rule(32, QLatin1Char('='));

LinePrintJob startJob(QString *pdfPath)
{
    SelectReportPrinter(); // Get_Drink
    LinePrintJob job(ChooseReportOutput(HostPath(DataPath("ServerSales.pdf")), pdfPath));
    job.setFontSize(NumericValue(Site().Config.field(IniRec2300::ReportFontSize)));
    return job;
}

void printLines(LinePrintJob &job, const QStringList &lines)
{
    for (const QString &line : lines)
        job.print(line);
}

// Each value of the file as one line. A file that isn't there is the platform's file error.
void printValues(LinePrintJob &job, QByteArrayView listName)
{
    CloseAll();
    TextFile list(HostPath(Site().SiteRoot + "Temp\\" + listName.toByteArray()), TextFile::Mode::Input);
    while (!list.AtEnd())
        job.print(FromAnsi(list.ReadField()));
    CloseAll();
}

} // namespace

QString PrintServerSummary(const ServerSummary &summary)
{
    QString pdfPath;
    LinePrintJob job = startJob(&pdfPath);
    printLines(job,
        {rule, QStringLiteral("ServerSales Report"), FromAnsi(ShortDate(Today())), rule, QStringLiteral("Server ID      ") + summary.server,
            QStringLiteral("Sales Date    ") + summary.salesDate, QStringLiteral("Total Sales   ") + summary.totalSales,
            QStringLiteral("Total Liquor  ") + summary.liquorSales, QStringLiteral("Total Food    ") + summary.foodSales, QString(),
            QStringLiteral("end Report  "), QString(), rule});
    job.endDoc();
    return pdfPath;
}

QString PrintServerList()
{
    QString pdfPath;
    LinePrintJob job = startJob(&pdfPath);
    printLines(job, {rule, QStringLiteral("ServerSales Report"), QStringLiteral("Items Sold List"), rule});
    printValues(job, "TempList.Tmp");
    printLines(job,
        {rule, QStringLiteral(" END REPORT Items Sold"), QLatin1Char(' ') + FromAnsi(Format(Today(), "DDDD mm/dd/yyyy")),
            QStringLiteral(" "), QStringLiteral(" "), QStringLiteral(" "), rule, QStringLiteral("     ****   TOTALS   ***"), rule});
    printValues(job, "TempList2.Tmp");
    job.endDoc();
    return pdfPath;
}

QString PrintWorkerList(const ListRows &rows)
{
    QString pdfPath;
    LinePrintJob job = startJob(&pdfPath);
    printLines(job, {rule, QStringLiteral("ServerSales Report"), QStringLiteral("Items Sold List"), rule});
    for (int row = 1; row < rows.rowCount(); ++row)
        job.print(FromAnsi(rows.rowText(row)));
    job.print(rule);
    job.endDoc();
    return pdfPath;
}

} // namespace qlon
