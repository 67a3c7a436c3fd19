#pragma once

#include "core/ListRows.h"

#include <QAbstractTableModel>
#include <QStringList>

namespace qlon {

// The rows of a list control as a view shows them: each row's fields under the headings, its
// colour as the background. The model owns the rows and follows every change made to them.
class MListModel : public QAbstractTableModel, private ListRowsObserver
{
    Q_OBJECT

public:
    explicit MListModel(QObject *parent = nullptr);
    ~MListModel() override;

    ListRows &rows() { return m_rows; }
    const ListRows &rows() const { return m_rows; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Without headings the list shows each row's whole text in one column.
    void setHeadings(const QStringList &headings);

private:
    void beforeInsert(int row) override;
    void afterInsert() override;
    void beforeRemove(int row) override;
    void afterRemove() override;
    void beforeReset() override;
    void afterReset() override;
    void beforeReorder() override;
    void afterReorder(const QList<int> &newRowOf) override;
    void rowsChanged(int first, int last) override;

    QVariant displayText(int row, int column) const;

    ListRows m_rows;
    QStringList m_headings;
};

} // namespace qlon
