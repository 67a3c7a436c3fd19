#include "serversales/SalesGridModel.h"

#include "core/Ansi.h"
#include "serversales/logic/SalesRecordset.h"

namespace qlon {

SalesGridModel::SalesGridModel(SalesRecordset &recordset, QObject *parent)
    : QAbstractTableModel(parent)
    , m_recordset(recordset)
{
}

void SalesGridModel::reload()
{
    beginResetModel();
    m_rows = m_recordset.isOpen() ? m_recordset.count() : 0;
    endResetModel();
}

void SalesGridModel::addNew()
{
    beginInsertRows({}, m_rows, m_rows);
    m_recordset.addNew();
    m_rows = m_recordset.count();
    endInsertRows();
}

void SalesGridModel::deleteCurrent()
{
    const int row = m_recordset.current();
    if (m_recordset.atEnd()) {
        m_recordset.deleteCurrent(); // raises the engine's error: there is no current row
        return;
    }
    beginRemoveRows({}, row, row);
    m_recordset.deleteCurrent();
    m_rows = m_recordset.count();
    endRemoveRows();
}

int SalesGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int SalesGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : SalesColumnCount;
}

QVariant SalesGridModel::data(const QModelIndex &index, int role) const
{
    // A move in the middle of a change lets the view paint before it hears of the change.
    if ((role != Qt::DisplayRole && role != Qt::EditRole) || index.row() >= m_recordset.count())
        return {};
    const SalesValue &value = m_recordset.row(index.row())[index.column()];
    return value ? FromAnsi(*value) : QString();
}

QVariant SalesGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
    return FromAnsi(SalesColumnNames.at(std::size_t(section)));
}

Qt::ItemFlags SalesGridModel::flags(const QModelIndex &index) const
{
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool SalesGridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole)
        return false;
    m_recordset.setValue(index.row(), SalesColumn(index.column()), ToAnsi(value.toString()));
    emit dataChanged(index, index);
    return true;
}

} // namespace qlon
