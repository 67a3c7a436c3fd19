#pragma once

#include "store/SalesStore.h"

#include <QByteArrayList>
#include <QDateTime>

namespace qlon {

// The date and time, in UTC, of a stored DateTime value: the days since 12/30/1899 with the time of
// day as the fraction. Before that day the days count back while the fraction still counts forward,
// so -1.25 is 12/29/1899 6 AM. Rounded to the second.
QDateTime JetDateTime(double serial);

// One table of a Jet 3 or 4 database file, read through libmdb without writing, row by row in
// table order. Values come as SalesValue texts: a DateTime by DateTimeText, whole numbers as digits,
// floating numbers and Currency in their shortest form ("12.75"), Yes/No as "True" or "False",
// texts in Windows-1252. One object serves one thread.
class JetTable
{
public:
    // Where the pages come from: a copy of the file in one state (StationFileCopy), since a station
    // may write the file while it is read and libmdb takes no lock; or the file itself, for a look
    // at its catalogue alone.
    enum class Pages { SettledCopy, File };

    // Opens the file and the table, whose name is compared without regard to case. The row gives
    // the named columns in this order, also found without regard to case; a name that the table
    // lacks reads as null.
    JetTable(const QString &hostPath, QByteArrayView name, const QByteArrayList &columns, Pages pages = Pages::SettledCopy);
    ~JetTable();
    JetTable(const JetTable &) = delete;
    JetTable &operator=(const JetTable &) = delete;

    // Goes back to before the first row.
    void rewind();
    // Moves to the next row; false after the last.
    bool next();
    // The value of the column at the position among the named columns, in the current row.
    SalesValue value(qsizetype column) const;
    // The JetDateTime of a DateTime value; none for a null or a value of another type.
    std::optional<QDateTime> dateTime(qsizetype column) const;
    // The live rows, as the table's definition counts them.
    qint64 rowCount() const;

private:
    class Reader;
    std::unique_ptr<Reader> m_reader;
};

// The sales table of a Jet database file. A span holds the rows whose OrderDate is a DateTime value
// within it; a null, or a value of another type, lies in no span.
class JetSalesStore : public SalesStore
{
public:
    // The table is ItemsSold on a site; another table serves as well, its columns found by the names.
    explicit JetSalesStore(const QString &hostPath, QByteArrayView table = SalesTableName);

    void SelectAll(const SalesVisitor &visit) override;
    void SelectSpan(QByteArrayView from, QByteArrayView to, SalesColumns columns, const SalesVisitor &visit) override;
    qint64 CountRows() override;

private:
    // Walks the rows that pass the test, from the first.
    void walk(const std::function<bool()> &passes, SalesColumns columns, const SalesVisitor &visit);

    JetTable m_table;
    SalesRow m_row;
};

} // namespace qlon
