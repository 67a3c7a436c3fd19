#pragma once

#include "core/Memo.h"
#include "store/SalesStore.h"

#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace qlon {

struct SqliteCloser
{
    void operator()(sqlite3 *database) const;
    void operator()(sqlite3_stmt *statement) const;
};
using SqliteDatabase = std::unique_ptr<sqlite3, SqliteCloser>;
using SqliteStatement = std::unique_ptr<sqlite3_stmt, SqliteCloser>;

// Opens the file with the sqlite3_open_v2 flags; a failure raises the engine's error.
SqliteDatabase OpenSqlite(const QString &hostPath, int flags);
// A statement kept for running many times.
SqliteStatement PrepareSqlite(sqlite3 *database, QByteArrayView sql, const QString &hostPath);
// The engine's error for SQLite's last failure on the database.
RuntimeError SqliteError(sqlite3 *database, const QString &hostPath);

class SqliteStationFile;

// The sales table ItemsSold of an SQLite 3 file, opened read-only, rows in rowid order. The file
// belongs to the stations: nothing is ever written beside it, each select sees one committed state
// of it (see SqliteStationFile), and a view of that name is no table, so that a read always ends.
// Dates and times stand in the table as ISO texts: "2004-03-31", "2004-03-31 18:05:00" (or with
// "T" for the blank) and "18:05:00", which come out by DateTimeText as "3/31/2004",
// "3/31/2004 6:05:00 PM" and "6:05:00 PM"; a text of that shape that is no real date or time comes
// out as it stands, as every other text does. An integer comes out as its digits, a real number by
// NumberText, a null as none.
class SqliteSalesStore : public SalesStore
{
public:
    explicit SqliteSalesStore(const QString &hostPath);
    ~SqliteSalesStore() override;

    void SelectAll(const SalesVisitor &visit) override;
    // SQLite does the filtering, on the ISO texts: those of the from date and after, up to those
    // of the to date at midnight in any form. A text that doesn't begin with an ISO date, such as
    // "3/31/2004", is in no span.
    void SelectSpan(QByteArrayView from, QByteArrayView to, SalesColumns columns, const SalesVisitor &visit) override;
    qint64 CountRows() override;
    // By rowid, and with the LIKE test inside SQLite's walk of the table.
    SalesRowsMark MarkRows() override;
    void SelectMarked(const SalesRowsMark &mark, const SalesVisitor &visit) override;
    void SelectLike(
        const SalesRowsMark &mark, SalesColumn column, QByteArrayView pattern, SalesColumns columns, const SalesVisitor &visit) override;

private:
    // A prepared select and where its result columns go in the row.
    struct Select
    {
        SqliteStatement statement;
        std::vector<SalesColumn> columns; // the table column of each result column read
        // The result column whose text must begin with an ISO date for the row to count, if any.
        std::optional<int> isoDateAt;

        // Reads the chosen columns, in table order; their names.
        QByteArrayList choose(SalesColumns chosen);
    };

    void connect();
    // Before each read: a new connection when the file's state asks for one.
    void startRead();
    void checkSalesTable() const;
    Select prepareSelect(SalesColumns columns, QByteArrayView condition = {}) const;
    Select prepareSpanSelect(SalesColumns columns) const;
    void walk(const Select &select, const SalesVisitor &visit);
    void readRow(const Select &select);
    void readValue(sqlite3_stmt *statement, int at, SalesColumn column);
    void readText(QByteArrayView bytes, int column);
    void readTimeOfDay(QTime time, int column);
    void readNumber(double number, int column);
    void bindText(int parameter, const QByteArray &text);

    QString m_hostPath;
    std::unique_ptr<SqliteStationFile> m_file;
    SqliteDatabase m_database;
    Select m_all;
    Select m_marked;
    Select m_span;
    SalesColumns m_spanColumns;
    Select m_like;
    SalesColumns m_likeColumns;
    SalesColumn m_likeColumn = OrderID;
    SalesRow m_row;
    // Each column's ISO texts with their text forms, and its numbers (by their bits, so that 0 and
    // -0 stay apart) with theirs: the rows repeat their dates, times, prices and quantities.
    std::array<Memo<QByteArray, SalesValue>, SalesColumnCount> m_dateTimes;
    std::array<Memo<quint64, QByteArray>, SalesColumnCount> m_numbers;
    // The text of each second of the day as a time alone, once it was read.
    std::vector<SalesValue> m_timesOfDay;
};

} // namespace qlon
