#include "store/JetSalesStore.h"

#include "core/Ansi.h"
#include "store/JetCheck.h"
#include "store/StationFileCopy.h"

// mdbtools.h includes glib.h inside its C block, where glib's C++ templates don't compile.
#include <glib.h>
#include <mdbtools.h>

#include <QFile>
#include <QtEndian>

#include <cmath>
#include <cstdio>
#include <vector>

#include <fcntl.h>
#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace qlon {
namespace {

// Room for a value's text in UTF-8; libmdb cuts longer texts without warning. A mebibyte holds a
// memo of a third of a million characters. libmdb takes this much from the heap for each text it
// converts but writes only what the text needs, so the size costs no time.
constexpr size_t bindSize = 1 << 20;
// Standard output goes nowhere while it lives: the program's own output stays clean of what a
// library prints.
class StandardOutputSilenced
{
public:
    StandardOutputSilenced()
    {
        std::fflush(stdout);
#ifdef Q_OS_WIN
        m_saved = _dup(1);
        const int nowhere = _open("NUL", _O_WRONLY);
#else
        m_saved = dup(1);
        const int nowhere = ::open("/dev/null", O_WRONLY);
#endif
        if (nowhere >= 0)
            redirect(nowhere);
    }
    ~StandardOutputSilenced()
    {
        std::fflush(stdout);
        if (m_saved >= 0)
            redirect(m_saved);
    }
    StandardOutputSilenced(const StandardOutputSilenced &) = delete;
    StandardOutputSilenced &operator=(const StandardOutputSilenced &) = delete;

private:
    // Standard output becomes the file, whose own descriptor goes.
    static void redirect(int file)
    {
#ifdef Q_OS_WIN
        _dup2(file, 1);
        _close(file);
#else
        dup2(file, 1);
        close(file);
#endif
    }

    int m_saved = -1;
};

// A row's offset on its page keeps flags in the bits above these.
constexpr int rowOffsetMask = 0x1fff;
constexpr int secondsPerDay = 24 * 60 * 60;
constexpr qint64 currencyScale = 10000;

struct HandleCloser
{
    void operator()(MdbHandle *handle) const { mdb_close(handle); }
};

struct TableFreer
{
    void operator()(MdbTableDef *table) const { mdb_free_tabledef(table); }
};

// A Currency value counts ten-thousandths; written exactly, without trailing zeros.
QByteArray currencyText(qint64 tenThousandths)
{
    const quint64 magnitude = tenThousandths < 0 ? 0 - quint64(tenThousandths) : quint64(tenThousandths);
    QByteArray text = QByteArray::number(magnitude / currencyScale);
    const quint64 fraction = magnitude % currencyScale;
    if (fraction != 0) {
        QByteArray decimals = QByteArray::number(fraction).rightJustified(4, '0');
        while (decimals.endsWith('0'))
            decimals.chop(1);
        text += '.' + decimals;
    }
    return tenThousandths < 0 ? '-' + text : text;
}

// Types whose stored bytes are read here; libmdb's text serves for the others.
bool isReadRaw(int type)
{
    switch (type) {
    case MDB_BOOL:
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
    case MDB_COMPLEX:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_MONEY:
    case MDB_DATETIME: return true;
    default: return false;
    }
}

MdbColumn *columnAt(MdbTableDef *table, unsigned int index)
{
    return static_cast<MdbColumn *>(g_ptr_array_index(table->columns, index));
}

} // namespace

class JetTable::Reader
{
public:
    Reader(const QString &hostPath, QByteArrayView name, const QByteArrayList &columns, Pages pages);

    void rewind() { mdb_rewind_table(m_table.get()); }
    bool next();
    SalesValue value(qsizetype column) const;
    std::optional<QDateTime> dateTime(qsizetype column) const;
    qint64 rowCount() const { return m_table->num_rows; }

private:
    struct Selected
    {
        MdbColumn *column = nullptr; // none when the table lacks the name
        unsigned int index = 0;
        bool null = true;
    };

    // A bound column's text, written by libmdb at each fetch.
    struct Binding
    {
        std::unique_ptr<char[]> text;
        int length = 0;
    };

    void open(const QString &hostPath, QByteArrayView name, Pages pages);
    Selected select(QByteArrayView name);
    void bind(unsigned int index);
    bool isNull(const Selected &selected);
    bool isNullInRow(unsigned int index);
    void crackRow();
    QByteArray text(const MdbColumn &column) const;

    QByteArray m_copy; // the pages that libmdb reads, when read from a copy
    std::unique_ptr<MdbHandle, HandleCloser> m_handle;
    std::unique_ptr<MdbTableDef, TableFreer> m_table;
    std::vector<Selected> m_selected;
    std::vector<Binding> m_bindings;
    std::vector<MdbField> m_fields;
    std::vector<bool> m_nullInRow;
    bool m_rowCracked = false;
};

JetTable::Reader::Reader(const QString &hostPath, QByteArrayView name, const QByteArrayList &columns, Pages pages)
{
    open(hostPath, name, pages);
    m_bindings.resize(m_table->num_cols);
    m_fields.resize(m_table->num_cols);
    m_nullInRow.resize(m_table->num_cols);
    for (const QByteArray &column : columns)
        m_selected.push_back(select(column));
}

void JetTable::Reader::open(const QString &hostPath, QByteArrayView name, Pages pages)
{
    CheckJetFile(hostPath, name);
    if (pages == Pages::SettledCopy)
        m_copy = StationFileCopy(hostPath);
    const StandardOutputSilenced silence; // libmdb prints blank lines on some damaged files
    if (pages == Pages::SettledCopy)
        m_handle.reset(mdb_open_buffer(m_copy.data(), std::size_t(m_copy.size()), MDB_NOFLAGS));
    else
        m_handle.reset(mdb_open(QFile::encodeName(hostPath).constData(), MDB_NOFLAGS));
    if (!m_handle || !mdb_read_catalog(m_handle.get(), MDB_TABLE))
        throw UnrecognizedFormatError(hostPath);
    mdb_set_bind_size(m_handle.get(), bindSize);
    QByteArray utf8Name = FromAnsi(name).toUtf8();
    m_table.reset(mdb_read_table_by_name(m_handle.get(), utf8Name.data(), MDB_TABLE));
    if (!m_table)
        throw MissingTableError(name, hostPath);
    mdb_read_columns(m_table.get());
    mdb_rewind_table(m_table.get());
}

JetTable::Reader::Selected JetTable::Reader::select(QByteArrayView name)
{
    const QString wanted = FromAnsi(name);
    for (unsigned int index = 0; index < m_table->num_cols; ++index) {
        MdbColumn *column = columnAt(m_table.get(), index);
        if (wanted.compare(QString::fromUtf8(column->name), Qt::CaseInsensitive) == 0) {
            bind(index);
            return {column, index};
        }
    }
    return {};
}

void JetTable::Reader::bind(unsigned int index)
{
    Binding &binding = m_bindings[index];
    if (binding.text || isReadRaw(columnAt(m_table.get(), index)->col_type))
        return;
    binding.text.reset(new char[bindSize]);
    mdb_bind_column(m_table.get(), int(index) + 1, binding.text.get(), &binding.length);
}

bool JetTable::Reader::next()
{
    if (!mdb_fetch_row(m_table.get()))
        return false;
    m_rowCracked = false;
    for (Selected &selected : m_selected)
        selected.null = isNull(selected);
    return true;
}

bool JetTable::Reader::isNull(const Selected &selected)
{
    const MdbColumn *column = selected.column;
    if (!column)
        return true;
    // A Yes/No value lives in the null mask, and is never null.
    if (column->col_type == MDB_BOOL || column->cur_value_len != 0)
        return false;
    return column->is_fixed || isNullInRow(selected.index);
}

// A null and an empty text both leave a variable column without bytes; only the row's null mask
// tells them apart, and libmdb keeps that to itself, so the row is taken apart once more.
bool JetTable::Reader::isNullInRow(unsigned int index)
{
    if (!m_rowCracked) {
        crackRow();
        m_rowCracked = true;
    }
    return m_nullInRow[index];
}

void JetTable::Reader::crackRow()
{
    int start = 0;
    size_t size = 0;
    std::fill(m_nullInRow.begin(), m_nullInRow.end(), true);
    // The fetch has moved past the row that it read, which is still on the current page.
    if (mdb_find_row(m_handle.get(), int(m_table->cur_row) - 1, &start, &size) != 0)
        return;
    if (mdb_crack_row(m_table.get(), start & rowOffsetMask, size, m_fields.data()) < 0)
        return;
    for (const MdbField &field : m_fields)
        m_nullInRow[field.colnum] = field.is_null;
}

SalesValue JetTable::Reader::value(qsizetype column) const
{
    const Selected &selected = m_selected[column];
    if (selected.null)
        return std::nullopt;
    return text(*selected.column);
}

std::optional<QDateTime> JetTable::Reader::dateTime(qsizetype column) const
{
    const Selected &selected = m_selected[column];
    if (selected.null || selected.column->col_type != MDB_DATETIME)
        return std::nullopt;
    return JetDateTime(mdb_get_double(m_handle->pg_buf, selected.column->cur_value_start));
}

QByteArray JetTable::Reader::text(const MdbColumn &column) const
{
    unsigned char *page = m_handle->pg_buf;
    const int start = column.cur_value_start;
    switch (column.col_type) {
    case MDB_BOOL: return column.cur_value_len == 0 ? QByteArrayLiteral("True") : QByteArrayLiteral("False");
    case MDB_BYTE: return QByteArray::number(mdb_get_byte(page, start));
    case MDB_INT: return QByteArray::number(qint16(mdb_get_int16(page, start)));
    case MDB_LONGINT:
    case MDB_COMPLEX: return QByteArray::number(qint32(mdb_get_int32(page, start)));
    case MDB_FLOAT: return NumberText(mdb_get_single(page, start));
    case MDB_DOUBLE: return NumberText(mdb_get_double(page, start));
    case MDB_MONEY: return currencyText(qFromLittleEndian<qint64>(page + start));
    case MDB_DATETIME: {
        const QDateTime value = JetDateTime(mdb_get_double(page, start));
        return DateTimeText(value.date(), value.time());
    }
    default: return ToAnsi(QString::fromUtf8(static_cast<const char *>(column.bind_ptr), *column.len_ptr));
    }
}

QDateTime JetDateTime(double serial)
{
    const double days = std::trunc(serial);
    const long seconds = std::lround(std::abs(serial - days) * secondsPerDay);
    return QDateTime(DayZero.addDays(qint64(days)), QTime(0, 0), Qt::UTC).addSecs(seconds);
}

JetTable::JetTable(const QString &hostPath, QByteArrayView name, const QByteArrayList &columns, Pages pages)
    : m_reader(std::make_unique<Reader>(hostPath, name, columns, pages))
{
}

JetTable::~JetTable() = default;

void JetTable::rewind()
{
    m_reader->rewind();
}

bool JetTable::next()
{
    return m_reader->next();
}

SalesValue JetTable::value(qsizetype column) const
{
    return m_reader->value(column);
}

std::optional<QDateTime> JetTable::dateTime(qsizetype column) const
{
    return m_reader->dateTime(column);
}

qint64 JetTable::rowCount() const
{
    return m_reader->rowCount();
}

namespace {

QByteArrayList salesColumnList()
{
    QByteArrayList names;
    for (QByteArrayView name : SalesColumnNames)
        names.append(name.toByteArray());
    return names;
}

QDateTime Midnight(QDate date)
{
    return QDateTime(date, QTime(0, 0), Qt::UTC);
}

} // namespace

JetSalesStore::JetSalesStore(const QString &hostPath, QByteArrayView table)
    : m_table(hostPath, table, salesColumnList())
{
}

void JetSalesStore::SelectAll(const SalesVisitor &visit)
{
    walk([] { return true; }, EverySalesColumn, visit);
}

// Both ends are midnight, so a sale later on the to date lies after the span.
void JetSalesStore::SelectSpan(QByteArrayView from, QByteArrayView to, SalesColumns columns, const SalesVisitor &visit)
{
    const DateSpan span = ReadDateSpan(from, to);
    const QDateTime first = Midnight(span.from);
    const QDateTime last = Midnight(span.to);
    walk(
        [&] {
            const std::optional<QDateTime> sold = m_table.dateTime(OrderDate);
            return sold && first <= *sold && *sold <= last;
        },
        columns, visit);
}

qint64 JetSalesStore::CountRows()
{
    return m_table.rowCount();
}

void JetSalesStore::walk(const std::function<bool()> &passes, SalesColumns columns, const SalesVisitor &visit)
{
    m_row = {};
    m_table.rewind();
    while (m_table.next()) {
        if (!passes())
            continue;
        for (qsizetype column = 0; column < SalesColumnCount; ++column) {
            if (columns.test(column))
                m_row[column] = m_table.value(column);
        }
        if (!visit(m_row))
            return;
    }
}

} // namespace qlon
