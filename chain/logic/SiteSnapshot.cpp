#include "chain/logic/SiteSnapshot.h"

#include "chain/logic/ChainDatabase.h"
#include "core/Ansi.h"
#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/HostPath.h"
#include "core/Memo.h"
#include "core/RecordFile.h"
#include "itemssold/logic/CatalogueScan.h"
#include "itemssold/logic/SalesFileScan.h"
#include "listbuilder/logic/LoadList.h"
#include "serversales/logic/SpanSales.h"
#include "store/Departments.h"
#include "store/ItemRec500.h"
#include "store/MonthlySales.h"
#include "store/SiteConfig.h"

#include <QCryptographicHash>
#include <QTemporaryDir>

#include <array>
#include <cmath>
#include <optional>

namespace qlon {

namespace {

// The columns whose null keeps the text of the item's row before, as the reports' walks keep it.
constexpr std::array<SalesColumn, 4> carriedColumns{Time, UnitPrice, Quantity, ReceiptID};

// How the rows of a site are read: the memos of the texts that repeat, and what each item's rows
// leave to the rows after them.
class SalesRowWriter
{
public:
    // The date of the row, read once for each text of a date.
    const RowDate &dateOf(const SalesRow &row)
    {
        const QByteArray orderDate = trimmed(row[OrderDate]);
        return m_dates.get(orderDate, [&orderDate] { return ReadRowDate(orderDate); });
    }

    void append(qint64 seq, const RowDate &date, const SalesRow &row, QByteArray &line)
    {
        // A null item keeps the item of the row before it, and a null time, price, quantity or
        // receipt the value of the item's row before, as the reports' walks do. A value taken so
        // comes with the date and time of its row, since it counts only when that row lies in the
        // report's select too. A row whose date can't be read lies in no select: it leaves nothing.
        const bool selectable = !date.day.isEmpty();
        const QByteArray item = row[Item] ? TrimBlanks(*row[Item]) : m_item;
        if (selectable)
            m_item = item;
        std::array<std::optional<CarriedValue>, carriedColumns.size()> &carried = m_carried[item];
        line.append(QByteArray::number(seq));
        appendPlain(line, date.day);
        appendPlain(line, date.at);
        for (std::size_t slot = 0; slot < carriedColumns.size(); ++slot) {
            const SalesColumn column = carriedColumns[slot];
            CarriedValue value;
            if (row[column]) {
                value.field = fieldOf(column, TrimBlanks(*row[column]));
                if (selectable)
                    carried[slot] = CarriedValue{value.field, date.at};
            } else {
                value = carried[slot].value_or(CarriedValue{fieldOf(column, {}), {}});
            }
            line.append('\t');
            line.append(value.field);
            appendPlain(line, value.from);
        }
        appendText(line, item);
        appendText(line, row[ItemType]);
        for (const SalesValue &raw : {row[Item], row[OrderDate], row[Time], row[UnitPrice], row[Quantity]})
            appendText(line, raw);
        line.append('\n');
    }

private:
    // A column's value in COPY's form, as the reports read it: the time of day, the price in
    // cents rounded as Calculate Sales adds it, the quantity's numeric value, the text.
    QByteArray fieldOf(SalesColumn column, const QByteArray &text)
    {
        switch (column) {
        case Time: {
            const std::optional<QTime> soldAt = SaleTime(text, m_times);
            return soldAt ? soldAt->toString(Qt::ISODateWithMs).toLatin1() : CopyNull.toByteArray();
        }
        case UnitPrice: return QByteArray::number(std::llround(LinePrice(text, m_prices) * 100));
        case Quantity: return QByteArray::number(NumericValue(text), 'g', 17);
        default: {
            QByteArray field;
            AppendCopyText(field, FromAnsi(text).toUtf8());
            return field;
        }
        }
    }

    static QByteArray trimmed(const SalesValue &value) { return value ? TrimBlanks(*value) : QByteArray(); }

    // A value that needs no escaping; empty stands for null.
    static void appendPlain(QByteArray &line, const QByteArray &value)
    {
        line.append('\t');
        line.append(value.isEmpty() ? CopyNull : QByteArrayView(value));
    }

    // A text of the site, trimmed, in UTF-8.
    static void appendText(QByteArray &line, const SalesValue &value)
    {
        line.append('\t');
        if (!value)
            line.append(CopyNull);
        else
            AppendCopyText(line, FromAnsi(TrimBlanks(*value)).toUtf8());
    }

    // A value as the row that left it read, and that row's date and time; no date and time for
    // the row's own value.
    struct CarriedValue
    {
        QByteArray field;
        QByteArray from;
    };

    QByteArray m_item;
    QHash<QByteArray, std::array<std::optional<CarriedValue>, carriedColumns.size()>> m_carried;
    Memo<QByteArray, RowDate> m_dates;
    Memo<QByteArray, std::optional<QTime>> m_times;
    Memo<QByteArray, double> m_prices;
};

QByteArray digestOf(const QByteArray &lines)
{
    return QCryptographicHash::hash(lines, QCryptographicHash::Sha1).toHex();
}

// Every item of the merged catalogue as Load List takes it with every category chosen; the
// category of a report is chosen from the type.
void readCatalogue(SiteSnapshot &snapshot)
{
    const QByteArray listBuilderCopy = DataPath("Temp\\TempInvLB.dat");
    const QByteArray path = FileExists(HostPath(listBuilderCopy)) ? listBuilderCopy : DataPath("Temp\\TempInv.dat");
    QList<ListedItem> items;
    if (FileExists(HostPath(path))) {
        RecordFile &catalogue = Files().OpenRandom(1, HostPath(path), ItemRec500::size);
        CategoryChoice every;
        every.all = true;
        items = ListItems(catalogue, every);
        CloseAll();
    }
    int position = 0;
    for (const ListedItem &item : items) {
        QByteArray &line = snapshot.catalogueLines;
        line.append(QByteArray::number(position++) + '\t');
        AppendCopyText(line, FromAnsi(item.text).toUtf8());
        line.append('\t');
        AppendCopyText(line, FromAnsi(item.tag).toUtf8());
        line.append('\t');
        AppendCopyText(line, FromAnsi(item.text.split('|').value(1)).toUtf8());
        line.append('\n');
    }
    snapshot.catalogueDigest = digestOf(snapshot.catalogueLines);
}

// The main screen's category box: the site's departments, blank lines left out.
void readDepartments(SiteSnapshot &snapshot)
{
    const QString path = HostPath(DataPath("data\\Departments.dat"));
    const QByteArrayList names = FileExists(path) ? ReadDepartmentNames(path) : MainScreenDepartments();
    int position = 0;
    for (const QByteArray &name : names) {
        const QByteArray trimmed = TrimBlanks(name);
        if (trimmed.isEmpty())
            continue;
        snapshot.departmentLines.append(QByteArray::number(position++) + '\t');
        AppendCopyText(snapshot.departmentLines, FromAnsi(trimmed).toUtf8());
        snapshot.departmentLines.append('\n');
    }
    snapshot.departmentsDigest = digestOf(snapshot.departmentLines);
}

// A text of the site in COPY's form, in UTF-8.
void appendSiteText(QByteArray &line, QByteArrayView text)
{
    line.append('\t');
    AppendCopyText(line, FromAnsi(text).toUtf8());
}

void appendNumber(QByteArray &line, double value)
{
    line.append('\t');
    line.append(QByteArray::number(value, 'g', 17));
}

// A month file's line as the Items Sold scan reads it, in COPY's form (without the site).
void appendMonthlyLine(QByteArray &line, QDate month, qint64 seq, const MonthlyRecord &record, MonthlyReadings &readings)
{
    const std::optional<QDate> day = readings.date(record[SoldDate]);
    const std::optional<QTime> time = readings.time(record[SoldTime]);
    line.append(month.toString(Qt::ISODate).toLatin1() + '\t' + QByteArray::number(seq) + '\t');
    line.append(day ? day->toString(Qt::ISODate).toLatin1() : CopyNull.toByteArray());
    line.append('\t');
    line.append(time ? InWholeMinutes(*time).toString(Qt::ISODate).toLatin1() : CopyNull.toByteArray());
    appendNumber(line, readings.quantity(record[SoldQuantity]));
    appendNumber(line, readings.price(record[SoldPrice]));
    if (IsGiftLine(record[SoldItem])) {
        appendNumber(line, NumericValue(record[SoldPrice]));
    } else {
        line.append('\t');
        line.append(CopyNull);
    }
    line.append('\t' + ModesReportingMissing(record[SoldItem], record[SoldType]));
    appendSiteText(line, WithinBlanks(record[SoldItem]));
    for (const MonthlyField field : {SoldDate, SoldQuantity, SoldItem, SoldPrice, SoldType, SoldTime})
        appendSiteText(line, record[field]);
    line.append('\n');
}

// The key of a file's day: its month and the day, or the month alone.
QByteArray monthDayKey(QDate month, const std::optional<QDate> &day)
{
    return month.toString(Qt::ISODate).toLatin1() + ' ' + (day ? day->toString(Qt::ISODate).toLatin1() : QByteArray());
}

// A scan that nobody watches and nobody stops.
class SilentProgress : public ScanProgress
{
public:
    void setMaximum(int) override { }
    void setValue(int) override { }
    bool stopRequested() override { return false; }
};

// The Items Sold catalogue of each report option, as the screen sorts and thins it for a scan,
// and the screen's departments.
void readItemLists(SiteSnapshot &snapshot)
{
    const std::pair<const char *, ReportOptions> options[] = {{"food", {true, false, false, false, false}},
        {"bar", {false, true, false, false, false}}, {"both", {false, false, true, false, false}},
        {"retail", {false, false, false, true, false}}, {"all", {false, false, false, false, true}}};
    SilentProgress silent;
    const auto appendList = [&](const char *list, const QByteArrayList &rows) {
        for (qsizetype position = 0; position < rows.size(); ++position) {
            snapshot.itemListLines.append(QByteArray(list) + '\t' + QByteArray::number(position));
            appendSiteText(snapshot.itemListLines, rows[position]);
            snapshot.itemListLines.append('\n');
        }
    };
    for (const auto &[list, option] : options)
        appendList(list, SortedCatalogue(ReadCatalogue(option, silent).rows));
    CloseAll();
    QByteArrayList departments;
    for (const QString &department : ReportDepartments(false))
        departments.append(ToAnsi(department));
    appendList("departments", departments);
    snapshot.itemListsDigest = digestOf(snapshot.itemListLines);
}

} // namespace

void ReadMonthlySales(SiteSnapshot &snapshot)
{
    // The reader writes the records out of step to a reject file: ours, not the site's.
    const QTemporaryDir rejects;
    MonthlyReadings readings;
    for (const QDate &month : MonthsWithFiles()) {
        const QString path = HostPath(MonthFileName(month));
        if (!FileExists(path))
            continue;
        MonthlySalesFile file(path, rejects.filePath(QStringLiteral("Items.tmp")));
        qint64 seq = 0;
        while (const std::optional<MonthlyRecord> record = file.next()) {
            DayRows &rows = snapshot.monthDays[monthDayKey(month, readings.date((*record)[SoldDate]))];
            appendMonthlyLine(rows.lines, month, seq++, *record, readings);
            ++rows.count;
        }
        snapshot.monthRowCount += seq;
    }
    for (DayRows &rows : snapshot.monthDays)
        rows.digest = digestOf(rows.lines);
}

RowDate ReadRowDate(QByteArrayView orderDate)
{
    const std::optional<QDate> day = ToDate(orderDate);
    if (!day)
        return {};
    const QByteArray dayText = day->toString(Qt::ISODate).toLatin1();
    return {dayText, dayText + 'T' + ToTime(orderDate).value_or(QTime(0, 0)).toString(Qt::ISODate).toLatin1()};
}

void ReadSales(SalesStore &store, SiteSnapshot &snapshot, const std::function<void(qint64 rows)> &progress)
{
    SalesRowWriter writer;
    qint64 seq = 0;
    store.SelectAll([&](const SalesRow &row) {
        const RowDate &date = writer.dateOf(row);
        DayRows &rows = snapshot.days[date.day];
        writer.append(seq++, date, row, rows.lines);
        ++rows.count;
        if (seq % 100000 == 0)
            progress(seq);
        return true;
    });
    for (DayRows &rows : snapshot.days)
        rows.digest = digestOf(rows.lines);
    snapshot.rowCount = seq;
    progress(seq);
}

std::unique_ptr<SalesStore> OpenSite(const QString &name, SiteSnapshot &snapshot)
{
    ReadConfiguration();
    CloseAll();
    EnsureDataRoot();
    snapshot.name = name.isEmpty() ? NameOfSite() : name;
    readDepartments(snapshot);
    readCatalogue(snapshot);
    readItemLists(snapshot);
    ReadMonthlySales(snapshot);
    return OpenSiteSalesStore(DataPath(SalesDatabaseFile));
}

SiteSnapshot ReadSite(const QString &name, const std::function<void(qint64 rows)> &progress)
{
    SiteSnapshot snapshot;
    const std::unique_ptr<SalesStore> store = OpenSite(name, snapshot);
    ReadSales(*store, snapshot, progress);
    return snapshot;
}

} // namespace qlon
