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
    m_rows.setObserver(this);
}

MListModel::~MListModel()
{
    m_rows.setObserver(nullptr);
}

int MListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.rowCount();
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
    case Qt::BackgroundRole: return backgroundOf(m_rows.rowColour(index.row()));
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

void MListModel::beforeInsert(int row)
{
    beginInsertRows({}, row, row);
}

void MListModel::afterInsert()
{
    endInsertRows();
}

void MListModel::beforeRemove(int row)
{
    beginRemoveRows({}, row, row);
}

void MListModel::afterRemove()
{
    endRemoveRows();
}

void MListModel::beforeReset()
{
    beginResetModel();
}

void MListModel::afterReset()
{
    endResetModel();
}

void MListModel::beforeReorder()
{
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
}

void MListModel::afterReorder(const QList<int> &newRowOf)
{
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex &index : before)
        after.append(this->index(newRowOf.at(index.row()), index.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void MListModel::rowsChanged(int first, int last)
{
    emit dataChanged(index(first, 0), index(last, columnCount() - 1));
}

QVariant MListModel::displayText(int row, int column) const
{
    return FromAnsi(m_headings.isEmpty() ? m_rows.rowText(row) : m_rows.field(row, column));
}

} // namespace qlon
