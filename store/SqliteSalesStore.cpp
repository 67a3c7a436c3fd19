#include "store/SqliteSalesStore.h"

#include "core/Like.h"
#include "store/SqliteStationFile.h"

#include <sqlite3.h>

#include <algorithm>
#include <bit>
#include <charconv>

namespace qlon {
namespace {

// The walk keeps out the texts that pass this but don't begin with an ISO date. A date alone on
// the to date is told by its text, before SQLite reads any value on that date as a date.
constexpr QByteArrayView spanCondition(
    "OrderDate >= ?1 AND OrderDate < ?3 AND (OrderDate < ?2 OR OrderDate = ?2 OR julianday(OrderDate) = julianday(?2))");

QByteArray selectStatement(const QByteArrayList &names, QByteArrayView condition)
{
    QByteArray statement = "SELECT " + names.join(',') + " FROM " + SalesTableName.toByteArray();
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
    return std::equal(text.begin(), text.end(), shape.begin(), shape.end(),
        [](char character, char wanted) { return wanted == '0' ? character >= '0' && character <= '9' : character == wanted; });
}

int digitsAt(QByteArrayView text, qsizetype start, qsizetype count)
{
    int number = 0;
    for (char digit : text.sliced(start, count))
        number = number * 10 + (digit - '0');
    return number;
}

bool beginsWithIsoDate(QByteArrayView text)
{
    return text.size() >= 10 && hasShape(text.first(10), "0000-00-00");
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

// Whether the text has the length and the first separator of an ISO date or time.
bool mayBeIsoDateTime(QByteArrayView text)
{
    switch (text.size()) {
    case 8: return text[2] == ':';
    case 10:
    case 19: return text[4] == '-';
    default: return false;
    }
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

QByteArrayView valueBytes(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return QByteArrayView(text, sqlite3_value_bytes(value));
}

void assignWhole(SalesValue &value, qint64 number)
{
    std::array<char, 24> digits;
    const char *end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    AssignValue(value, QByteArrayView(digits.data(), end));
}

// Makes the statement ready for its next run, however the walk ends.
class ResetAtExit
{
public:
    explicit ResetAtExit(sqlite3_stmt *statement)
        : m_statement(statement)
    {
    }
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

// A value's text as the row reader gives it: an integer by its digits, a real number by NumberText,
// an ISO date or time in the platform's form, every other text as it stands.
bool valueMatchesLike(sqlite3_value *value, QByteArrayView pattern)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL: return false;
    case SQLITE_FLOAT: return MatchesLike(NumberText(sqlite3_value_double(value)), pattern);
    default: break;
    }
    const QByteArrayView text = valueBytes(value);
    if (mayBeIsoDateTime(text)) {
        if (const std::optional<QByteArray> dateTime = isoDateTimeText(text))
            return MatchesLike(*dateTime, pattern);
    }
    return MatchesLike(text, pattern);
}

// qlon_like(value, pattern): 1 when the value is LIKE the pattern.
void likeFunction(sqlite3_context *context, int, sqlite3_value **arguments)
{
    const QByteArrayView pattern = valueBytes(arguments[1]);
    sqlite3_result_int(context, valueMatchesLike(arguments[0], pattern) ? 1 : 0);
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
    if (sqlite3_prepare_v3(database, sql.data(), int(sql.size()), SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        throw SqliteError(database, hostPath);
    return SqliteStatement(statement);
}

RuntimeError SqliteError(sqlite3 *database, const QString &hostPath)
{
    switch (sqlite3_errcode(database)) {
    case SQLITE_NOTADB: return UnrecognizedFormatError(hostPath);
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return StationHeldError(QString::fromUtf8(sqlite3_errmsg(database)), hostPath);
    default: break;
    }
    if (isMissingTable(database))
        return MissingTableError(SalesTableName, hostPath);
    return EngineError(QString::fromUtf8(sqlite3_errmsg(database)), hostPath);
}

SqliteSalesStore::SqliteSalesStore(const QString &hostPath)
    : m_hostPath(hostPath)
    , m_file(std::make_unique<SqliteStationFile>(hostPath))
{
    connect();
}

SqliteSalesStore::~SqliteSalesStore() = default;

void SqliteSalesStore::connect()
{
    m_all = {};
    m_marked = {};
    m_span = {};
    m_like = {};
    m_database = m_file->open();
    checkSalesTable();
    if (sqlite3_create_function_v2(m_database.get(), "qlon_like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, likeFunction, nullptr,
            nullptr, nullptr) != SQLITE_OK)
        throw SqliteError(m_database.get(), m_hostPath);
    m_all = prepareSelect(EverySalesColumn);
    m_marked = prepareSelect(EverySalesColumn, "rowid <= ?1");
}

void SqliteSalesStore::startRead()
{
    if (m_file->needsReopening())
        connect();
}

void SqliteSalesStore::checkSalesTable() const
{
    const SqliteStatement kind =
        PrepareSqlite(m_database.get(), "SELECT type FROM sqlite_master WHERE name = ?1 COLLATE NOCASE", m_hostPath);
    sqlite3_bind_text(kind.get(), 1, SalesTableName.data(), int(SalesTableName.size()), SQLITE_STATIC);
    const int result = sqlite3_step(kind.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        throw SqliteError(m_database.get(), m_hostPath);
    if (result == SQLITE_DONE || valueBytes(sqlite3_column_value(kind.get(), 0)) != "table")
        throw MissingTableError(SalesTableName, m_hostPath);
}

QByteArrayList SqliteSalesStore::Select::choose(SalesColumns chosen)
{
    QByteArrayList names;
    for (int column = 0; column < SalesColumnCount; ++column) {
        if (chosen.test(column)) {
            columns.push_back(SalesColumn(column));
            names.append(SalesColumnNames[column].toByteArray());
        }
    }
    return names;
}

SqliteSalesStore::Select SqliteSalesStore::prepareSelect(SalesColumns columns, QByteArrayView condition) const
{
    Select select;
    select.statement = PrepareSqlite(m_database.get(), selectStatement(select.choose(columns), condition), m_hostPath);
    return select;
}

// The span's select also reads OrderDate, which must begin with an ISO date.
SqliteSalesStore::Select SqliteSalesStore::prepareSpanSelect(SalesColumns columns) const
{
    Select select;
    QByteArrayList names = select.choose(columns);
    const QByteArray orderDate = SalesColumnNames[OrderDate].toByteArray();
    if (!columns.test(OrderDate))
        names.append(orderDate);
    select.isoDateAt = int(names.indexOf(orderDate));
    select.statement = PrepareSqlite(m_database.get(), selectStatement(names, spanCondition), m_hostPath);
    return select;
}

void SqliteSalesStore::SelectAll(const SalesVisitor &visit)
{
    startRead();
    walk(m_all, visit);
}

// ISO texts sort as their dates do, so the ends become comparisons of texts: from the from date on,
// and before the day after the to date, where a value on the to date itself counts only at midnight.
void SqliteSalesStore::SelectSpan(QByteArrayView from, QByteArrayView to, SalesColumns columns, const SalesVisitor &visit)
{
    const DateSpan span = ReadDateSpan(from, to);
    startRead();
    if (!m_span.statement || m_spanColumns != columns) {
        m_span = prepareSpanSelect(columns);
        m_spanColumns = columns;
    }
    bindText(1, isoText(span.from));
    bindText(2, isoText(span.to));
    bindText(3, isoText(span.to.addDays(1)));
    walk(m_span, visit);
}

// The rowids of the stations' rows only grow: those added later lie past the largest of now.
SalesRowsMark SqliteSalesStore::MarkRows()
{
    startRead();
    const SqliteStatement last = PrepareSqlite(m_database.get(), "SELECT max(rowid) FROM ItemsSold", m_hostPath);
    if (sqlite3_step(last.get()) != SQLITE_ROW)
        throw SqliteError(m_database.get(), m_hostPath);
    m_file->checkRead();
    if (sqlite3_column_type(last.get(), 0) == SQLITE_NULL)
        return {};
    return {false, sqlite3_column_int64(last.get(), 0)};
}

void SqliteSalesStore::SelectMarked(const SalesRowsMark &mark, const SalesVisitor &visit)
{
    if (mark.empty)
        return;
    startRead();
    if (sqlite3_bind_int64(m_marked.statement.get(), 1, mark.last) != SQLITE_OK)
        throw SqliteError(m_database.get(), m_hostPath);
    walk(m_marked, visit);
}

// SQLite walks the table and asks MatchesLike of each value, as the row reader would give it.
void SqliteSalesStore::SelectLike(
    const SalesRowsMark &mark, SalesColumn column, QByteArrayView pattern, SalesColumns columns, const SalesVisitor &visit)
{
    if (mark.empty)
        return;
    startRead();
    if (!m_like.statement || m_likeColumns != columns || m_likeColumn != column) {
        m_like = prepareSelect(columns, "rowid <= ?1 AND qlon_like(" + SalesColumnNames[column].toByteArray() + ", ?2)");
        m_likeColumns = columns;
        m_likeColumn = column;
    }
    sqlite3_stmt *statement = m_like.statement.get();
    if (sqlite3_bind_int64(statement, 1, mark.last) != SQLITE_OK ||
        sqlite3_bind_text(statement, 2, pattern.data(), int(pattern.size()), SQLITE_TRANSIENT) != SQLITE_OK)
        throw SqliteError(m_database.get(), m_hostPath);
    walk(m_like, visit);
}

qint64 SqliteSalesStore::CountRows()
{
    startRead();
    const SqliteStatement count = PrepareSqlite(m_database.get(), "SELECT count(*) FROM ItemsSold", m_hostPath);
    if (sqlite3_step(count.get()) != SQLITE_ROW)
        throw SqliteError(m_database.get(), m_hostPath);
    m_file->checkRead();
    return sqlite3_column_int64(count.get(), 0);
}

void SqliteSalesStore::bindText(int parameter, const QByteArray &text)
{
    if (sqlite3_bind_text(m_span.statement.get(), parameter, text.constData(), int(text.size()), SQLITE_TRANSIENT) != SQLITE_OK)
        throw SqliteError(m_database.get(), m_hostPath);
}

void SqliteSalesStore::walk(const Select &select, const SalesVisitor &visit)
{
    sqlite3_stmt *statement = select.statement.get();
    const ResetAtExit reset(statement);
    m_row = {};
    for (;;) {
        const int result = sqlite3_step(statement);
        if (result == SQLITE_DONE)
            break;
        if (result != SQLITE_ROW)
            throw SqliteError(m_database.get(), m_hostPath);
        if (select.isoDateAt && !beginsWithIsoDate(valueBytes(sqlite3_column_value(statement, *select.isoDateAt))))
            continue;
        readRow(select);
        if (!visit(m_row))
            break;
    }
    m_file->checkRead();
}

void SqliteSalesStore::readRow(const Select &select)
{
    sqlite3_stmt *statement = select.statement.get();
    for (int at = 0; at < int(select.columns.size()); ++at)
        readValue(statement, at, select.columns[at]);
}

// The column's value is read as such: each sqlite3_column_ call would look the column up anew. The
// connection has no mutex, so its values need none.
void SqliteSalesStore::readValue(sqlite3_stmt *statement, int at, SalesColumn column)
{
    sqlite3_value *read = sqlite3_column_value(statement, at);
    SalesValue &value = m_row[column];
    switch (sqlite3_value_type(read)) {
    case SQLITE_NULL: value.reset(); return;
    case SQLITE_INTEGER: assignWhole(value, sqlite3_value_int64(read)); return;
    case SQLITE_FLOAT: readNumber(sqlite3_value_double(read), column); return;
    default: readText(valueBytes(read), column);
    }
}

void SqliteSalesStore::readNumber(double number, int column)
{
    m_row[column] = m_numbers[column].get(std::bit_cast<quint64>(number), [number] { return NumberText(number); });
}

void SqliteSalesStore::readText(QByteArrayView bytes, int column)
{
    if (!mayBeIsoDateTime(bytes))
        return AssignValue(m_row[column], bytes);
    if (const std::optional<QTime> time = bytes.size() == 8 ? isoTime(bytes) : std::nullopt)
        return readTimeOfDay(*time, column);
    const SalesValue &dateTime = m_dateTimes[column].get(bytes, [bytes] { return isoDateTimeText(bytes); });
    if (dateTime)
        m_row[column] = dateTime;
    else
        AssignValue(m_row[column], bytes);
}

// A table by the second rather than a memo: the times of a day's rows are many, and come in turn.
void SqliteSalesStore::readTimeOfDay(QTime time, int column)
{
    if (m_timesOfDay.empty())
        m_timesOfDay.resize(24 * 3600);
    SalesValue &text = m_timesOfDay[std::size_t(time.msecsSinceStartOfDay() / 1000)];
    if (!text)
        text = DateTimeText(DayZero, time);
    m_row[column] = text;
}

} // namespace qlon
