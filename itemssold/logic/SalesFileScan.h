#pragma once

#include "itemssold/logic/CatalogueScan.h"

#include <QByteArrayList>
#include <QDate>

#include <QTime>

#include <functional>
#include <optional>
#include <vector>

namespace qlon {

// The span of a scan as the Items Sold screen gives it: dates as "MM/DD/YY", times as "12:00 am".
struct ScanSpan
{
    QByteArray fromDate;
    QByteArray toDate;
    QByteArray fromTime;
    QByteArray toTime;
};

// The span's limits as the scans test them: dates and times of day, none where a text can't be
// read.
struct ScanLimits
{
    explicit ScanLimits(const ScanSpan &span);

    std::optional<QDate> from;
    std::optional<QTime> fromTime;
    std::optional<QDate> to;
    std::optional<QTime> toTime;
};

// A sale's time as the scans compare it, in whole minutes as "HH:MM ampm" writes it: a span
// ending at 11:59 pm takes 11:59:30 PM.
QTime InWholeMinutes(QTime time);

// Walks the monthly files of the span from its from date, telling `progress` of each month and
// handing `readMonth` the host path of each file there is; a month whose file can't be read is
// passed over, but one a station holds past the wait ends the walk with the platform's error, as
// figures without that month would read as a quiet day. False when `readMonth` tells of a stop.
bool WalkMonthFiles(const ScanSpan &span, ScanProgress &progress, const std::function<bool(const QString &path)> &readMonth);

// A catalogue row with what the monthly files sold of it.
struct SoldRow
{
    QByteArray name; // field 1 of the catalogue row, as it stands
    QByteArray price; // field 2
    QByteArray department; // field 4
    double amount = 0; // the line prices, never times the quantity
    double quantity = 0;
};

struct SalesScan
{
    // The catalogue rows (4001 at the most) and the empty row past the last, which an empty
    // item name matches and which is never shown.
    std::vector<SoldRow> rows;
    // The items sold that no row names and that aren't modifiers, when the report takes them.
    QByteArrayList notReported;
    double giftCount = 0;
    double giftTotal = 0;
    // The class letter of the last catalogue row, which chooses the "not reported" message.
    QByteArray lastClass;
    int rejects = 0;
    bool stopped = false;
};

class NameIndex;

// A scan's table before any line is read: the catalogue rows (4001 at the most) with the empty
// row past the last, and `firstRow` given the first row of each trimmed name.
SalesScan ScanTable(const QByteArrayList &catalogueRows, NameIndex &firstRow);
// The row a line of the item counts on: the first with its trimmed name, case respected; -1 for
// none.
int MatchingRow(const NameIndex &firstRow, QByteArrayView item);
// A line whose item begins with "Gift" is counted apart, whatever its time.
bool IsGiftLine(QByteArrayView item);
// Whether a line that no row names goes to the items not reported under the report's letter:
// never a modifier, and only a line of the letter's own type unless the letter is "A" or "B".
bool ReportedMissing(QByteArrayView item, QByteArrayView type, QByteArrayView modeLetter);
// The letters of the reports ("F", "L", "B", "R", "A") that would report the line missing.
QByteArray ModesReportingMissing(QByteArrayView item, QByteArrayView type);
// The list's last row when gift cards sold: their count, "Gift Card & Reloads" and their sum.
QByteArray GiftRow(const SalesScan &scan);

// The scan of the monthly files over the span: every line in the span counts on the first
// catalogue row with its trimmed name, case respected; a line whose item begins with "Gift" is
// counted apart, whatever its time. `mode` gives the report's letter ("F", "L", "B", "R" or "A")
// as the options stand when each month's file opens. The span's hours bind only its first and
// last days.
SalesScan ScanSalesFiles(
    const QByteArrayList &catalogueRows, const ScanSpan &span, const std::function<QByteArray()> &mode, ScanProgress &progress);

// A row of the report: the list's "quantity|name|amount|price|department", the printable
// "quantity<tab>name<tab>amount", the amount, and the scan's row it shows.
struct ReportLine
{
    QByteArray listText;
    QByteArray printText;
    double amount = 0;
    std::size_t row = 0;
};

// The report's rows, for the rows that sold and bear a name; a name of up to 14 characters gets
// three blanks behind it.
std::vector<ReportLine> ReportLines(const SalesScan &scan);

} // namespace qlon
