#include "store/SqliteSalesWriter.h"

#include <QFile>

#include <sqlite3.h>

#include <cmath>

namespace qlon {
namespace {

enum class ColumnType { Integer, Real, Text };

constexpr std::array<ColumnType, SalesColumnCount> columnTypes{
    ColumnType::Integer, // OrderID
    ColumnType::Text, // OrderDate
    ColumnType::Text, // ReceiptID
    ColumnType::Real, // Quantity
    ColumnType::Text, // Item
    ColumnType::Text, // ItemType
    ColumnType::Real, // UnitPrice
    ColumnType::Text, // Time
    ColumnType::Text, // SaleType
    ColumnType::Text, // OrderNumber
    ColumnType::Text, // POSstation
    ColumnType::Text, // EmpNumber
    ColumnType::Text, // TableNumber
};

QByteArray typeName(ColumnType type)
{
    switch (type) {
    case ColumnType::Integer: return "INTEGER";
    case ColumnType::Real: return "REAL";
    case ColumnType::Text: break;
    }
    return "TEXT";
}

QByteArray createStatement()
{
    QByteArrayList columns;
    for (qsizetype column = 0; column < SalesColumnCount; ++column)
        columns.append(SalesColumnNames[column].toByteArray() + ' ' + typeName(columnTypes[column]));
    return "CREATE TABLE " + SalesTableName.toByteArray() + " (" + columns.join(", ") + ')';
}

QByteArray insertStatement()
{
    QByteArrayList parameters;
    for (qsizetype column = 0; column < SalesColumnCount; ++column)
        parameters.append('?' + QByteArray::number(column + 1));
    return "INSERT INTO " + SalesTableName.toByteArray() + " VALUES (" + parameters.join(',') + ')';
}

std::optional<qint64> wholeNumber(const QByteArray &text, ColumnType type)
{
    bool isNumber = false;
    const qint64 number = type == ColumnType::Integer ? text.toLongLong(&isNumber) : 0;
    return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<double> realNumber(const QByteArray &text, ColumnType type)
{
    bool isNumber = false;
    const double number = type != ColumnType::Text ? text.toDouble(&isNumber) : 0;
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace

SqliteSalesWriter::SqliteSalesWriter(const QString &hostPath)
    : m_hostPath(hostPath)
{
    QFile::remove(hostPath);
    m_database = OpenSqlite(hostPath, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    execute(createStatement());
    execute("BEGIN");
    m_insert = PrepareSqlite(m_database.get(), insertStatement(), hostPath);
}

void SqliteSalesWriter::add(const SalesRow &row)
{
    for (int column = 0; column < SalesColumnCount; ++column)
        bind(column, row[column]);
    const int result = sqlite3_step(m_insert.get());
    sqlite3_reset(m_insert.get());
    if (result != SQLITE_DONE)
        throw SqliteError(m_database.get(), m_hostPath);
}

void SqliteSalesWriter::commit()
{
    execute("COMMIT");
}

void SqliteSalesWriter::execute(const QByteArray &sql)
{
    if (sqlite3_exec(m_database.get(), sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw SqliteError(m_database.get(), m_hostPath);
}

// The text stays bound only until the row is stepped, while the caller's row still holds it.
void SqliteSalesWriter::bind(int column, const SalesValue &value)
{
    sqlite3_stmt *insert = m_insert.get();
    const int parameter = column + 1;
    if (!value)
        sqlite3_bind_null(insert, parameter);
    else if (const std::optional<qint64> whole = wholeNumber(*value, columnTypes[column]))
        sqlite3_bind_int64(insert, parameter, *whole);
    else if (const std::optional<double> number = realNumber(*value, columnTypes[column]))
        sqlite3_bind_double(insert, parameter, *number);
    else
        sqlite3_bind_text(insert, parameter, value->constData(), int(value->size()), SQLITE_STATIC);
}

} // namespace qlon
