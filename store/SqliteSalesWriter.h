#pragma once

#include "store/SqliteSalesStore.h"

namespace qlon {

// Makes an SQLite sales store, for the demonstration site and the tests: the file is created anew
// with the table ItemsSold, and the rows go in within one transaction that commit() ends.
class SqliteSalesWriter
{
public:
    // A file already at the path is replaced.
    explicit SqliteSalesWriter(const QString &hostPath);

    // Adds a row as its texts stand, ISO dates and times included, a null as NULL. A text that
    // reads as a number goes into the numeric columns OrderID, Quantity and UnitPrice as that number.
    void add(const SalesRow &row);
    // Rows added but not committed are dropped when the writer goes.
    void commit();

private:
    void execute(const QByteArray &sql);
    void bind(int column, const SalesValue &value);

    QString m_hostPath;
    SqliteDatabase m_database;
    SqliteStatement m_insert;
};

} // namespace qlon
