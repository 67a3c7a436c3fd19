#include "itemssold/logic/SalesFileScan.h"

#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/ErrorIgnoring.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/HostPath.h"
#include "itemssold/logic/NameIndex.h"
#include "store/MonthlySales.h"
#include "store/SiteConfig.h"

namespace qlon {

namespace {

constexpr int tableRows = 4001;

// Lines whose item begins so are modifiers, never reported missing. "ADD " stands twice, as it
// always did.
constexpr std::array<QByteArrayView, 10> modifierPrefixes = {
    "ADD ", "NO ", "ADD ", "Extra ", "Make ", "+ ", "Package ", "OnSide", "Heavy", "Lite"};

bool isModifier(QByteArrayView item)
{
    return std::any_of(modifierPrefixes.begin(), modifierPrefixes.end(), [&](QByteArrayView prefix) { return item.startsWith(prefix); });
}

constexpr std::array<QByteArrayView, 5> modeLetters = {"F", "L", "B", "R", "A"};

MonthlyRecordView viewsOf(const MonthlyRecord &record)
{
    MonthlyRecordView views;
    std::copy(record.begin(), record.end(), views.begin());
    return views;
}

// The view's bytes as a QByteArray for a lookup, without a copy: it holds as long as the view.
QByteArray unowned(QByteArrayView view)
{
    return QByteArray::fromRawData(view.data(), view.size());
}

QString rejectFilePath()
{
    return HostPath(Site().SiteRoot + "Items.tmp");
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
    // The scan with what each row sold.
    SalesScan counted() const;

    SalesScan result;

private:
    void load(const QByteArrayList &catalogueRows);
    enum class MonthEnd { Read, Stopped, OutOfStep };
    // The month's records as views of the file's own bytes, as long as every one is in step.
    MonthEnd readInStep(const QString &path, const QByteArray &modeLetter);
    // The month through the store's reader, which writes the records out of step to the reject file.
    bool readRecordByRecord(const QString &path, const QByteArray &modeLetter);
    // Takes each record that `next` hands out; false when the user stopped.
    template<typename Next>
    bool takeRecords(const MonthlySalesFile &month, const QByteArray &modeLetter, Next &&next);
    enum class Outcome { Counted, Dropped, Stopped };
    // A line that can't be converted leaves the figures as they were.
    Outcome takeOrPassOver(const MonthlyRecordView &record, const QByteArray &modeLetter);
    Outcome take(const MonthlyRecordView &record, const QByteArray &modeLetter);
    bool outsideDates(const std::optional<QDate> &date) const { return before(date, m_limits.from) || before(m_limits.to, date); }
    bool outsideHours(const std::optional<QDate> &date, QByteArrayView timeText);
    void monthOpened();
    // Only a dropped line moves the figure, in whole percent of the file read.
    void showProgress(qint64 position, qint64 size);

    ScanLimits m_limits;
    ScanProgress &m_progress;
    NameIndex m_firstRow;
    MonthlyReadings m_readings;
    // What each row sold, by row, apart from the rows' texts: a line's sum lies in a small table
    // that stays in the processor's cache.
    struct Sold
    {
        double quantity = 0;
        double amount = 0;
    };
    std::vector<Sold> m_sold;
    int m_shownPercent = -1;
};

void Scanner::load(const QByteArrayList &catalogueRows)
{
    result = ScanTable(catalogueRows, m_firstRow);
    m_sold.resize(result.rows.size());
}

SalesScan Scanner::counted() const
{
    SalesScan scan = result;
    for (std::size_t row = 0; row < m_sold.size(); ++row) {
        scan.rows[row].quantity = m_sold[row].quantity;
        scan.rows[row].amount = m_sold[row].amount;
    }
    return scan;
}

// The span's hours bind only its first and last days; the time is read only on those.
bool Scanner::outsideHours(const std::optional<QDate> &date, QByteArrayView timeText)
{
    const ScanLimits &limits = m_limits;
    const bool firstDay = date && limits.from && *date == *limits.from && limits.fromTime;
    const bool lastDay = date && limits.to && *date == *limits.to && limits.toTime;
    if (!firstDay && !lastDay)
        return false;
    const std::optional<QTime> saleTime = m_readings.time(unowned(timeText));
    if (!saleTime)
        return false;
    const QTime time = InWholeMinutes(*saleTime);
    return (firstDay && time < *limits.fromTime) || (lastDay && time > *limits.toTime);
}

Scanner::Outcome Scanner::take(const MonthlyRecordView &record, const QByteArray &modeLetter)
{
    const std::optional<QDate> date = m_readings.date(unowned(record[SoldDate]));
    if (outsideDates(date))
        return Outcome::Dropped;
    const double price = m_readings.price(unowned(record[SoldPrice]));
    if (m_progress.stopRequested())
        return Outcome::Stopped;
    const QByteArrayView item = record[SoldItem];
    if (IsGiftLine(item)) {
        ++result.giftCount;
        result.giftTotal += NumericValue(record[SoldPrice]);
        return Outcome::Counted;
    }
    if (outsideHours(date, record[SoldTime]))
        return Outcome::Dropped;
    const int row = MatchingRow(m_firstRow, item);
    if (row >= 0) {
        Sold &sold = m_sold[std::size_t(row)];
        sold.quantity += m_readings.quantity(unowned(record[SoldQuantity]));
        sold.amount += price;
        return Outcome::Counted;
    }
    if (ReportedMissing(item, record[SoldType], modeLetter)) {
        result.notReported.append(item.toByteArray());
        return Outcome::Counted;
    }
    return Outcome::Dropped;
}

Scanner::Outcome Scanner::takeOrPassOver(const MonthlyRecordView &record, const QByteArray &modeLetter)
{
    Outcome outcome = Outcome::Dropped;
    SkipOnFailure([&] { outcome = take(record, modeLetter); });
    return outcome;
}

void Scanner::monthOpened()
{
    m_progress.setMaximum(100);
    m_shownPercent = -1;
}

void Scanner::showProgress(qint64 position, qint64 size)
{
    if (size == 0)
        return;
    const int percent = int((position / 128 * 128) * 100 / size);
    if (percent != m_shownPercent)
        m_progress.setValue(m_shownPercent = percent);
}

bool Scanner::readMonth(const QString &path, const QByteArray &modeLetter)
{
    CloseAll();
    const SalesScan atMonthStart = result;
    const std::vector<Sold> soldAtMonthStart = m_sold;
    switch (readInStep(path, modeLetter)) {
    case MonthEnd::Read: return true;
    case MonthEnd::Stopped: return false;
    case MonthEnd::OutOfStep: break;
    }
    // The month counts again from its start, this time with its rejects.
    result = atMonthStart;
    m_sold = soldAtMonthStart;
    return readRecordByRecord(path, modeLetter);
}

Scanner::MonthEnd Scanner::readInStep(const QString &path, const QByteArray &modeLetter)
{
    MonthlySalesFile month(path, rejectFilePath());
    if (!takeRecords(month, modeLetter, [&] { return month.nextInStep(); }))
        return MonthEnd::Stopped;
    return month.outOfStep() ? MonthEnd::OutOfStep : MonthEnd::Read;
}

bool Scanner::readRecordByRecord(const QString &path, const QByteArray &modeLetter)
{
    MonthlySalesFile month(path, rejectFilePath());
    std::optional<MonthlyRecord> record;
    const bool read = takeRecords(month, modeLetter, [&] {
        record = month.next();
        return record ? std::optional(viewsOf(*record)) : std::nullopt;
    });
    if (!read)
        return false;
    result.rejects += month.rejects();
    return true;
}

template<typename Next>
bool Scanner::takeRecords(const MonthlySalesFile &month, const QByteArray &modeLetter, Next &&next)
{
    monthOpened();
    while (const std::optional<MonthlyRecordView> record = next()) {
        const Outcome outcome = takeOrPassOver(*record, modeLetter);
        if (outcome == Outcome::Stopped)
            return false;
        if (outcome == Outcome::Dropped)
            showProgress(month.position(), month.size());
    }
    return true;
}

} // namespace

SalesScan ScanTable(const QByteArrayList &catalogueRows, NameIndex &firstRow)
{
    SalesScan scan;
    for (const QByteArray &text : catalogueRows.mid(0, tableRows)) {
        const QByteArrayList fields = text.split('|');
        SoldRow row{fields.value(0), fields.value(1), fields.value(3)};
        firstRow.add(TrimBlanks(row.name), int(scan.rows.size()));
        scan.rows.push_back(row);
    }
    // Every row is split, also those past the table: the last one's class letter stays.
    if (!catalogueRows.isEmpty())
        scan.lastClass = catalogueRows.last().split('|').value(2);
    firstRow.add({}, int(scan.rows.size()));
    scan.rows.push_back({});
    return scan;
}

int MatchingRow(const NameIndex &firstRow, QByteArrayView item)
{
    return firstRow.find(WithinBlanks(item));
}

bool IsGiftLine(QByteArrayView item)
{
    return item.startsWith("Gift");
}

bool ReportedMissing(QByteArrayView item, QByteArrayView type, QByteArrayView modeLetter)
{
    if (isModifier(item))
        return false;
    return modeLetter == "A" || modeLetter == "B" || modeLetter == NormalizedType(type);
}

QByteArray ModesReportingMissing(QByteArrayView item, QByteArrayView type)
{
    QByteArray modes;
    for (const QByteArrayView mode : modeLetters) {
        if (ReportedMissing(item, type, mode))
            modes.append(mode);
    }
    return modes;
}

QByteArray GiftRow(const SalesScan &scan)
{
    return PlainNumber(scan.giftCount) + "|Gift Card & Reloads|" + Currency(scan.giftTotal);
}

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
    return scanner.counted();
}

std::vector<ReportLine> ReportLines(const SalesScan &scan)
{
    std::vector<ReportLine> lines;
    for (std::size_t index = 0; index < scan.rows.size(); ++index) {
        const SoldRow &row = scan.rows[index];
        const QByteArray trimmed = TrimBlanks(row.name);
        if (row.quantity == 0 || trimmed.isEmpty() || trimmed == "Avaliable")
            continue;
        const QByteArray name = row.name.size() <= 14 ? row.name + "   " : row.name;
        const QByteArray quantity = PlainNumber(row.quantity);
        const QByteArray amount = Currency(row.amount);
        lines.push_back({quantity + '|' + name + '|' + amount + '|' + row.price + '|' + row.department,
            quantity + '\t' + name + '\t' + amount, row.amount, index});
    }
    return lines;
}

} // namespace qlon
