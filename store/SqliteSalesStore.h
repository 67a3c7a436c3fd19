#pragma once

#include "store/SalesStore.h"

#include <QHash>

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

// The sales table ItemsSold of an SQLite 3 file, opened read-only, rows in rowid order.
// Dates and times stand in the table as ISO texts: "2004-03-31", "2004-03-31 18:05:00" (or with
// "T" for the blank) and "18:05:00", which come out by DateTimeText as "3/31/2004",
// "3/31/2004 6:05:00 PM" and "6:05:00 PM"; a text of that shape that is no real date or time comes
// out as it stands, as every other text does. An integer comes out as its digits, a real number by
// NumberText, a null as none.
class SqliteSalesStore : public SalesStore
{
public:
    explicit SqliteSalesStore(const QString &hostPath);

    void SelectAll(const SalesVisitor &visit) override;
    // SQLite does the filtering, on the ISO texts: those of the from date and after, up to those
    // of the to date at midnight in any form. A text that doesn't begin with an ISO date, such as
    // "3/31/2004", is in no span.
    void SelectSpan(QByteArrayView from, QByteArrayView to, const SalesVisitor &visit) override;

private:
    void walk(sqlite3_stmt *statement, const SalesVisitor &visit);
    void readRow(sqlite3_stmt *statement);
    void readValue(sqlite3_stmt *statement, int column);
    void readText(QByteArrayView bytes, int column);
    void readNumber(double number, int column);
    void bindText(int parameter, const QByteArray &text);

    QString m_hostPath;
    SqliteDatabase m_database;
    SqliteStatement m_all;
    SqliteStatement m_span;
    SalesRow m_row;
    // Each column's ISO texts with their text forms: the rows repeat their dates and times.
    static constexpr qsizetype memoLimit = 100000;
    std::array<QHash<QByteArray, SalesValue>, SalesColumnCount> m_dateTimes;
    std::array<QHash<quint64, QByteArray>, SalesColumnCount> m_numbers;
};

} // namespace qlon
