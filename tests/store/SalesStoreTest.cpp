#include "store/SalesStore.h"
#include "store/JetSalesStore.h"
#include "store/SqliteSalesStore.h"
#include "store/SqliteSalesWriter.h"
#include "tests/support/Printers.h"
#include "tests/support/Rows.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <map>
#include <thread>

namespace qlon {
namespace {

using test::ErrorOf;

constexpr qint64 EngineFailure = -2147467259;
constexpr qint64 EngineMissingTable = -2147217865;
constexpr qint64 EngineBadValue = -2147217913;

bool HaveJetFixtures()
{
    return QFileInfo(QStringLiteral(QLON_JET_FIXTURES)).isDir();
}

QString FixturePath(const QString &name)
{
    return QDir(QStringLiteral(QLON_JET_FIXTURES)).filePath(name);
}

QByteArray FileDigest(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

// Every row of the table, with the values of the columns.
std::vector<std::vector<SalesValue>> ReadTable(const QString &path, QByteArrayView table, const QByteArrayList &columns)
{
    JetTable reader(path, table, columns);
    std::vector<std::vector<SalesValue>> rows;
    while (reader.next()) {
        std::vector<SalesValue> row;
        for (qsizetype column = 0; column < columns.size(); ++column)
            row.push_back(reader.value(column));
        rows.push_back(row);
    }
    return rows;
}

// The column's value in every row that the select gives.
std::vector<SalesValue> Collect(const std::function<void(const SalesVisitor &)> &select, SalesColumn column = OrderID)
{
    std::vector<SalesValue> values;
    select([&](const SalesRow &row) {
        values.push_back(row[column]);
        return true;
    });
    return values;
}

std::vector<SalesValue> Texts(std::initializer_list<const char *> texts)
{
    std::vector<SalesValue> values;
    for (const char *text : texts)
        values.emplace_back(text);
    return values;
}

class JetFixtureTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(HaveJetFixtures()) << "the Jet test files are missing from " QLON_JET_FIXTURES; }

    const QString nwind = FixturePath(QStringLiteral("nwind.mdb"));
    const QString dateTest = FixturePath(QStringLiteral("DateTestDatabase.mdb"));
};

// ---- The Jet reader on files that Access wrote

using JetTableTest = JetFixtureTest;

TEST_F(JetTableTest, ReadsEveryRowOfOrders)
{
    EXPECT_EQ(ReadTable(nwind, "Orders", {"OrderID"}).size(), 830u);
}

TEST_F(JetTableTest, FirstOrderReadsAsAccessShowsIt)
{
    // Names are found without regard to case.
    const auto rows = ReadTable(nwind, "orders", {"OrderID", "customerid", "OrderDate", "Freight", "ShipName", "ShipVia"});
    ASSERT_FALSE(rows.empty());
    EXPECT_EQ(rows.front(), Texts({"10330", "LILAS", "11/16/1994", "12.75", "LILA-Supermercado", "1"}));
}

TEST_F(JetTableTest, CurrencyKeepsItsExactDecimals)
{
    const auto rows = ReadTable(nwind, "Orders", {"Freight"});
    ASSERT_GE(rows.size(), 3u);
    // Stored as 127500, 101900 and 528400 ten-thousandths.
    EXPECT_EQ(rows[0][0], "12.75");
    EXPECT_EQ(rows[1][0], "10.19");
    EXPECT_EQ(rows[2][0], "52.84");
}

TEST_F(JetTableTest, TextsComeAsWindows1252)
{
    const auto rows = ReadTable(nwind, "Orders", {"ShipName", "ShipCity"});
    ASSERT_GE(rows.size(), 3u);
    EXPECT_EQ(rows[2][0], "M\xe8re Paillarde");
    EXPECT_EQ(rows[2][1],
        "Montr\xe9"
        "al");
}

TEST_F(JetTableTest, NullsStayApartFromValues)
{
    const auto rows = ReadTable(nwind, "Orders", {"ShipRegion", "ShippedDate", "NoSuchColumn"});
    ASSERT_GE(rows.size(), 3u);
    EXPECT_EQ(rows[0][0], "Lara");
    EXPECT_EQ(rows[1][0], std::nullopt);
    EXPECT_EQ(rows[2][2], std::nullopt);
    const auto unshipped = std::count_if(rows.begin(), rows.end(), [](const auto &row) { return !row[1]; });
    EXPECT_EQ(unshipped, 21);
}

TEST_F(JetTableTest, YesNoReadsAsTrueOrFalse)
{
    std::map<SalesValue, int> counts;
    for (const auto &row : ReadTable(nwind, "Products", {"Discontinued"}))
        ++counts[row[0]];
    EXPECT_EQ(counts, (std::map<SalesValue, int>{{QByteArray("False"), 69}, {QByteArray("True"), 8}}));
}

TEST_F(JetTableTest, AwkwardDatesReadAsTheStoredDaysMean)
{
    // The stored values are whole days since 12/30/1899.
    struct Case
    {
        const char *id;
        const char *dateTime; // stored as
        const char *date;
        const char *time;
    };
    const Case cases[] = {
        {"1", "12/2/2021", "12/2/2021", "12/2/2021"}, // 44532 each
        {"2", "1/1/9999", "1/1/9999", "1/1/9999"}, // 2958101 each
        {"3", "1/1/1898", "1/1/1899", "1/1/1900"}, // -728, -363, 2
        {"4", "1/1/632", "1/1/633", "1/1/634"}, // -463126, -462760, -462395
    };
    const auto rows = ReadTable(dateTest, "DateTest", {"IDCol", "DateTimeCol", "DateCol", "TimeCol"});
    ASSERT_GE(rows.size(), std::size(cases));
    for (std::size_t index = 0; index < std::size(cases); ++index) {
        const Case &test = cases[index];
        EXPECT_EQ(rows[index], Texts({test.id, test.dateTime, test.date, test.time})) << "row " << index;
    }
}

TEST_F(JetTableTest, DateTimeValuesGiveTheirDays)
{
    JetTable table(dateTest, "DateTest", {"DateTimeCol", "LongTextCol"});
    ASSERT_TRUE(table.next());
    EXPECT_EQ(table.dateTime(0), QDateTime(QDate(2021, 12, 2), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(table.dateTime(1), std::nullopt);
}

TEST_F(JetTableTest, TextWithALineBreakStaysWhole)
{
    const auto rows = ReadTable(dateTest, "DateTest", {"IDCol", "LongTextCol", "ShortTextCol"});
    ASSERT_EQ(rows.size(), 6u);
    EXPECT_EQ(rows[5], Texts({"6", "New line\r\nin field", "No new line"}));
    EXPECT_EQ(rows[4], Texts({"5", "Escaped new line \\r\\n in field", "Escaped new line \\r\\n in field"}));
}

TEST_F(JetTableTest, RewindStartsOverAtTheFirstRow)
{
    JetTable table(nwind, "Orders", {"OrderID"});
    ASSERT_TRUE(table.next());
    ASSERT_TRUE(table.next());
    table.rewind();
    ASSERT_TRUE(table.next());
    EXPECT_EQ(table.value(0), "10330");
}

TEST_F(JetTableTest, MissingTableRaisesTheEngineError)
{
    const RuntimeError error = ErrorOf([&] { JetTable(nwind, "ItemsSold", {"OrderID"}); });
    EXPECT_EQ(error.number(), EngineMissingTable);
    EXPECT_TRUE(error.description().contains(QStringLiteral("'ItemsSold'"))) << error.description().toStdString();
}

TEST(JetDateTimeTest, StoredDaysAndFractionsGiveDateAndTime)
{
    struct Case
    {
        double stored;
        QDateTime meant;
        const char *shown;
    };
    const auto at = [](int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
        return QDateTime(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC);
    };
    const Case cases[] = {
        {34654.0, at(1994, 11, 16), "11/16/1994"},
        {34654.75, at(1994, 11, 16, 18), "11/16/1994 6:00:00 PM"},
        {0.0, at(1899, 12, 30), "12:00:00 AM"},
        {0.5, at(1899, 12, 30, 12), "12:00:00 PM"},
        {-1.25, at(1899, 12, 29, 6), "12/29/1899 6:00:00 AM"},
        {-0.25, at(1899, 12, 30, 6), "6:00:00 AM"},
        {1.9999999999, at(1900, 1, 1), "1/1/1900"},
        {2958465.99998843, at(9999, 12, 31, 23, 59, 59), "12/31/9999 11:59:59 PM"},
        {-657434.0, at(100, 1, 1), "1/1/100"},
    };
    for (const Case &test : cases) {
        const QDateTime meant = JetDateTime(test.stored);
        EXPECT_EQ(meant, test.meant) << test.stored;
        EXPECT_EQ(DateTimeText(meant.date(), meant.time()), test.shown) << test.stored;
    }
}

// ---- The Jet sales store, on a table of the same column names

using JetSalesStoreTest = JetFixtureTest;

TEST_F(JetSalesStoreTest, SelectAllGivesEveryRowWithMissingColumnsAsNull)
{
    JetSalesStore store(nwind, "Orders");
    std::size_t count = 0;
    store.SelectAll([&](const SalesRow &row) {
        if (count++ == 0) {
            EXPECT_EQ(row[OrderID], "10330");
            EXPECT_EQ(row[OrderDate], "11/16/1994");
            EXPECT_EQ(row[Item], std::nullopt);
        }
        return true;
    });
    EXPECT_EQ(count, 830u);
    EXPECT_EQ(store.CountRows(), 830);
}

TEST_F(JetSalesStoreTest, SpanHoldsBothEndDates)
{
    JetSalesStore store(nwind, "Orders");
    const auto select = [&](const char *from, const char *to) {
        return Collect([&](const SalesVisitor &visit) { store.SelectSpan(from, to, EverySalesColumn, visit); });
    };
    EXPECT_EQ(select("11/16/94", "11/17/94"), Texts({"10330", "10331", "10332"}));
    EXPECT_EQ(select("1994-11-17", "11/17/1994"), Texts({"10332"}));
    EXPECT_EQ(select("11/17/94", "11/16/94"), Texts({}));
    const auto selectOrderIds = [&](SalesColumn column) {
        return Collect([&](const SalesVisitor &visit) { store.SelectSpan("11/16/94", "11/17/94", ColumnsOf({OrderID}), visit); }, column);
    };
    EXPECT_EQ(selectOrderIds(OrderID), Texts({"10330", "10331", "10332"}));
    EXPECT_EQ(selectOrderIds(OrderDate), std::vector<SalesValue>(3));
}

TEST_F(JetSalesStoreTest, VisitorStopsTheWalk)
{
    JetSalesStore store(nwind, "Orders");
    int visits = 0;
    store.SelectAll([&](const SalesRow &) { return ++visits < 2; });
    EXPECT_EQ(visits, 2);
}

TEST_F(JetSalesStoreTest, ReadingLeavesTheFileAsItWas)
{
    QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("nwind.mdb"));
    ASSERT_TRUE(QFile::copy(nwind, copy));
    QFile(copy).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    const QByteArray before = FileDigest(copy);
    {
        JetSalesStore store(copy, "Orders");
        store.SelectAll([](const SalesRow &) { return true; });
        store.SelectSpan("1/1/1994", "12/31/1996", EverySalesColumn, [](const SalesRow &) { return true; });
        ReadTable(copy, "Products", {"ProductName", "Discontinued"});
    }
    EXPECT_EQ(FileDigest(copy), before);
}

// ---- Opening a store by the file's kind

class OpenSalesStoreTest : public ::testing::Test
{
protected:
    QString write(const QString &name, const QByteArray &bytes)
    {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path;
    }

    QTemporaryDir folder;
};

TEST_F(OpenSalesStoreTest, MissingFileCantBeFound)
{
    const QString path = folder.filePath(QStringLiteral("Quillon.mdb"));
    const RuntimeError error = ErrorOf([&] { OpenSalesStore(path); });
    EXPECT_EQ(error.number(), EngineFailure);
    EXPECT_EQ(error.description(), QStringLiteral("Could not find file '%1'.").arg(path));
}

TEST_F(OpenSalesStoreTest, FilesOfOtherKindsAreUnrecognized)
{
    const std::pair<const char *, QByteArray> cases[] = {
        {"text", "\"3/31/2004\",\"1\",\"Burger\"\r\n"},
        {"empty", ""},
        {"short Jet", QByteArray("\0\1\0\0Standard Jet", 16)},
        {"damaged SQLite", QByteArray("SQLite format 3\0", 16) + QByteArray(200, 'x')},
    };
    for (const auto &[kind, bytes] : cases) {
        const QString path = write(QString::fromLatin1(kind), bytes);
        const RuntimeError error = ErrorOf([&] { OpenSalesStore(path); });
        EXPECT_EQ(error.number(), EngineFailure) << kind;
        EXPECT_EQ(error.description(), QStringLiteral("Unrecognized database format '%1'.").arg(path)) << kind;
    }
}

TEST_F(OpenSalesStoreTest, SqliteFileOpensAsTheSqliteStore)
{
    const QString path = folder.filePath(QStringLiteral("Quillon.db"));
    SqliteSalesWriter writer(path);
    SalesRow row;
    row[OrderID] = "7";
    writer.add(row);
    writer.commit();
    const std::unique_ptr<SalesStore> store = OpenSalesStore(path);
    EXPECT_NE(dynamic_cast<SqliteSalesStore *>(store.get()), nullptr);
    EXPECT_EQ(Collect([&](const SalesVisitor &visit) { store->SelectAll(visit); }), Texts({"7"}));
}

TEST_F(OpenSalesStoreTest, JetFileOpensAsTheJetStore)
{
    ASSERT_TRUE(HaveJetFixtures()) << "the Jet test files are missing from " QLON_JET_FIXTURES;
    // The sample database has no sales table, which only the Jet engine tells.
    const QString path = FixturePath(QStringLiteral("nwind.mdb"));
    const RuntimeError error = ErrorOf([&] { OpenSalesStore(path); });
    EXPECT_EQ(error.number(), EngineMissingTable);
    EXPECT_EQ(error.description(),
        QStringLiteral("The Microsoft Jet database engine cannot find the input table or query 'ItemsSold'.  "
                       "Make sure it exists and that its name is spelled correctly."));
}

// ---- The SQLite store

class SqliteSalesStoreTest : public ::testing::Test
{
protected:
    // Writes one row for each OrderDate, numbered from 1 in OrderID.
    void writeDates(std::initializer_list<SalesValue> dates)
    {
        std::vector<SalesRow> rows;
        for (const SalesValue &date : dates) {
            SalesRow row;
            row[OrderID] = QByteArray::number(rows.size() + 1);
            row[OrderDate] = date;
            rows.push_back(row);
        }
        write(rows);
    }

    void write(const std::vector<SalesRow> &rows)
    {
        SqliteSalesWriter writer(path);
        for (const SalesRow &row : rows)
            writer.add(row);
        writer.commit();
    }

    std::vector<SalesValue> selectAll(SalesColumn column = OrderID)
    {
        SqliteSalesStore store(path);
        return Collect([&](const SalesVisitor &visit) { store.SelectAll(visit); }, column);
    }

    std::vector<SalesValue> selectSpan(QByteArrayView from, QByteArrayView to)
    {
        SqliteSalesStore store(path);
        return Collect([&](const SalesVisitor &visit) { store.SelectSpan(from, to, EverySalesColumn, visit); });
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Quillon.db"));
};

// A connection of a station's, writing while the program reads.
SqliteDatabase stationConnection(const QString &path)
{
    SqliteDatabase station = OpenSqlite(path, SQLITE_OPEN_READWRITE);
    EXPECT_EQ(sqlite3_exec(station.get(), "PRAGMA journal_mode=WAL; INSERT INTO ItemsSold (OrderID) VALUES (2)", nullptr, nullptr, nullptr),
        SQLITE_OK);
    return station;
}

TEST_F(SqliteSalesStoreTest, ReadingLeavesNothingBesideTheStationsFileAndSeesItsNewestRows)
{
    writeDates({"2004-03-31"});
    const QStringList alone = QDir(folder.path()).entryList(QDir::Files);
    EXPECT_EQ(selectAll(), std::vector<SalesValue>{"1"});
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), alone);

    // The folder is looked at while the store is still open, too: SQLite removes its own files on closing.
    const auto readAndLook = [&](const QStringList &expected) {
        SqliteSalesStore store(path);
        const std::vector<SalesValue> read = Collect([&](const SalesVisitor &visit) { store.SelectAll(visit); });
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), expected);
        return read;
    };
    SqliteDatabase station = stationConnection(path);
    const QStringList withStation = QDir(folder.path()).entryList(QDir::Files);
    EXPECT_EQ(readAndLook(withStation), (std::vector<SalesValue>{"1", "2"})) << "the row still in the -wal file counts";
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), withStation);

    station.reset();
    ASSERT_EQ(QDir(folder.path()).entryList(QDir::Files), alone) << "the station's last close folds the -wal file in";
    EXPECT_EQ(readAndLook(alone), (std::vector<SalesValue>{"1", "2"}))
        << "a database in WAL mode that no station has open is read as it stands";
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), alone);
}

void expectStationError(const RuntimeError &error, const QString &path, const QString &description)
{
    EXPECT_TRUE(error.isHeldElsewhere()) << "a report never passes over it";
    EXPECT_EQ(error.detail(), path);
    EXPECT_EQ(error.description(), description);
}

TEST_F(SqliteSalesStoreTest, AStationsCommitIsWaitedForAndAStationHoldingTheFileEndsTheReadNamingIt)
{
    writeDates({"2004-03-31"});
    SqliteDatabase station = OpenSqlite(path, SQLITE_OPEN_READWRITE);
    ASSERT_EQ(
        sqlite3_exec(station.get(), "BEGIN EXCLUSIVE; INSERT INTO ItemsSold (OrderID) VALUES (2)", nullptr, nullptr, nullptr), SQLITE_OK);
    expectStationError(ErrorOf([&] { selectAll(); }), path, QStringLiteral("database is locked"));
    ASSERT_EQ(sqlite3_exec(station.get(), "COMMIT; BEGIN EXCLUSIVE; INSERT INTO ItemsSold (OrderID) VALUES (3)", nullptr, nullptr, nullptr),
        SQLITE_OK);
    std::thread commitSoon([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        sqlite3_exec(station.get(), "COMMIT", nullptr, nullptr, nullptr);
    });
    EXPECT_EQ(selectAll(), (std::vector<SalesValue>{"1", "2", "3"})) << "a commit within the wait is waited for";
    commitSoon.join();
}

// A station that opens the database, writes and closes it, leaving no -wal or -shm file behind.
void stationWritesAndCloses(const QString &path, int orderId)
{
    SqliteDatabase station = OpenSqlite(path, SQLITE_OPEN_READWRITE);
    const QByteArray insert = "PRAGMA journal_mode=WAL; INSERT INTO ItemsSold (OrderID) VALUES (" + QByteArray::number(orderId) + ")";
    ASSERT_EQ(sqlite3_exec(station.get(), insert.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
}

TEST_F(SqliteSalesStoreTest, AnUnlockedReadOfAWalDatabaseSeesTheFileChangeAndNeverReadsItsWalFileAlone)
{
    writeDates({"2004-03-31"});
    stationWritesAndCloses(path, 2);
    SqliteSalesStore store(path);
    stationWritesAndCloses(path, 3);
    EXPECT_EQ(Collect([&](const SalesVisitor &visit) { store.SelectAll(visit); }), (std::vector<SalesValue>{"1", "2", "3"}))
        << "a store kept open reads the state of each read";

    const RuntimeError changed = ErrorOf([&] {
        store.SelectAll([&](const SalesRow &) {
            stationWritesAndCloses(path, 4);
            return true;
        });
    });
    expectStationError(changed, path, QStringLiteral("The database changed while it was read."));

    // A station that ended without closing leaves commits in the -wal file and no -shm file.
    SqliteDatabase station = stationConnection(path);
    QFile::copy(path + QStringLiteral("-wal"), folder.filePath(QStringLiteral("kept-wal")));
    station.reset();
    QFile::rename(folder.filePath(QStringLiteral("kept-wal")), path + QStringLiteral("-wal"));
    expectStationError(ErrorOf([&] { selectAll(); }), path, QStringLiteral("The database's -wal file stands without its -shm file."));
    EXPECT_FALSE(QFileInfo::exists(path + QStringLiteral("-shm")));
}

TEST_F(SqliteSalesStoreTest, AViewNamedItemsSoldIsNoSalesTable)
{
    SqliteDatabase database = OpenSqlite(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    // A view whose rows never end.
    ASSERT_EQ(sqlite3_exec(database.get(),
                  "CREATE VIEW ItemsSold AS WITH RECURSIVE n(OrderID) AS (SELECT 1 UNION ALL SELECT OrderID + 1 FROM n) "
                  "SELECT OrderID, NULL AS OrderDate FROM n",
                  nullptr, nullptr, nullptr),
        SQLITE_OK);
    database.reset();
    const RuntimeError error = ErrorOf([&] { SqliteSalesStore store(path); });
    EXPECT_EQ(error.number(), EngineMissingTable);
}

TEST_F(SqliteSalesStoreTest, IsoDatesAndTimesComeOutInTheirTextForms)
{
    const std::pair<const char *, const char *> cases[] = {
        {"2004-03-31", "3/31/2004"},
        {"2004-03-31 18:05:00", "3/31/2004 6:05:00 PM"},
        {"2004-03-31T18:05:00", "3/31/2004 6:05:00 PM"},
        {"2004-03-31 00:00:00", "3/31/2004"},
        {"18:05:00", "6:05:00 PM"},
        {"00:00:00", "12:00:00 AM"},
        {"23:59:59", "11:59:59 PM"},
        {"24:00:00", "24:00:00"},
        {"18:05:00", "6:05:00 PM"},
        {"1899-12-30 07:30:15", "7:30:15 AM"},
        {"2004-02-30", "2004-02-30"},
        {"2004-03-31 24:00:00", "2004-03-31 24:00:00"},
        {"2004-03-31_18:05:00", "2004-03-31_18:05:00"},
        {"2004-03-31 18:05", "2004-03-31 18:05"},
        {"3/31/2004", "3/31/2004"},
        {"6:05:00 PM", "6:05:00 PM"},
    };
    std::vector<SalesRow> rows;
    for (const auto &[stored, shown] : cases) {
        SalesRow row;
        row[Time] = stored;
        rows.push_back(row);
    }
    write(rows);
    const std::vector<SalesValue> read = selectAll(Time);
    ASSERT_EQ(read.size(), std::size(cases));
    for (std::size_t index = 0; index < read.size(); ++index)
        EXPECT_EQ(read[index], cases[index].second) << cases[index].first;
}

TEST_F(SqliteSalesStoreTest, NumbersComeOutInTheirShortestForms)
{
    struct Case
    {
        SalesColumn column;
        const char *stored;
        const char *shown;
    };
    const Case cases[] = {
        {OrderID, "42", "42"},
        {OrderID, "4.5", "4.5"},
        {OrderID, "A7", "A7"},
        {Quantity, "3", "3"},
        {Quantity, "12.50", "12.5"},
        {Quantity, "-0.25", "-0.25"},
        {UnitPrice, "0.1", "0.1"},
        {UnitPrice, "6.50", "6.5"},
        {UnitPrice, "6.75", "6.75"},
        {UnitPrice, "1000000", "1000000"},
        {UnitPrice, "1e15", "1E+15"},
        {UnitPrice, "abc", "abc"},
        {ReceiptID, "0012", "0012"},
    };
    std::vector<SalesRow> rows;
    for (const Case &test : cases) {
        SalesRow row;
        row[test.column] = test.stored;
        rows.push_back(row);
    }
    write(rows);
    SqliteSalesStore store(path);
    std::size_t index = 0;
    store.SelectAll([&](const SalesRow &row) {
        const Case &test = cases[index++];
        EXPECT_EQ(row[test.column], test.shown) << test.stored;
        return true;
    });
    EXPECT_EQ(index, std::size(cases));
}

TEST_F(SqliteSalesStoreTest, NullStaysApartFromEmptyAndTextsKeepTheirBytes)
{
    SalesRow row;
    row[Item] = "Cr\xe8me br\xfbl\xe9"
                "e";
    row[ReceiptID] = "";
    row[Quantity] = "";
    write({row});
    SqliteSalesStore store(path);
    store.SelectAll([](const SalesRow &read) {
        EXPECT_EQ(read[Item],
            "Cr\xe8me br\xfbl\xe9"
            "e");
        EXPECT_EQ(read[ReceiptID], "");
        EXPECT_EQ(read[Quantity], "");
        EXPECT_EQ(read[OrderNumber], std::nullopt);
        EXPECT_EQ(read[OrderID], std::nullopt);
        return true;
    });
}

TEST_F(SqliteSalesStoreTest, EveryRowKeepsItsOwnValues)
{
    const char *const dates[] = {"2004-03-01", "2004-03-01", "2004-03-02", "x", "2004-03-01"};
    const char *const items[] = {"Burger", "Fries", "Fries", "Cola with ice", "Tea"};
    std::vector<SalesRow> rows;
    for (std::size_t index = 0; index < std::size(dates); ++index) {
        SalesRow row;
        row[OrderDate] = dates[index];
        row[Item] = items[index];
        rows.push_back(row);
    }
    write(rows);
    std::vector<SalesRow> read;
    SqliteSalesStore(path).SelectAll([&](const SalesRow &row) {
        read.push_back(row);
        return true;
    });
    ASSERT_EQ(read.size(), rows.size());
    const char *const shownDates[] = {"3/1/2004", "3/1/2004", "3/2/2004", "x", "3/1/2004"};
    for (std::size_t index = 0; index < read.size(); ++index) {
        EXPECT_EQ(read[index][OrderDate], shownDates[index]) << index;
        EXPECT_EQ(read[index][Item], items[index]) << index;
    }
}

TEST_F(SqliteSalesStoreTest, RowsComeInTableOrder)
{
    std::vector<SalesRow> rows;
    for (const char *id : {"30", "10", "20"}) {
        SalesRow row;
        row[OrderID] = id;
        row[OrderDate] = "2004-03-01";
        rows.push_back(row);
    }
    write(rows);
    EXPECT_EQ(selectAll(), Texts({"30", "10", "20"}));
    EXPECT_EQ(selectSpan("3/1/2004", "3/1/2004"), Texts({"30", "10", "20"}));
    EXPECT_EQ(SqliteSalesStore(path).CountRows(), 3);
}

// The LIKE select inside SQLite against the walk of every row, on values of every kind there.
TEST_F(SqliteSalesStoreTest, LikeSelectFindsWhatAWalkOfTheRowsFindsWithinTheMark)
{
    const char *const servers[] = {
        "1017", "10170", "x1017y", "12.50", "2004-03-01", "AbC1017", "", "caf\xe9", "1e15", "2004-03-01 18:05:00"};
    std::vector<SalesRow> rows;
    for (const char *server : servers) {
        SalesRow row;
        row[EmpNumber] = server;
        row[OrderID] = QByteArray::number(rows.size() + 1);
        rows.push_back(row);
    }
    rows.emplace_back(); // a null matches nothing
    rows.back()[OrderID] = "0";
    write(rows);
    SqliteSalesStore store(path);
    const SalesRowsMark all = store.MarkRows();
    EXPECT_EQ(all.last, qint64(rows.size()));
    const char *const patterns[] = {
        "*1017*", "*abc*", "*3/1/2004*", "*12.5*", "*CAF\xc9*", "*1E+15*", "*6:05*", "**", "*1?1*", "*[a-c]*", "1017"};
    for (const SalesRowsMark &mark : {all, SalesRowsMark{false, 3}, SalesRowsMark{}}) {
        for (const char *pattern : patterns) {
            const auto select = [&](bool inside) {
                return Collect([&](const SalesVisitor &visit) {
                    if (inside)
                        store.SelectLike(mark, EmpNumber, pattern, ColumnsOf({OrderID, EmpNumber}), visit);
                    else
                        store.SalesStore::SelectLike(mark, EmpNumber, pattern, ColumnsOf({OrderID, EmpNumber}), visit);
                });
            };
            EXPECT_EQ(select(true), select(false)) << pattern << " within " << mark.last;
        }
        EXPECT_EQ(Collect([&](const SalesVisitor &visit) { store.SelectMarked(mark, visit); }),
            Collect([&](const SalesVisitor &visit) { store.SalesStore::SelectMarked(mark, visit); }));
    }
    EXPECT_EQ(Collect([&](const SalesVisitor &visit) { store.SelectLike(all, EmpNumber, "*1017*", ColumnsOf({OrderID}), visit); }),
        Texts({"1", "2", "3", "6"}));
    SqliteSalesWriter(folder.filePath(QStringLiteral("empty.db"))).commit();
    EXPECT_TRUE(SqliteSalesStore(folder.filePath(QStringLiteral("empty.db"))).MarkRows().empty);
}

TEST_F(SqliteSalesStoreTest, SpanHoldsFromMidnightOfTheFromDateToMidnightOfTheToDate)
{
    const std::pair<const char *, bool> cases[] = {
        {"2004-02-29 23:59:59", false},
        {"2004-03-01", true},
        {"2004-03-01 00:00:00", true},
        {"2004-03-01T00:00:00", true},
        {"2004-03-01 18:00:00", true},
        {"2004-03-15T12:00:00", true},
        {"2004-03-31", true},
        {"2004-03-31 00:00:00", true},
        {"2004-03-31T00:00:00", true},
        {"2004-03-31 00:00:01", false},
        {"2004-03-31T00:00:01", false},
        {"2004-03-31 18:00:00", false},
        {"2004-04-01", false},
        {"3/15/2004", false},
        {"2/1/2004", false},
        {"2004-03-1x", false},
        {"2004-03-2", false},
        {"", false},
    };
    std::vector<SalesRow> rows;
    std::vector<SalesValue> inSpan;
    for (const auto &[date, in] : cases) {
        SalesRow row;
        row[OrderID] = QByteArray::number(rows.size() + 1);
        row[OrderDate] = date;
        rows.push_back(row);
        if (in)
            inSpan.push_back(row[OrderID]);
    }
    rows.push_back(SalesRow{}); // a null OrderDate
    write(rows);
    EXPECT_EQ(selectSpan("3/1/2004", "3/31/2004"), inSpan);
    EXPECT_EQ(selectSpan("03/01/04", "2004-03-31"), inSpan);
}

TEST_F(SqliteSalesStoreTest, SpanOfOneDayHoldsOnlyItsMidnight)
{
    writeDates({"2004-03-01", "2004-03-01 00:00:00", "2004-03-01 06:00:00", "2004-03-02"});
    EXPECT_EQ(selectSpan("3/1/2004", "3/1/2004"), Texts({"1", "2"}));
    EXPECT_EQ(selectSpan("3/2/2004", "3/1/2004"), Texts({}));
}

TEST_F(SqliteSalesStoreTest, StatementServesManySelects)
{
    writeDates({"2004-03-01", "2004-03-02", "2004-03-03"});
    SqliteSalesStore store(path);
    const auto select = [&](const char *from, const char *to) {
        return Collect([&](const SalesVisitor &visit) { store.SelectSpan(from, to, EverySalesColumn, visit); });
    };
    int visits = 0;
    store.SelectSpan("3/1/2004", "3/3/2004", EverySalesColumn, [&](const SalesRow &) { return ++visits < 1; });
    EXPECT_EQ(visits, 1);
    EXPECT_EQ(select("3/2/2004", "3/3/2004"), Texts({"2", "3"}));
    EXPECT_EQ(select("3/1/2004", "3/1/2004"), Texts({"1"}));
    EXPECT_EQ(Collect([&](const SalesVisitor &visit) { store.SelectAll(visit); }), Texts({"1", "2", "3"}));
    // Another choice of columns, still judged by OrderDate, and the first choice again.
    const auto selectOrderIds = [&](SalesColumn column) {
        return Collect([&](const SalesVisitor &visit) { store.SelectSpan("3/2/2004", "3/3/2004", ColumnsOf({OrderID}), visit); }, column);
    };
    EXPECT_EQ(selectOrderIds(OrderID), Texts({"2", "3"}));
    EXPECT_EQ(selectOrderIds(OrderDate), std::vector<SalesValue>(2));
    EXPECT_EQ(select("3/3/2004", "3/3/2004"), Texts({"3"}));
}

TEST_F(SqliteSalesStoreTest, ReadingLeavesTheFileAsItWas)
{
    writeDates({"2004-03-01", "2004-03-02 18:00:00", std::nullopt});
    const QByteArray before = FileDigest(path);
    selectAll();
    selectSpan("3/1/2004", "3/2/2004");
    EXPECT_EQ(FileDigest(path), before);
}

// ---- What both engines share

TEST(SalesSpanTest, DateTextThatCantBeReadRaisesTheEngineError)
{
    struct Case
    {
        const char *from;
        const char *to;
    };
    const Case cases[] = {{"13/45/2004", "3/31/2004"}, {"3/1/2004", ""}, {"today", "3/31/2004"}};
    for (const Case &test : cases) {
        const RuntimeError error = ErrorOf([&] { ReadDateSpan(test.from, test.to); });
        EXPECT_EQ(error.number(), EngineBadValue);
        EXPECT_EQ(error.description(),
            QStringLiteral("Syntax error in date in query expression "
                           "'OrderDate BETWEEN #%1# AND #%2#'.")
                .arg(QString::fromLatin1(test.from), QString::fromLatin1(test.to)));
    }
}

TEST(SalesSpanTest, BothEnginesRaiseTheErrorForABadDate)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Quillon.db"));
    SqliteSalesWriter(path).commit();
    SqliteSalesStore sqlite(path);
    const auto ignore = [](const SalesRow &) { return true; };
    EXPECT_EQ(ErrorOf([&] { sqlite.SelectSpan("3/1/2004", "3/32/2004", EverySalesColumn, ignore); }).number(), EngineBadValue);
    ASSERT_TRUE(HaveJetFixtures()) << "the Jet test files are missing from " QLON_JET_FIXTURES;
    JetSalesStore jet(FixturePath(QStringLiteral("nwind.mdb")), "Orders");
    EXPECT_EQ(ErrorOf([&] { jet.SelectSpan("3/1/2004", "3/32/2004", EverySalesColumn, ignore); }).number(), EngineBadValue);
}

TEST(SalesTextTest, DateTimeValuesShowTheirPartsAsThePlatformDoes)
{
    EXPECT_EQ(DateTimeText(QDate(2004, 3, 31), QTime(0, 0)), "3/31/2004");
    EXPECT_EQ(DateTimeText(QDate(2004, 3, 31), QTime(18, 5)), "3/31/2004 6:05:00 PM");
    EXPECT_EQ(DateTimeText(DayZero, QTime(18, 5)), "6:05:00 PM");
    EXPECT_EQ(DateTimeText(DayZero, QTime(0, 0)), "12:00:00 AM");
}

TEST(SalesTextTest, NumbersTakeTheirShortestForm)
{
    const std::pair<double, const char *> doubles[] = {
        {12.5, "12.5"},
        {3.0, "3"},
        {0.0, "0"},
        {-2.25, "-2.25"},
        {0.1 + 0.2, "0.30000000000000004"},
        {1e6, "1000000"},
        {123456789012345.0, "123456789012345"},
        {1e15, "1E+15"},
        {0.00001, "0.00001"},
        {0.000001, "1E-06"},
    };
    for (const auto &[value, text] : doubles)
        EXPECT_EQ(NumberText(value), text) << text;
    EXPECT_EQ(NumberText(0.1f), "0.1");
}

} // namespace
} // namespace qlon
