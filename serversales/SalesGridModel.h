#pragma once

#include <QAbstractTableModel>

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
    void addNew();
    void deleteCurrent();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    SalesRecordset &m_recordset;
    int m_rows = 0;
};

} // namespace qlon
