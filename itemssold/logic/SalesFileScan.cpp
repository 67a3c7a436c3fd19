#include "itemssold/logic/SalesFileScan.h"

#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/ErrorIgnoring.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/HostPath.h"
#include "store/MonthlySales.h"
#include "store/SiteConfig.h"

#include <QHash>

namespace qlon {

namespace {

constexpr int tableRows = 4001;

// Lines whose item begins so are modifiers, never reported missing. "ADD " stands twice, as it
// always did.
constexpr std::array<QByteArrayView, 10> modifierPrefixes = {
    "ADD ", "NO ", "ADD ", "Extra ", "Make ", "+ ", "Package ", "OnSide", "Heavy", "Lite"};

bool isModifier(const QByteArray &item)
{
    return std::any_of(modifierPrefixes.begin(), modifierPrefixes.end(), [&](QByteArrayView prefix) { return item.startsWith(prefix); });
}

// Whether the test holds; a date or time that can't be read leaves the line in, since the old
// test failed and was passed over.
bool before(const std::optional<QDate> &date, const std::optional<QDate> &limit)
{
    return date && limit && *date < *limit;
}

class Scanner
{
public:
    Scanner(const QByteArrayList &catalogueRows, const ScanSpan &span, ScanProgress &progress)
        : m_limits(span)
        , m_progress(progress)
    {
        load(catalogueRows);
    }

    // Reads one month's file; false when the user stopped.
    bool readMonth(const QString &path, const QByteArray &modeLetter);

    SalesScan result;

private:
    void load(const QByteArrayList &catalogueRows);
    // Notes the row about to be added as the one that counts the name, unless one before does.
    void firstRowFor(const QByteArray &name);
    enum class Outcome { Counted, Dropped, Stopped };
    Outcome take(const MonthlyRecord &record, const QByteArray &modeLetter);
    bool outsideDates(const std::optional<QDate> &date) const { return before(date, m_limits.from) || before(m_limits.to, date); }
    bool outsideHours(const std::optional<QDate> &date, const std::optional<QTime> &saleTime) const;

    ScanLimits m_limits;
    ScanProgress &m_progress;
    // The first row of each trimmed name: what a walk of the table from the top finds first.
    QHash<QByteArray, int> m_firstRow;
    MonthlyReadings m_readings;
};

void Scanner::load(const QByteArrayList &catalogueRows)
{
    for (const QByteArray &text : catalogueRows.mid(0, tableRows)) {
        const QByteArrayList fields = text.split('|');
        SoldRow row{fields.value(0), fields.value(1), fields.value(3)};
        firstRowFor(TrimBlanks(row.name));
        result.rows.push_back(row);
    }
    // Every row is split, also those past the table: the last one's class letter stays.
    if (!catalogueRows.isEmpty())
        result.lastClass = catalogueRows.last().split('|').value(2);
    firstRowFor({});
    result.rows.push_back({});
}

void Scanner::firstRowFor(const QByteArray &name)
{
    if (!m_firstRow.contains(name))
        m_firstRow.insert(name, int(result.rows.size()));
}

// The span's hours bind only its first and last days.
bool Scanner::outsideHours(const std::optional<QDate> &date, const std::optional<QTime> &saleTime) const
{
    if (!date || !saleTime)
        return false;
    const QTime time = InWholeMinutes(*saleTime);
    const ScanLimits &limits = m_limits;
    return (limits.from && *date == *limits.from && limits.fromTime && time < *limits.fromTime) ||
        (limits.to && *date == *limits.to && limits.toTime && time > *limits.toTime);
}

Scanner::Outcome Scanner::take(const MonthlyRecord &record, const QByteArray &modeLetter)
{
    const std::optional<QDate> date = m_readings.date(record[SoldDate]);
    if (outsideDates(date))
        return Outcome::Dropped;
    const QByteArray type = NormalizedType(record[SoldType]);
    const double price = m_readings.price(record[SoldPrice]);
    if (m_progress.stopRequested())
        return Outcome::Stopped;
    const QByteArray &item = record[SoldItem];
    if (item.startsWith("Gift")) {
        ++result.giftCount;
        result.giftTotal += NumericValue(record[SoldPrice]);
        return Outcome::Counted;
    }
    if (outsideHours(date, m_readings.time(record[SoldTime])))
        return Outcome::Dropped;
    const auto found = m_firstRow.constFind(TrimBlanks(item));
    if (found != m_firstRow.constEnd()) {
        SoldRow &row = result.rows[*found];
        row.quantity += m_readings.quantity(record[SoldQuantity]);
        row.amount += price;
        return Outcome::Counted;
    }
    if (isModifier(item))
        return Outcome::Dropped;
    if (modeLetter == "A" || modeLetter == "B" || modeLetter == type) {
        result.notReported.append(item);
        return Outcome::Counted;
    }
    return Outcome::Dropped;
}

bool Scanner::readMonth(const QString &path, const QByteArray &modeLetter)
{
    CloseAll();
    MonthlySalesFile month(path, HostPath(Site().SiteRoot + "Items.tmp"));
    m_progress.setMaximum(100);
    int shown = -1;
    while (const std::optional<MonthlyRecord> record = month.next()) {
        // A line that can't be converted leaves the figures as they were.
        Outcome outcome = Outcome::Dropped;
        SkipOnFailure([&] { outcome = take(*record, modeLetter); });
        if (outcome == Outcome::Stopped)
            return false;
        if (outcome == Outcome::Counted || month.size() == 0)
            continue;
        // Only a dropped line moves the figure, in whole percent of the file read.
        const int percent = int((month.position() / 128 * 128) * 100 / month.size());
        if (percent != shown)
            m_progress.setValue(shown = percent);
    }
    result.rejects += month.rejects();
    return true;
}

} // namespace

ScanLimits::ScanLimits(const ScanSpan &span)
    : from(ToDate(span.fromDate))
    , fromTime(ToTime(span.fromTime))
    , to(ToDate(span.toDate))
    , toTime(ToTime(span.toTime))
{
}

QTime InWholeMinutes(QTime time)
{
    return QTime(time.hour(), time.minute());
}

bool WalkMonthFiles(const ScanSpan &span, ScanProgress &progress, const std::function<bool(const QString &path)> &readMonth)
{
    for (const QDate &month : MonthWalk(span.fromDate)) {
        const QString path = HostPath(MonthFileName(month));
        if (!FileExists(path))
            continue;
        progress.monthStarted(month);
        bool stopped = false;
        SkipOnFailure([&] { stopped = !readMonth(path); });
        if (stopped)
            return false;
    }
    return true;
}

SalesScan ScanSalesFiles(
    const QByteArrayList &catalogueRows, const ScanSpan &span, const std::function<QByteArray()> &mode, ScanProgress &progress)
{
    Scanner scanner(catalogueRows, span, progress);
    scanner.result.stopped = !WalkMonthFiles(span, progress, [&](const QString &path) { return scanner.readMonth(path, mode()); });
    CloseAll();
    return scanner.result;
}

std::vector<ReportLine> ReportLines(const SalesScan &scan)
{
    std::vector<ReportLine> lines;
    for (const SoldRow &row : scan.rows) {
        const QByteArray trimmed = TrimBlanks(row.name);
        if (row.quantity == 0 || trimmed.isEmpty() || trimmed == "Avaliable")
            continue;
        const QByteArray name = row.name.size() <= 14 ? row.name + "   " : row.name;
        const QByteArray quantity = PlainNumber(row.quantity);
        const QByteArray amount = Currency(row.amount);
        lines.push_back({quantity + '|' + name + '|' + amount + '|' + row.price + '|' + row.department,
            quantity + '\t' + name + '\t' + amount, row.amount});
    }
    return lines;
}

} // namespace qlon
