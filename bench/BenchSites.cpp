#include "bench/BenchSites.h"

#include "core/Format.h"
#include "core/RecordFile.h"
#include "core/TextFile.h"
#include "demo/DemoCatalogue.h"
#include "demo/DemoSite.h"
#include "store/CatalogueFiles.h"
#include "store/ItemRec500.h"
#include "store/SqliteSalesWriter.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>

#include <functional>
#include <stdexcept>

namespace qlon::bench {

namespace {

// The site's folder under the drive folder.
QString siteOf(const QString &driveFolder)
{
    return QDir(driveFolder).filePath(QStringLiteral("Quillon"));
}

// The drive folder of a generated site, written by `write` unless an earlier run finished it.
QString generated(const QString &name, const std::function<void(const QString &driveFolder)> &write)
{
    const QString folder = QDir(QStringLiteral(QLON_BENCH_DATA)).filePath(name);
    const QString finished = QDir(folder).filePath(QStringLiteral("finished"));
    if (QFile::exists(finished))
        return folder;
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    write(folder);
    QFile mark(finished);
    if (!mark.open(QIODevice::WriteOnly))
        throw std::runtime_error("can't finish the generated site " + name.toStdString());
    return folder;
}

// The week of the main screen's start dates, 11/17 to 11/23: stations write the lines day by day,
// from 10 AM to 11 PM, four lines to an order, an order to one of forty servers.
void writeSalesWeek(const QString &databasePath, int rows)
{
    SqliteSalesWriter writer(databasePath);
    constexpr int days = 7;
    const int linesPerDay = rows / days + 1;
    constexpr int secondsOpen = 13 * 3600;
    for (int line = 0; line < rows; ++line) {
        const int order = line / 4;
        const int lineOfDay = line % linesPerDay;
        const QTime sold = QTime(10, 0).addSecs(int(qint64(lineOfDay) * secondsOpen / linesPerDay));
        SalesRow row;
        row[OrderID] = QByteArray::number(order);
        row[OrderDate] = SalesToday.addDays(-7 + line / linesPerDay).toString(Qt::ISODate).toLatin1();
        row[ReceiptID] = "R" + QByteArray::number(order);
        row[Quantity] = QByteArray::number(1 + line % 3);
        row[Item] = SalesItemName(int((line * 7919LL) % SalesItemCount));
        row[ItemType] = line % 3 == 0 ? "L" : "F";
        row[UnitPrice] = QByteArray::number(2.5 + (line % 40) * 0.25, 'f', 2);
        row[Time] = sold.toString(u"HH:mm:ss").toLatin1();
        row[SaleType] = "Dine In";
        row[OrderNumber] = QByteArray::number(order % 1000);
        row[POSstation] = "POS" + QByteArray::number(1 + order % 3);
        row[EmpNumber] = QByteArray::number(1001 + order % 40);
        row[TableNumber] = QByteArray::number(1 + order % 30);
        writer.add(row);
    }
    writer.commit();
}

// The merged catalogue of the sales items, as a rebuild leaves it.
void writeMergedCatalogue(const QString &site)
{
    for (const QString &name : {QStringLiteral("Temp/TempInv.dat"), QStringLiteral("Temp/TempInvLB.DAT")}) {
        const QString path = QDir(site).filePath(name);
        QFile::remove(path);
        RecordFile file(path, ItemRec500::size);
        for (int index = 0; index < SalesItemCount; ++index) {
            ItemRec500 item;
            item.setField(ItemRec500::ButtonTitle, SalesItemName(index));
            item.setField(ItemRec500::Department, index % 3 == 0 ? "Liquor" : "Food");
            item.setField(ItemRec500::Price, QByteArray::number(2.5 + (index % 40) * 0.25, 'f', 2));
            file.PutRecord(index + 1, item.bytes());
        }
    }
}

// The names that the Items Sold catalogue scan finds in a generated catalogue: records 1 to 12 of
// each button file and every record of the first six drink files, but the free slots.
QByteArrayList scannedItemNames(int recordsPerFile)
{
    QByteArrayList names;
    const auto add = [&names](int file, int records) {
        for (int record = 1; record <= records; ++record) {
            if (record % 10 != 0)
                names.append(
                    "Item " + QByteArray::number(file).rightJustified(4, '0') + '-' + QByteArray::number(record).rightJustified(4, '0'));
        }
    };
    for (int file = 1; file <= ButtonFileCount; ++file)
        add(file, 12);
    for (int file = ButtonFileCount + 1; file <= ButtonFileCount + 6; ++file)
        add(file, recordsPerFile);
    return names;
}

// A line of a monthly file as the stations write it.
void appendMonthlyLine(QByteArray &month, QDate day, QTime time, int line, const QByteArray &item)
{
    const QByteArray price = QByteArray::number(1.95 + (line % 60) * 0.25, 'f', 2);
    AppendQuotedLine(month,
        {Format(day, "MM/DD/YY"), QByteArray::number(1 + line % 3), item, price, line % 3 == 0 ? "L" : "F", Format(time, "H:MM AMPM"),
            "Dine In", QByteArray::number(1001 + line % 40)});
}

void writeMonthlyYear(const QString &site, int lines, const QByteArrayList &items)
{
    const QDate first(2025, 1, 1);
    const int days = first.daysInYear();
    const int linesPerDay = lines / days + 1;
    QMap<QString, QByteArray> months;
    for (int line = 0; line < lines; ++line) {
        const QDate day = first.addDays(line / linesPerDay);
        const QTime time = QTime(11, 0).addSecs(int(qint64(line % linesPerDay) * 12 * 3600 / linesPerDay));
        appendMonthlyLine(months[day.toString(u"MMyyyy")], day, time, line, items.at(int((line * 7919LL) % items.size())));
    }
    for (auto month = months.cbegin(); month != months.cend(); ++month) {
        QFile file(QDir(site).filePath(QStringLiteral("data/ItemsSold%1.DAT").arg(month.key())));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(month.value()) != month.value().size())
            throw std::runtime_error("can't write a monthly sales file");
    }
}

} // namespace

QByteArray SalesItemName(int index)
{
    return "Item " + QByteArray::number(index).rightJustified(4, '0');
}

QString SalesDatabasePath(const QString &driveFolder)
{
    return QDir(siteOf(driveFolder)).filePath(QStringLiteral("data/Quillon.mdb"));
}

QString SalesSite(int rows)
{
    return generated(QStringLiteral("sales-%1").arg(rows), [rows](const QString &drive) {
        WriteDemoSite(drive, SalesToday);
        writeSalesWeek(SalesDatabasePath(drive), rows);
        writeMergedCatalogue(siteOf(drive));
    });
}

QString JetSalesSite(int rows)
{
    const QString sqliteSite = SalesSite(rows);
    return generated(QStringLiteral("jet-sales-%1").arg(rows), [&sqliteSite](const QString &drive) {
        WriteDemoSite(drive, SalesToday);
        writeMergedCatalogue(siteOf(drive));
        const QString jet = SalesDatabasePath(drive);
        QFile::remove(jet);
        const int status = QProcess::execute(
            QStringLiteral("python3"), {QStringLiteral(QLON_JET_TOOLS "/sqlite-to-jet.py"), SalesDatabasePath(sqliteSite), jet});
        if (status != 0)
            throw std::runtime_error("sqlite-to-jet.py failed");
    });
}

QString MonthlySalesSite(int lines)
{
    return generated(QStringLiteral("monthly-%1").arg(lines), [lines](const QString &drive) {
        WriteDemoSite(drive, QDate(2026, 1, 1));
        // The button and drink files, the drinks of 500 records: some 4,000 catalogue rows, and
        // every line names one of them.
        constexpr int drinkRecords = 500;
        WriteGeneratedCatalogue(siteOf(drive), ButtonFileCount + 7, drinkRecords);
        writeMonthlyYear(siteOf(drive), lines, scannedItemNames(drinkRecords));
    });
}

QString CatalogueSite(int fileCount, int recordsPerFile)
{
    return generated(QStringLiteral("catalogue-%1x%2").arg(fileCount).arg(recordsPerFile), [=](const QString &drive) {
        WriteDemoSite(drive, SalesToday);
        WriteGeneratedCatalogue(siteOf(drive), fileCount, recordsPerFile);
    });
}

} // namespace qlon::bench
