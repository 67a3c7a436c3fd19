#include "ui/MListModel.h"

#include "core/Ansi.h"

#include <QColor>

#include <algorithm>

namespace qlon {

namespace {

constexpr quint32 systemColourBit = 0x80000000;

// A plain colour value is 0x00BBGGRR; a system colour shows the list's own background.
QVariant backgroundOf(quint32 colour)
{
    if (colour & systemColourBit)
        return {};
    return QColor(int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF));
}

} // namespace

MListModel::MListModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

int MListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int MListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(std::max<qsizetype>(m_headings.size(), 1));
}

QVariant MListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole: return displayText(index.row(), index.column());
    case Qt::BackgroundRole: return backgroundOf(colourAt(index.row()));
    default: return {};
    }
}

QVariant MListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= m_headings.size())
        return {};
    return m_headings.at(section);
}

void MListModel::setHeadings(const QStringList &headings)
{
    beginResetModel();
    m_headings = headings;
    endResetModel();
}

void MListModel::setSeparator(char separator)
{
    m_separator = separator;
    if (!m_rows.isEmpty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), {Qt::DisplayRole});
}

QByteArray MListModel::fieldOf(const QByteArray &text, int column) const
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

void MListModel::insertText(int row, const QByteArray &text)
{
    beginInsertRows({}, row, row);
    m_rows.insert(row, Row{text, {}});
    endInsertRows();
}

void MListModel::removeAt(int row)
{
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
}

void MListModel::clearRows()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

void MListModel::setTextAt(int row, const QByteArray &text)
{
    m_rows[row].text = text;
    announceRowChanged(row, Qt::DisplayRole);
}

void MListModel::setTagAt(int row, const QByteArray &tag)
{
    m_rows[row].tag = tag;
}

void MListModel::setColourAt(int row, quint32 colour)
{
    m_rows[row].colour = colour;
    announceRowChanged(row, Qt::BackgroundRole);
}

void MListModel::reorder(const QList<int> &order)
{
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    QList<int> newRowOf(order.size());
    QList<Row> reordered;
    reordered.reserve(order.size());
    for (int newRow = 0; newRow < order.size(); ++newRow) {
        newRowOf[order.at(newRow)] = newRow;
        reordered.append(m_rows.at(order.at(newRow)));
    }
    m_rows = std::move(reordered);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex &index : before)
        after.append(this->index(newRowOf.at(index.row()), index.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

QVariant MListModel::displayText(int row, int column) const
{
    return FromAnsi(m_headings.isEmpty() ? textAt(row) : field(row, column));
}

void MListModel::announceRowChanged(int row, int role)
{
    emit dataChanged(index(row, 0), index(row, columnCount() - 1), {role});
}

} // namespace qlon
