#include "ui/MList.h"

#include "core/Ansi.h"
#include "core/RuntimeError.h"
#include "ui/MListModel.h"

#include <QHeaderView>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>
#include <optional>
#include <ranges>

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
        a.begin(), a.end(), b.begin(), b.end(),
        [](char x, char y) { return foldedCase(x) <=> foldedCase(y); });
    if (folded != 0)
        return folded < 0 ? -1 : 1;
    return a.compare(b);
}

} // namespace

MList::MList(QWidget *parent)
    : QWidget(parent)
    , m_model(new MListModel(this))
    , m_view(new QTreeView(this))
{
    m_view->setModel(m_model);
    m_view->setUniformRowHeights(true);
    m_view->setRootIsDecorated(false);
    m_view->setItemsExpandable(false);
    m_view->setAllColumnsShowFocus(true);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->header()->setSectionsMovable(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_view);
    connect(m_view, &QAbstractItemView::clicked, this, &MList::Click);
}

void MList::setColumns(const QList<Column> &columns)
{
    QStringList headings;
    for (const Column &column : columns)
        headings.append(column.heading);
    m_model->setHeadings(headings);
    for (int column = 0; column < columns.size(); ++column)
        m_view->setColumnWidth(column, columns.at(column).width);
}

char MList::separator() const
{
    return m_model->separator();
}

void MList::setSeparator(char separator)
{
    m_model->setSeparator(separator);
}

int MList::addRow(const QByteArray &text)
{
    const int row = m_sorted ? sortedPlaceOf(text) : rowCount();
    m_model->insertText(row, text);
    m_lastAddedRow = row;
    return row;
}

void MList::removeRow(int row)
{
    m_model->removeAt(checkedRow(row));
}

void MList::clear()
{
    m_model->clearRows();
    m_lastAddedRow = -1;
}

int MList::rowCount() const
{
    return m_model->rowCount();
}

QByteArray MList::rowText(int row) const
{
    return m_model->textAt(checkedRow(row));
}

void MList::setRowText(int row, const QByteArray &text)
{
    m_model->setTextAt(checkedRow(row), text);
}

QByteArray MList::rowTag(int row) const
{
    return m_model->tagAt(checkedRow(row));
}

void MList::setRowTag(int row, const QByteArray &tag)
{
    m_model->setTagAt(checkedRow(row), tag);
}

quint32 MList::rowColour(int row) const
{
    return m_model->colourAt(checkedRow(row));
}

void MList::setRowColour(int row, quint32 colour)
{
    m_model->setColourAt(checkedRow(row), colour);
}

bool MList::isRowSelected(int row) const
{
    return m_view->selectionModel()->isRowSelected(checkedRow(row));
}

void MList::setRowSelected(int row, bool selected)
{
    const QModelIndex index = indexOf(row);
    if (!selected) {
        m_view->selectionModel()->select(index, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
        return;
    }
    m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_view->scrollTo(index);
}

void MList::setSortKey(const QByteArray &key)
{
    const std::optional<SortOrder> order = readSortOrder(key);
    if (!order)
        throw RuntimeError(RuntimeError::InvalidPropertyValue, FromAnsi(key));
    m_sortKey = key;
    m_sortColumn = order->column;
    m_descending = order->descending;
}

void MList::setSorted(bool sorted)
{
    if (sorted)
        sortRows();
    m_sorted = sorted;
}

int MList::checkedRow(int row) const
{
    if (row < 0 || row >= rowCount())
        throw RuntimeError(RuntimeError::InvalidPropertyValue, QString::number(row));
    return row;
}

QModelIndex MList::indexOf(int row) const
{
    return m_model->index(checkedRow(row), 0);
}

// The first row that the text ranks before, so that it goes behind the rows equal to it.
int MList::sortedPlaceOf(const QByteArray &text) const
{
    const QByteArray key = m_model->fieldOf(text, m_sortColumn);
    const auto rows = std::views::iota(0, rowCount());
    const auto place = std::ranges::partition_point(
        rows, [&](int row) { return !ranksBefore(key, m_model->field(row, m_sortColumn)); });
    return place == rows.end() ? rowCount() : *place;
}

bool MList::ranksBefore(const QByteArray &a, const QByteArray &b) const
{
    const int comparison = compareKeys(a, b);
    return m_descending ? comparison > 0 : comparison < 0;
}

int MList::compareKeys(const QByteArray &a, const QByteArray &b) const
{
    return m_comparer ? m_comparer->IMSort_CompareColumns(a, b) : compareTexts(a, b);
}

// A stable sort of the row numbers first, so that a comparer that throws leaves the rows as
// they were.
void MList::sortRows()
{
    QList<QByteArray> keys;
    keys.reserve(rowCount());
    for (int row = 0; row < rowCount(); ++row)
        keys.append(m_model->field(row, m_sortColumn));
    QList<int> order(rowCount());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return ranksBefore(keys.at(a), keys.at(b)); });
    m_model->reorder(order);
}

} // namespace qlon
