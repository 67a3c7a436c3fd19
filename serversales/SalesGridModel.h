#pragma once

#include <QAbstractTableModel>

#include <functional>

namespace qlon {

class SalesRecordset;

// The worker's grid over its recordset: a column for each column of the sales table, edits kept
// in memory. The rows are read from the recordset by `reload`, in a handler, never by the view:
// the table is only fetched when somebody looks at it.
class SalesGridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit SalesGridModel(SalesRecordset &recordset, QObject *parent = nullptr);

    void reload();
    // Reads the table again, as the recordset's refresh does.
    void refresh();
    void addNew();
    void deleteCurrent();
    // While rows are added, deleted or read again, the grid's current row moves on its own.
    bool isChanging() const { return m_changing; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    // The recordset's moves during a change of rows are told after the grid has heard of the
    // change, so that the event loop never runs in the middle of it.
    void resetAround(const std::function<void()> &change);

    SalesRecordset &m_recordset;
    int m_rows = 0;
    bool m_changing = false;
};

} // namespace qlon
