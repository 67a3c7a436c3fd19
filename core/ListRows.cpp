#include "core/ListRows.h"

#include "core/Ansi.h"
#include "core/RuntimeError.h"

#include <algorithm>
#include <numeric>
#include <optional>

namespace qlon {

namespace {

struct SortOrder
{
    int column;
    bool descending;
};

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

std::optional<SortOrder> readSortOrder(QByteArray key)
{
    while (key.endsWith(' '))
        key.chop(1);
    if (key.size() < 2 || !(key.endsWith('a') || key.endsWith('d')))
        return std::nullopt;
    const QByteArray number = key.chopped(1);
    bool isNumber = false;
    const int column = number.toInt(&isNumber);
    if (!isNumber || !std::ranges::all_of(number, isDigit))
        return std::nullopt;
    return SortOrder{column, key.endsWith('d')};
}

uchar foldedCase(char byte)
{
    return uchar(byte >= 'A' && byte <= 'Z' ? byte - 'A' + 'a' : byte);
}

// ASCII letters without regard to case; texts that differ only in case then by their bytes.
int compareTexts(QByteArrayView a, QByteArrayView b)
{
    const auto folded = std::lexicographical_compare_three_way(
        a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return foldedCase(x) <=> foldedCase(y); });
    if (folded != 0)
        return folded < 0 ? -1 : 1;
    return a.compare(b);
}

ListRowsObserver &nobody()
{
    static ListRowsObserver silent;
    return silent;
}

} // namespace

ListRows::ListRows()
    : m_observer(&nobody())
{
}

void ListRows::setObserver(ListRowsObserver *observer)
{
    m_observer = observer ? observer : &nobody();
}

void ListRows::setSeparator(char separator)
{
    m_separator = separator;
    if (!m_rows.isEmpty())
        m_observer->rowsChanged(0, rowCount() - 1);
}

QByteArray ListRows::fieldOf(const QByteArray &text, int column) const
{
    qsizetype start = 0;
    for (int skipped = 0; skipped < column; ++skipped) {
        start = text.indexOf(m_separator, start);
        if (start < 0)
            return {};
        ++start;
    }
    const qsizetype end = text.indexOf(m_separator, start);
    return text.sliced(start, (end < 0 ? text.size() : end) - start);
}

int ListRows::addRow(const QByteArray &text)
{
    const int row = m_sorted ? sortedPlaceOf(text) : rowCount();
    m_observer->beforeInsert(row);
    m_rows.insert(row, Row{text, {}});
    m_observer->afterInsert();
    m_lastAddedRow = row;
    return row;
}

void ListRows::removeRow(int row)
{
    m_observer->beforeRemove(checkedRow(row));
    m_rows.removeAt(row);
    m_observer->afterRemove();
}

void ListRows::clear()
{
    m_observer->beforeReset();
    m_rows.clear();
    m_observer->afterReset();
    m_lastAddedRow = -1;
}

void ListRows::setRowText(int row, const QByteArray &text)
{
    m_rows[checkedRow(row)].text = text;
    m_observer->rowsChanged(row, row);
}

void ListRows::setRowTag(int row, const QByteArray &tag)
{
    m_rows[checkedRow(row)].tag = tag;
}

void ListRows::setRowColour(int row, quint32 colour)
{
    m_rows[checkedRow(row)].colour = colour;
    m_observer->rowsChanged(row, row);
}

void ListRows::setSortKey(const QByteArray &key)
{
    const std::optional<SortOrder> order = readSortOrder(key);
    if (!order)
        throw RuntimeError(RuntimeError::InvalidPropertyValue, FromAnsi(key));
    m_sortKey = key;
    m_sortColumn = order->column;
    m_descending = order->descending;
}

void ListRows::setSorted(bool sorted)
{
    if (sorted)
        sortRows();
    m_sorted = sorted;
}

int ListRows::checkedRow(int row) const
{
    if (row < 0 || row >= rowCount())
        throw RuntimeError(RuntimeError::InvalidPropertyValue, QString::number(row));
    return row;
}

// The first row that the text ranks before, so that it goes behind the rows equal to it: a
// binary search over the sorted rows.
int ListRows::sortedPlaceOf(const QByteArray &text) const
{
    const QByteArray key = fieldOf(text, m_sortColumn);
    int low = 0;
    int high = rowCount();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (ranksBefore(key, field(middle, m_sortColumn)))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

bool ListRows::ranksBefore(const QByteArray &a, const QByteArray &b) const
{
    const int comparison = compareKeys(a, b);
    return m_descending ? comparison > 0 : comparison < 0;
}

int ListRows::compareKeys(const QByteArray &a, const QByteArray &b) const
{
    return m_comparer ? m_comparer->IMSort_CompareColumns(a, b) : compareTexts(a, b);
}

// A stable sort of the row numbers first, so that a comparer that throws leaves the rows as
// they were.
void ListRows::sortRows()
{
    QList<QByteArray> keys;
    keys.reserve(rowCount());
    for (int row = 0; row < rowCount(); ++row)
        keys.append(field(row, m_sortColumn));
    QList<int> order(rowCount());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return ranksBefore(keys.at(a), keys.at(b)); });
    reorder(order);
}

void ListRows::reorder(const QList<int> &order)
{
    m_observer->beforeReorder();
    QList<int> newRowOf(order.size());
    QList<Row> reordered;
    reordered.reserve(order.size());
    for (int newRow = 0; newRow < order.size(); ++newRow) {
        newRowOf[order.at(newRow)] = newRow;
        reordered.append(std::move(m_rows[order.at(newRow)]));
    }
    m_rows = std::move(reordered);
    m_observer->afterReorder(newRowOf);
}

} // namespace qlon
