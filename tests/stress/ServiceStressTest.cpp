// Reports while the stations write: a station process commits sales into the sales database (SQLite
// in each journal mode, Jet rewriting its pages in place) or appends them to a monthly file, while
// this process reads report after report. Each report must see a whole number of the station's
// transactions, or end with an error that names the file and that a later run may retry.
// QLON_STRESS_SECONDS sets how long each case runs (5 s by default).
#include "platform/FileLock.h"
#include "serversales/logic/SpanSales.h"
#include "store/MonthlySales.h"
#include "store/SqliteSalesWriter.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <array>
#include <cmath>
#include <csignal>
#include <cstring>
#include <functional>
#include <iostream>
#include <random>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace qlon {
namespace {

using namespace std::chrono_literals;

const SalesSpan week{"11/16/2026", "11/22/2026", "12:00 AM", "11:59 PM"};
const QByteArray stressItem = QByteArrayLiteral("Stress");

std::chrono::milliseconds caseLength()
{
    const int seconds = qEnvironmentVariableIntValue("QLON_STRESS_SECONDS");
    return std::chrono::seconds(seconds > 0 ? seconds : 5);
}

// A station in a process of its own, writing until it is killed.
class Station
{
public:
    explicit Station(const std::function<void()> &work)
        : m_pid(fork())
    {
        if (m_pid == 0) {
            work();
            _exit(0);
        }
    }
    ~Station()
    {
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
    Station(const Station &) = delete;
    Station &operator=(const Station &) = delete;

private:
    pid_t m_pid;
};

// How the reports of a case ended.
struct Outcomes
{
    int whole = 0;
    int held = 0;
};

// Runs the report again and again for the case's length. A report that raises must raise the error
// of a station's file, naming it.
template<typename Report>
Outcomes runReports(const QString &hostPath, Report &&report)
{
    Outcomes outcomes;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < caseLength().count()) {
        try {
            report();
            ++outcomes.whole;
        } catch (const RuntimeError &error) {
            EXPECT_TRUE(error.isHeldElsewhere()) << error.description().toStdString();
            EXPECT_TRUE(error.detail().contains(QFileInfo(hostPath).fileName())) << error.detail().toStdString();
            ++outcomes.held;
        }
    }
    std::cout << QFileInfo(hostPath).fileName().toStdString() << ": " << outcomes.whole << " whole, " << outcomes.held << " held, in "
              << clock.elapsed() << " ms\n";
    return outcomes;
}

SalesRow saleRow(qint64 number, const QByteArray &item, const QByteArray &price)
{
    SalesRow row;
    row[OrderID] = QByteArray::number(number);
    row[OrderDate] = "2026-11-18";
    row[Quantity] = "1";
    row[Item] = item;
    row[ItemType] = "F";
    row[UnitPrice] = price;
    row[Time] = "12:00:00";
    row[ReceiptID] = QByteArray::number(number % 97);
    return row;
}

// A site's week of other sales, and the stress item's rows that the Jet station rewrites.
void writeSales(const QString &path, int stressRows, int otherRows)
{
    SqliteSalesWriter writer(path);
    for (int number = 1; number <= otherRows; ++number) {
        writer.add(saleRow(number, "Item " + QByteArray::number(number % 300), "2.5"));
        if (stressRows > 0 && number % (otherRows / stressRows) == 0)
            writer.add(saleRow(number, stressItem, "100"));
    }
    writer.commit();
}

const ItemSales &stressSales(const QString &path, std::unique_ptr<SpanSales> &read)
{
    const std::unique_ptr<SalesStore> store = OpenSalesStore(path);
    read = std::make_unique<SpanSales>(*store, week);
    return read->of(stressItem);
}

// ---- SQLite

void execute(sqlite3 *database, const char *sql)
{
    if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        _exit(3);
}

// Commits transactions of `lines` sales of the stress item at 1.00, pausing between them; in WAL
// mode it checkpoints often and now and then closes the database, as the last station to close
// folds the -wal file in and removes it with the -shm file.
void sqliteStation(const QString &path, bool wal, int lines, std::chrono::milliseconds pause)
{
    const QByteArray file = QFile::encodeName(path);
    for (int opening = 0;; ++opening) {
        sqlite3 *database = nullptr;
        sqlite3_open_v2(file.constData(), &database, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_busy_timeout(database, 20000);
        execute(database, wal ? "PRAGMA journal_mode=WAL; PRAGMA wal_autocheckpoint=50" : "PRAGMA journal_mode=DELETE");
        for (int transaction = 0; transaction < 7; ++transaction) {
            execute(database, "BEGIN IMMEDIATE");
            for (int line = 0; line < lines; ++line)
                execute(database,
                    "INSERT INTO ItemsSold (OrderDate, Quantity, Item, ItemType, UnitPrice, Time) "
                    "VALUES ('2026-11-18', 1, 'Stress', 'F', 1, '12:00:00')");
            execute(database, "COMMIT");
            std::this_thread::sleep_for(pause);
        }
        sqlite3_close(database);
    }
}

void stressSqlite(bool wal, int lines, std::chrono::milliseconds pause)
{
    SCOPED_TRACE(testing::Message() << (wal ? "WAL" : "rollback") << " mode, " << lines << " lines a transaction");
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Quillon.mdb"));
    writeSales(path, 0, 20000);
    const Station station([&] { sqliteStation(path, wal, lines, pause); });
    std::unique_ptr<SpanSales> read;
    const Outcomes outcomes = runReports(path, [&] {
        const ItemSales &sales = stressSales(path, read);
        EXPECT_EQ(std::fmod(sales.units, lines), 0) << "a report saw part of a transaction";
        EXPECT_EQ(sales.sales, sales.units);
    });
    EXPECT_GT(outcomes.whole, outcomes.held) << "most reports end whole while a station commits";
    const QStringList left = QDir(folder.path()).entryList(QDir::Files);
    for (const QString &name : left)
        EXPECT_TRUE(name == QStringLiteral("Quillon.mdb") || name.endsWith(QStringLiteral("-wal")) ||
            name.endsWith(QStringLiteral("-shm")) || name.endsWith(QStringLiteral("-journal")))
            << name.toStdString();
}

TEST(ServiceStressTest, SqliteReportsSeeWholeTransactionsInEitherJournalMode)
{
    SetStationWait(3s);
    stressSqlite(false, 5, 200ms);
    stressSqlite(false, 200, 0ms);
    stressSqlite(true, 5, 200ms);
    stressSqlite(true, 200, 0ms);
}

// ---- Jet

constexpr int jetStressRows = 5;
constexpr int pageSize = 4096;

// The offsets of a Currency value's eight bytes in the file.
std::vector<qint64> offsetsOf(const QByteArray &file, qint64 tenThousandths)
{
    const QByteArray bytes(reinterpret_cast<const char *>(&tenThousandths), sizeof tenThousandths);
    std::vector<qint64> offsets;
    for (qsizetype at = file.indexOf(bytes); at >= 0; at = file.indexOf(bytes, at + 1))
        offsets.push_back(at);
    return offsets;
}

// Each transaction sets every stress row's price to the next whole number of dollars, page by page
// as Jet writes a commit: a report that mixed two states adds up to no multiple of the row count.
void jetStation(const QString &path, const std::vector<qint64> &prices, std::chrono::milliseconds pause)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDWR);
    for (qint64 dollars = 101;; ++dollars) {
        const qint64 value = dollars * 10000;
        for (qint64 offset : prices) {
            std::array<char, pageSize> page;
            const off_t pageStart = offset / pageSize * pageSize;
            if (pread(file, page.data(), pageSize, pageStart) != pageSize)
                _exit(3);
            std::memcpy(page.data() + (offset - pageStart), &value, sizeof value);
            if (pwrite(file, page.data(), pageSize, pageStart) != pageSize)
                _exit(3);
        }
        std::this_thread::sleep_for(pause);
    }
}

TEST(ServiceStressTest, JetReportsSeeWholeTransactionsWhileAStationRewritesPages)
{
    SetStationWait(3s);
    QTemporaryDir folder;
    const QString sqlite = folder.filePath(QStringLiteral("sales.sqlite"));
    const QString path = folder.filePath(QStringLiteral("Quillon.mdb"));
    writeSales(sqlite, jetStressRows, 2000);
    ASSERT_EQ(QProcess::execute(QStringLiteral("python3"), {QStringLiteral(QLON_JET_TOOLS "/sqlite-to-jet.py"), sqlite, path}), 0);
    QFile written(path);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    const std::vector<qint64> prices = offsetsOf(written.readAll(), 100 * 10000);
    ASSERT_EQ(prices.size(), std::size_t(jetStressRows));

    for (const std::chrono::milliseconds pause : {200ms, 0ms}) {
        const Station station([&] { jetStation(path, prices, pause); });
        std::unique_ptr<SpanSales> read;
        const Outcomes outcomes = runReports(path, [&] {
            const ItemSales &sales = stressSales(path, read);
            EXPECT_EQ(sales.units, jetStressRows);
            EXPECT_EQ(std::fmod(sales.sales, jetStressRows), 0) << "a report mixed two states of the file: " << sales.sales;
        });
        if (pause > 0ms) {
            EXPECT_GT(outcomes.whole, 0) << "a station that pauses between commits leaves a moment to read in";
        }
    }
}

// ---- The monthly file

constexpr int monthLines = 5;

// Appends transactions of lines while holding the file as the stations do, each in two writes with
// a pause between; every tenth transaction holds the file for longer than the program waits.
void monthStation(const QString &path, std::chrono::milliseconds wait)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_APPEND);
    QByteArray lines;
    for (int line = 0; line < monthLines; ++line)
        lines += "\"11/18/26\",\"1\",\"Stress\",\"1\",\"F\",\"12:00 PM\",\"\",\"\"\r\n";
    const qsizetype half = lines.size() / 2 + 3; // inside a line
    for (int transaction = 1;; ++transaction) {
        struct flock whole = {};
        whole.l_type = F_WRLCK;
        whole.l_whence = SEEK_SET;
        fcntl(file, F_OFD_SETLKW, &whole);
        if (write(file, lines.constData(), std::size_t(half)) != half)
            _exit(3);
        std::this_thread::sleep_for(transaction % 10 == 0 ? wait + 500ms : 20ms);
        if (write(file, lines.constData() + half, std::size_t(lines.size() - half)) != lines.size() - half)
            _exit(3);
        whole.l_type = F_UNLCK;
        fcntl(file, F_OFD_SETLK, &whole);
        std::this_thread::sleep_for(100ms);
    }
}

TEST(ServiceStressTest, MonthlyFileReportsCountWholeTransactionsOrNameTheHeldFile)
{
    SetStationWait(1s);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("ItemsSold112026.DAT"));
    const QString rejects = folder.filePath(QStringLiteral("Items.tmp"));
    QFile(path).open(QIODevice::WriteOnly);
    const Station station([&] { monthStation(path, StationWait()); });
    const Outcomes outcomes = runReports(path, [&] {
        MonthlySalesFile month(path, rejects);
        int lines = 0;
        while (const std::optional<MonthlyRecord> record = month.next())
            lines += (*record)[SoldItem] == stressItem ? 1 : 0;
        EXPECT_EQ(lines % monthLines, 0) << "a report counted part of a transaction";
        EXPECT_EQ(month.rejects(), 0);
    });
    EXPECT_GT(outcomes.whole, 0);
    EXPECT_GT(outcomes.held, 0) << "a station that holds the file past the wait ends the report with its name";
}

} // namespace
} // namespace qlon
