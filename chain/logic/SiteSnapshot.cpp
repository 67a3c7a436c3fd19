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
#include "listbuilder/logic/LoadList.h"
#include "serversales/logic/SpanSales.h"
#include "store/Departments.h"
#include "store/ItemRec500.h"
#include "store/SiteConfig.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <cmath>

namespace qlon {

namespace {

// How the rows of a site are read: the memos of the texts that repeat.
class SalesRowWriter
{
public:
    // The day key of the row, read once for each text of a date.
    const QByteArray &dayOf(const SalesRow &row)
    {
        const QByteArray orderDate = trimmed(row[OrderDate]);
        return m_days.get(orderDate, [&orderDate] { return DayKey(orderDate); });
    }

    void append(qint64 seq, const QByteArray &day, const SalesRow &row, QByteArray &line)
    {
        // A null item or time keeps the text of the row before it, as the reports' walks do: the
        // item of the row before, the time of the item's row before. The time comes with the day of
        // its row, since it counts only when that row is in the report's span too.
        if (row[Item])
            m_item = TrimBlanks(*row[Item]);
        const QByteArray time = trimmed(row[Time]);
        const QByteArray price = trimmed(row[UnitPrice]);
        const QByteArray quantity = trimmed(row[Quantity]);
        line.append(QByteArray::number(seq));
        appendPlain(line, day);
        const std::optional<QTime> soldAt = SaleTime(time, m_times);
        const QByteArray soldAtText = soldAt ? soldAt->toString(Qt::ISODateWithMs).toLatin1() : QByteArray();
        appendPlain(line, soldAtText);
        CarriedTime carried;
        if (row[Time])
            m_carriedTimes.insert(m_item, {day, soldAtText});
        else
            carried = m_carriedTimes.value(m_item);
        appendPlain(line, carried.day);
        appendPlain(line, carried.soldAt);
        appendText(line, m_item);
        appendPlain(line, QByteArray::number(std::llround(LinePrice(price, m_prices) * 100)));
        appendPlain(line, QByteArray::number(NumericValue(quantity), 'g', 17));
        appendText(line, row[ItemType]);
        appendText(line, row[ReceiptID]);
        for (const SalesValue &raw : {row[Item], row[OrderDate], row[Time], row[UnitPrice], row[Quantity]})
            appendText(line, raw);
        line.append('\n');
    }

private:
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

    struct CarriedTime
    {
        QByteArray day;
        QByteArray soldAt;
    };

    QByteArray m_item;
    QHash<QByteArray, CarriedTime> m_carriedTimes;
    Memo<QByteArray, QByteArray> m_days;
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

QString siteName(const QString &given)
{
    if (!given.isEmpty())
        return given;
    const QByteArray configured = Site().Config.trimmedField(IniRec2300::SiteName);
    if (!configured.isEmpty())
        return FromAnsi(configured);
    return QFileInfo(QDir::cleanPath(HostPath(DefaultSiteRoot) + QStringLiteral("/.."))).fileName();
}

} // namespace

QByteArray DayKey(QByteArrayView orderDate)
{
    const std::optional<QDate> day = ToDate(orderDate);
    return day ? day->toString(Qt::ISODate).toLatin1() : QByteArray();
}

void ReadSales(SalesStore &store, SiteSnapshot &snapshot, const std::function<void(qint64 rows)> &progress)
{
    SalesRowWriter writer;
    qint64 seq = 0;
    store.SelectAll([&](const SalesRow &row) {
        const QByteArray &day = writer.dayOf(row);
        DayRows &rows = snapshot.days[day];
        writer.append(seq++, day, row, rows.lines);
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

SiteSnapshot ReadSite(const QString &name, const std::function<void(qint64 rows)> &progress)
{
    ReadConfiguration();
    CloseAll();
    EnsureDataRoot();
    SiteSnapshot snapshot;
    snapshot.name = siteName(name);
    readDepartments(snapshot);
    readCatalogue(snapshot);
    const std::unique_ptr<SalesStore> store = OpenSiteSalesStore(DataPath(SalesDatabaseFile));
    ReadSales(*store, snapshot, progress);
    return snapshot;
}

} // namespace qlon
