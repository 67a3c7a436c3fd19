#include "store/SqliteSalesStore.h"

#include <bit>

#include <sqlite3.h>

#include <algorithm>
#include <charconv>

namespace qlon {
namespace {

// Any text that doesn't begin with an ISO date is kept out of a span.
constexpr QByteArrayView spanCondition(
    "OrderDate >= ?1 AND OrderDate < ?3 AND (OrderDate < ?2 OR julianday(OrderDate) = julianday(?2))"
    " AND OrderDate GLOB '[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]*'");

QByteArray selectStatement(QByteArrayView condition)
{
    QByteArray columns;
    for (QByteArrayView name : SalesColumnNames)
        columns += (columns.isEmpty() ? "" : ",") + name.toByteArray();
    QByteArray statement = "SELECT " + columns + " FROM " + SalesTableName.toByteArray();
    if (!condition.isEmpty())
        statement += " WHERE " + condition.toByteArray();
    return statement + " ORDER BY rowid";
}

// SQLite tells a missing table only in its message.
bool isMissingTable(sqlite3 *database)
{
    return QByteArrayView(sqlite3_errmsg(database)).startsWith("no such table");
}

// Whether the text has the shape, in which "0" stands for any digit.
bool hasShape(QByteArrayView text, QByteArrayView shape)
{
    return std::equal(text.begin(), text.end(), shape.begin(), shape.end(), [](char character, char wanted) {
        return wanted == '0' ? character >= '0' && character <= '9' : character == wanted;
    });
}

int digitsAt(QByteArrayView text, qsizetype start, qsizetype count)
{
    int number = 0;
    for (char digit : text.sliced(start, count))
        number = number * 10 + (digit - '0');
    return number;
}

std::optional<QDate> isoDate(QByteArrayView text)
{
    if (!hasShape(text, "0000-00-00"))
        return std::nullopt;
    const QDate date(digitsAt(text, 0, 4), digitsAt(text, 5, 2), digitsAt(text, 8, 2));
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> isoTime(QByteArrayView text)
{
    if (!hasShape(text, "00:00:00"))
        return std::nullopt;
    const QTime time(digitsAt(text, 0, 2), digitsAt(text, 3, 2), digitsAt(text, 6, 2));
    return time.isValid() ? std::optional(time) : std::nullopt;
}

std::optional<QByteArray> isoDateTimeText(QByteArrayView text)
{
    constexpr qsizetype dateLength = 10;
    constexpr qsizetype timeLength = 8;
    std::optional<QDate> date = DayZero;
    std::optional<QTime> time = QTime(0, 0);
    if (text.size() == timeLength) {
        time = isoTime(text);
    } else if (text.size() == dateLength) {
        date = isoDate(text);
    } else if (text.size() == dateLength + 1 + timeLength && (text[dateLength] == ' ' || text[dateLength] == 'T')) {
        date = isoDate(text.first(dateLength));
        time = isoTime(text.last(timeLength));
    } else {
        return std::nullopt;
    }
    if (!date || !time)
        return std::nullopt;
    return DateTimeText(*date, *time);
}

// Copies the bytes into the value, reusing its buffer when the visitor kept no copy of it.
void assign(SalesValue &value, QByteArrayView bytes)
{
    if (!value || !value->isDetached()) {
        value.emplace(bytes.data(), bytes.size());
        return;
    }
    value->resize(bytes.size());
    std::copy_n(bytes.data(), bytes.size(), value->data());
}

QByteArrayView columnBytes(sqlite3_stmt *statement, int column)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    return QByteArrayView(text, sqlite3_column_bytes(statement, column));
}

void assignWhole(SalesValue &value, qint64 number)
{
    std::array<char, 24> digits;
    const char *end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    assign(value, QByteArrayView(digits.data(), end));
}

// Makes the statement ready for its next run, however the walk ends.
class ResetAtExit
{
public:
    explicit ResetAtExit(sqlite3_stmt *statement) : m_statement(statement) {}
    ~ResetAtExit() { sqlite3_reset(m_statement); }
    ResetAtExit(const ResetAtExit &) = delete;
    ResetAtExit &operator=(const ResetAtExit &) = delete;

private:
    sqlite3_stmt *m_statement;
};

QByteArray isoText(QDate date)
{
    return date.toString(Qt::ISODate).toLatin1();
}

} // namespace

void SqliteCloser::operator()(sqlite3 *database) const
{
    sqlite3_close(database);
}

void SqliteCloser::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

SqliteDatabase OpenSqlite(const QString &hostPath, int flags)
{
    sqlite3 *opened = nullptr;
    const int result = sqlite3_open_v2(hostPath.toUtf8().constData(), &opened, flags, nullptr);
    SqliteDatabase database(opened);
    if (result != SQLITE_OK)
        throw SqliteError(database.get(), hostPath);
    return database;
}

SqliteStatement PrepareSqlite(sqlite3 *database, QByteArrayView sql, const QString &hostPath)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v3(database, sql.data(), int(sql.size()), SQLITE_PREPARE_PERSISTENT, &statement, nullptr)
        != SQLITE_OK)
        throw SqliteError(database, hostPath);
    return SqliteStatement(statement);
}

RuntimeError SqliteError(sqlite3 *database, const QString &hostPath)
{
    if (sqlite3_errcode(database) == SQLITE_NOTADB)
        return UnrecognizedFormatError(hostPath);
    if (isMissingTable(database))
        return MissingTableError(SalesTableName, hostPath);
    return EngineError(QString::fromUtf8(sqlite3_errmsg(database)), hostPath);
}

SqliteSalesStore::SqliteSalesStore(const QString &hostPath)
    : m_hostPath(hostPath)
    , m_database(OpenSqlite(hostPath, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX))
    , m_all(PrepareSqlite(m_database.get(), selectStatement({}), hostPath))
    , m_span(PrepareSqlite(m_database.get(), selectStatement(spanCondition), hostPath))
{
}

void SqliteSalesStore::SelectAll(const SalesVisitor &visit)
{
    walk(m_all.get(), visit);
}

// ISO texts sort as their dates do, so the ends become comparisons of texts: from the from date on,
// and before the day after the to date, where a value on the to date itself counts only at midnight.
void SqliteSalesStore::SelectSpan(QByteArrayView from, QByteArrayView to, const SalesVisitor &visit)
{
    const DateSpan span = ReadDateSpan(from, to);
    bindText(1, isoText(span.from));
    bindText(2, isoText(span.to));
    bindText(3, isoText(span.to.addDays(1)));
    walk(m_span.get(), visit);
}

void SqliteSalesStore::bindText(int parameter, const QByteArray &text)
{
    if (sqlite3_bind_text(m_span.get(), parameter, text.constData(), int(text.size()), SQLITE_TRANSIENT) != SQLITE_OK)
        throw SqliteError(m_database.get(), m_hostPath);
}

void SqliteSalesStore::walk(sqlite3_stmt *statement, const SalesVisitor &visit)
{
    const ResetAtExit reset(statement);
    for (;;) {
        const int result = sqlite3_step(statement);
        if (result == SQLITE_DONE)
            return;
        if (result != SQLITE_ROW)
            throw SqliteError(m_database.get(), m_hostPath);
        readRow(statement);
        if (!visit(m_row))
            return;
    }
}

void SqliteSalesStore::readRow(sqlite3_stmt *statement)
{
    for (int column = 0; column < SalesColumnCount; ++column)
        readValue(statement, column);
}

void SqliteSalesStore::readValue(sqlite3_stmt *statement, int column)
{
    SalesValue &value = m_row[column];
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        value.reset();
        return;
    case SQLITE_INTEGER:
        assignWhole(value, sqlite3_column_int64(statement, column));
        return;
    case SQLITE_FLOAT:
        readNumber(sqlite3_column_double(statement, column), column);
        return;
    default:
        readText(columnBytes(statement, column), column);
    }
}

void SqliteSalesStore::readNumber(double number, int column)
{
    // Prices and quantities repeat: each number is turned into text once.
    // Keyed by the bits, so that 0 and -0 stay apart.
    QHash<quint64, QByteArray> &memo = m_numbers[column];
    const quint64 bits = std::bit_cast<quint64>(number);
    auto known = memo.constFind(bits);
    if (known == memo.constEnd()) {
        if (memo.size() >= memoLimit)
            memo.clear();
        known = memo.insert(bits, NumberText(number));
    }
    m_row[column] = *known;
}

void SqliteSalesStore::readText(QByteArrayView bytes, int column)
{
    // Only texts of the lengths of ISO dates and times can be date-time values.
    if (bytes.size() != 8 && bytes.size() != 10 && bytes.size() != 19)
        return assign(m_row[column], bytes);
    QHash<QByteArray, SalesValue> &memo = m_dateTimes[column];
    const auto known = memo.constFind(QByteArray::fromRawData(bytes.data(), bytes.size()));
    if (known != memo.constEnd()) {
        m_row[column] = *known;
        return;
    }
    const std::optional<QByteArray> dateTime = isoDateTimeText(bytes);
    if (!dateTime)
        return assign(m_row[column], bytes);
    if (memo.size() >= memoLimit)
        memo.clear();
    memo.insert(bytes.toByteArray(), dateTime);
    m_row[column] = dateTime;
}

} // namespace qlon
