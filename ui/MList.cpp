#include "ui/MList.h"

#include "ui/MListModel.h"

#include <QHeaderView>
#include <QTreeView>
#include <QVBoxLayout>

namespace qlon {

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

ListRows &MList::rows()
{
    return m_model->rows();
}

const ListRows &MList::rows() const
{
    return m_model->rows();
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

bool MList::isRowSelected(int row) const
{
    return m_view->selectionModel()->isRowSelected(rows().checkedRow(row));
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

QModelIndex MList::indexOf(int row) const
{
    return m_model->index(rows().checkedRow(row), 0);
}

} // namespace qlon
