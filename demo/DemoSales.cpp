#include "demo/DemoSales.h"

#include "core/Format.h"
#include "core/RecordFile.h"
#include "core/TextFile.h"
#include "store/CatalogueFiles.h"
#include "store/ItemRec500.h"
#include "store/SqliteSalesWriter.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QRandomGenerator>

namespace qlon {

namespace {

constexpr int daysOfSales = 90;

struct SoldItem
{
    QByteArray name;
    double price;
    QByteArray type; // "F", "L" or "R"
};

QString hostPathOf(const QString &siteFolder, const QByteArray &sitePath)
{
    return QDir(siteFolder).filePath(QString::fromLatin1(sitePath).replace(QLatin1Char('\\'), QLatin1Char('/')));
}

// The live items of a catalogue file, as the stations ring them up.
QList<SoldItem> itemsOf(const QString &siteFolder, const QByteArray &file, const QByteArray &type, FreeSlotRule rule)
{
    QList<SoldItem> items;
    const QString path = hostPathOf(siteFolder, file);
    if (!QFileInfo::exists(path))
        return items;
    RecordFile records(path, ItemRec500::size);
    for (qint32 number = 1; number <= records.CountRecords(); ++number) {
        const ItemRec500 item(records.GetRecord(number));
        const QByteArray name = item.trimmedField(type == "R" ? ItemRec500::KitchenText : ItemRec500::ButtonTitle);
        if (!item.isFree(rule) && !name.isEmpty())
            items.append({name, item.trimmedField(ItemRec500::Price).toDouble(), type});
    }
    return items;
}

struct Menu
{
    QList<SoldItem> food;
    QList<SoldItem> drinks;
    QList<SoldItem> modifiers;
    QList<SoldItem> retail;
};

Menu menuOf(const QString &siteFolder)
{
    Menu menu;
    for (int index = 0; index < ButtonFileCount; ++index)
        menu.food += itemsOf(siteFolder, ButtonFile(index).items, "F", FreeSlotRule::ButtonRebuild);
    for (const CatalogueFile &file : LiquorFiles())
        menu.drinks += itemsOf(siteFolder, file.items, "L", FreeSlotRule::DrinkRebuild);
    for (int index = 0; index < ModifierFileCount; ++index)
        menu.modifiers += itemsOf(siteFolder, ModifierFile(index).items, "F", FreeSlotRule::ButtonRebuild);
    menu.retail = itemsOf(siteFolder, RetailFile().items, "R", FreeSlotRule::RetailRebuild);
    return menu;
}

class SalesDay
{
public:
    SalesDay(SqliteSalesWriter &writer, const Menu &menu, QRandomGenerator &random, int &orderId)
        : m_writer(writer)
        , m_menu(menu)
        , m_random(random)
        , m_orderId(orderId)
    {
    }

    // The same lines as the stations also keep them, in a text file a month.
    void writeMonthlyFiles(const QString &siteFolder) const
    {
        for (auto month = m_monthly.cbegin(); month != m_monthly.cend(); ++month) {
            QFile file(QDir(siteFolder).filePath(QStringLiteral("data/ItemsSold%1.DAT").arg(month.key())));
            if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
                file.write(month.value());
        }
    }

    void ring(QDate day)
    {
        const int weekendBusier = day.dayOfWeek() >= 5 ? 14 : 0;
        ringOrders(day, 11 * 60 + 15, 14 * 60, 22 + weekendBusier); // lunch
        ringOrders(day, 17 * 60 + 15, 21 * 60 + 30, 34 + weekendBusier); // dinner
        ringOrders(day, 23 * 60 + 10, 23 * 60 + 59, 2); // after hours
    }

private:
    const SoldItem &any(const QList<SoldItem> &items) { return items.at(m_random.bounded(int(items.size()))); }

    void ringOrders(QDate day, int firstMinute, int lastMinute, int orders)
    {
        for (int order = 0; order < orders; ++order) {
            const int minute = firstMinute + m_random.bounded(lastMinute - firstMinute);
            ringOrder(day, QTime(minute / 60, minute % 60, m_random.bounded(60)));
        }
    }

    void ringOrder(QDate day, QTime time)
    {
        ++m_orderId;
        const int lines = 1 + m_random.bounded(5);
        const QByteArray table = QByteArray::number(1 + m_random.bounded(30));
        const QByteArray server = QByteArray::number(1002 + m_random.bounded(9));
        const QByteArray saleType = m_random.bounded(5) == 0 ? QByteArrayLiteral("Take Out") : QByteArrayLiteral("Dine In");
        for (int line = 0; line < lines; ++line) {
            const int kind = m_random.bounded(100);
            const SoldItem &item = kind < 62 ? any(m_menu.food) : kind < 96 ? any(m_menu.drinks) : any(m_menu.retail);
            const int quantity = m_random.bounded(6) == 0 ? 2 : 1;
            addLine(day, time, item, quantity, table, server, saleType);
            if (item.type == "F" && m_random.bounded(5) == 0)
                addLine(day, time, any(m_menu.modifiers), 1, table, server, saleType);
        }
    }

    void addLine(QDate day, QTime time, const SoldItem &item, int quantity, const QByteArray &table, const QByteArray &server,
        const QByteArray &saleType)
    {
        SalesRow row;
        row[OrderID] = QByteArray::number(m_orderId);
        row[OrderDate] = day.toString(Qt::ISODate).toLatin1();
        row[ReceiptID] = "R" + QByteArray::number(100000 + m_orderId);
        row[Quantity] = QByteArray::number(quantity);
        row[Item] = item.name;
        row[ItemType] = item.type;
        // The price of the line: the quantity is in it already.
        row[UnitPrice] = QByteArray::number(item.price * quantity, 'f', 2);
        row[Time] = time.toString(Qt::ISODate).toLatin1();
        row[SaleType] = saleType;
        row[OrderNumber] = QByteArray::number(m_orderId % 1000);
        row[POSstation] = "POS" + QByteArray::number(1 + m_random.bounded(3));
        row[EmpNumber] = server;
        row[TableNumber] = table;
        AppendQuotedLine(m_monthly[day.toString(u"MMyyyy")],
            {Format(day, "MM/DD/YY"), *row[Quantity], item.name, *row[UnitPrice], item.type, Format(time, "H:MM AMPM"), saleType, server});
        breakNowAndThen(row);
        m_writer.add(row);
    }

    // One line in about two thousand carries a station's fault.
    void breakNowAndThen(SalesRow &row)
    {
        switch (m_random.bounded(2000)) {
        case 0: row[Time] = QByteArray(); break;
        case 1: row[Time] = "25:61:00"; break;
        case 2: row[OrderDate] = row[OrderDate]->left(8) + "31"; break;
        case 3: row[Time] = std::nullopt; break;
        default: break;
        }
    }

    SqliteSalesWriter &m_writer;
    const Menu &m_menu;
    QRandomGenerator &m_random;
    int &m_orderId;
    QMap<QString, QByteArray> m_monthly;
};

} // namespace

void WriteDemoSales(const QString &siteFolder, QDate today)
{
    const Menu menu = menuOf(siteFolder);
    SqliteSalesWriter writer(QDir(siteFolder).filePath(QStringLiteral("data/Quillon.mdb")));
    QRandomGenerator random(20261123);
    int orderId = 0;
    SalesDay salesDay(writer, menu, random, orderId);
    for (QDate day = today.addDays(-daysOfSales); day < today; day = day.addDays(1))
        salesDay.ring(day);
    writer.commit();
    salesDay.writeMonthlyFiles(siteFolder);
}

} // namespace qlon
