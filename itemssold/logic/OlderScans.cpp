#include "itemssold/logic/OlderScans.h"

#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/ErrorIgnoring.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/HostPath.h"
#include "core/RecordFile.h"
#include "store/MonthlySales.h"
#include "store/SiteConfig.h"

#include <QHash>

namespace qlon {

namespace {

constexpr int tableRows = 2001;
constexpr int buttonRecords = 12;
constexpr int buttonBlocks = 12;
constexpr int modifierFiles = 30;

const QByteArrayList drinkFiles = {
    "data\\BeerDraft.dat", "data\\BeerBottle.dat", "data\\WineGlass.dat", "data\\WineBottle.dat", "data\\cocktail.dat"};

QList<ItemRec500> recordsOf(const QByteArray &sitePath)
{
    QList<ItemRec500> records;
    const QString path = HostPath(Site().DataRoot + sitePath);
    if (!FileExists(path))
        return records;
    RecordFile file(path, ItemRec500::size);
    const qint32 count = file.CountRecords();
    for (qint32 number = 1; number <= count; ++number)
        records.append(ItemRec500(file.GetRecord(number)));
    return records;
}

bool isFree(const ItemRec500 &item)
{
    return item.trimmedField(ItemRec500::ButtonTitle) == "Avaliable";
}

bool isShown(const ItemRec500 &item)
{
    return NumericValue(item.field(ItemRec500::VisibleFlag)) == 1;
}

// The table of a scan, in the order its sources stand; each source's test picks its records.
class OlderTable
{
public:
    void add(const QList<ItemRec500> &records, bool (*kept)(const ItemRec500 &))
    {
        for (const ItemRec500 &item : records) {
            if (kept(item) && m_rows.size() < tableRows)
                m_rows.push_back({item.field(ItemRec500::ButtonTitle), item.field(ItemRec500::Price), item.field(ItemRec500::Department)});
        }
    }
    // The button table stands in blocks of twelve rows, one block for each button screen.
    void addButtonBlocks(const QList<ItemRec500> &buttonTable)
    {
        for (int block = 0; block < buttonBlocks; ++block)
            add(buttonTable, [](const ItemRec500 &item) { return !isFree(item); });
    }
    std::vector<SoldRow> take() { return std::move(m_rows); }

private:
    std::vector<SoldRow> m_rows;
};

std::vector<SoldRow> tableFor(OlderScan kind, const QList<ItemRec500> &buttonTable)
{
    OlderTable table;
    const auto notFree = [](const ItemRec500 &item) { return !isFree(item); };
    if (kind != OlderScan::Bar) {
        table.addButtonBlocks(buttonTable);
        table.add(recordsOf("ini\\ButtonFB.dat"), notFree);
        for (int number = 0; number < modifierFiles; ++number)
            table.add(recordsOf("ini\\mod" + QByteArray::number(number) + ".dat"), notFree);
    }
    if (kind == OlderScan::Food)
        return table.take();
    for (const QByteArray &file : drinkFiles)
        table.add(recordsOf(file), kind == OlderScan::Bar ? isShown : +notFree);
    if (kind == OlderScan::Both)
        table.add(recordsOf("data\\LiqModifiers.dat"), notFree);
    return table.take();
}

class OlderScanner
{
public:
    OlderScanner(OlderScan kind, std::vector<SoldRow> rows, const ScanSpan &span, ScanProgress &progress)
        : m_kind(kind)
        , m_limits(span)
        , m_progress(progress)
    {
        result.rows = std::move(rows);
        // The empty row past the last, as in the full scan: an empty name lands there.
        result.rows.push_back({});
        for (int row = int(result.rows.size()) - 1; row >= 0; --row)
            m_firstRow.insert(TrimBlanks(result.rows[row].name), row);
    }

    // Reads one month's file, eight fields a line; false when the user stopped.
    bool readMonth(const QString &path)
    {
        CloseAll();
        LockedMonthFile month(path);
        FieldReader &fields = month.reader();
        while (!fields.AtEnd()) {
            MonthlyRecord record;
            for (QByteArray &field : record)
                field = fields.AtEnd() ? QByteArray() : fields.ReadField();
            if (m_progress.stopRequested())
                return false;
            SkipOnFailure([&] { take(record); });
        }
        return true;
    }

    SalesScan result;

private:
    void take(const MonthlyRecord &record)
    {
        const std::optional<QDate> date = ToDate(record[SoldDate]);
        if (!date || (m_limits.from && *date < *m_limits.from) || (m_limits.to && *date > *m_limits.to))
            return;
        const QByteArray &item = record[SoldItem];
        if (m_kind != OlderScan::Bar && item.startsWith("Gift")) {
            ++result.giftCount;
            result.giftTotal += NumericValue(record[SoldPrice]);
            return;
        }
        if (m_kind == OlderScan::Bar && NormalizedType(record[SoldType]) != "L")
            return;
        if (outsideHours(ToTime(record[SoldTime])))
            return;
        const auto found = m_firstRow.constFind(TrimBlanks(item));
        if (found == m_firstRow.constEnd())
            return;
        SoldRow &row = result.rows[*found];
        row.quantity += NumericValue(record[SoldQuantity]);
        row.amount += NormalizedPrice(record[SoldPrice]);
    }

    // On every day of the span, deliberately: a span from 10 pm to 2 am keeps nothing here.
    bool outsideHours(const std::optional<QTime> &saleTime) const
    {
        if (!saleTime)
            return false;
        const QTime time = InWholeMinutes(*saleTime);
        return (m_limits.fromTime && time < *m_limits.fromTime) || (m_limits.toTime && time > *m_limits.toTime);
    }

    OlderScan m_kind;
    ScanLimits m_limits;
    ScanProgress &m_progress;
    QHash<QByteArray, int> m_firstRow;
};

} // namespace

QList<ItemRec500> LoadButtonTable()
{
    QList<ItemRec500> table;
    // Each file overwrites the rows of the one before: the last that exists remains.
    for (int screen = 0; screen < buttonBlocks; ++screen) {
        const QByteArray file = "ini\\Button" + QByteArray::number(screen) + ".dat";
        if (!FileExists(HostPath(Site().DataRoot + file)))
            continue;
        table = recordsOf(file).mid(0, buttonRecords);
        while (table.size() < buttonRecords)
            table.append(ItemRec500());
    }
    return table;
}

SalesScan RunOlderScan(OlderScan kind, const QList<ItemRec500> &buttonTable, const ScanSpan &span, ScanProgress &progress)
{
    OlderScanner scanner(kind, tableFor(kind, buttonTable), span, progress);
    scanner.result.stopped = !WalkMonthFiles(span, progress, [&](const QString &path) { return scanner.readMonth(path); });
    CloseAll();
    return scanner.result;
}

} // namespace qlon
