#include "serversales/SalesGridModel.h"

#include "core/Ansi.h"
#include "serversales/logic/SalesRecordset.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

namespace qlon {

SalesGridModel::SalesGridModel(SalesRecordset &recordset, QObject *parent)
    : QAbstractTableModel(parent)
    , m_recordset(recordset)
{
}

void SalesGridModel::reload()
{
    resetAround([] {});
}

void SalesGridModel::refresh()
{
    resetAround([this] { m_recordset.refresh(); });
}

void SalesGridModel::resetAround(const std::function<void()> &change)
{
    const QScopedValueRollback changing(m_changing, true);
    m_recordset.withMovesHeld([&] {
        beginResetModel();
        // A refresh that fails leaves the grid as empty as the closed recordset.
        const auto told = qScopeGuard([this] {
            m_rows = m_recordset.isOpen() ? m_recordset.count() : 0;
            endResetModel();
        });
        change();
    });
}

void SalesGridModel::addNew()
{
    const int row = m_recordset.count(); // a closed recordset fails here, before the grid hears of a row
    const QScopedValueRollback changing(m_changing, true);
    beginInsertRows({}, row, row);
    m_recordset.withMovesHeld([this] {
        m_recordset.addNew();
        m_rows = m_recordset.count();
        endInsertRows();
    });
}

void SalesGridModel::deleteCurrent()
{
    if (m_recordset.atEnd()) {
        m_recordset.deleteCurrent(); // raises the engine's error: there is no current row
        return;
    }
    const int row = m_recordset.current();
    const QScopedValueRollback changing(m_changing, true);
    beginRemoveRows({}, row, row);
    m_recordset.withMovesHeld([this] {
        m_recordset.deleteCurrent();
        m_rows = m_recordset.count();
        endRemoveRows();
    });
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
    if (role != Qt::DisplayRole && role != Qt::EditRole)
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
