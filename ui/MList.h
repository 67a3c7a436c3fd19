#pragma once

#include "core/ListRows.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QWidget>

class QTreeView;

namespace qlon {

class MListModel;

// A list control: its rows (see ListRows) shown as columns, each row's fields filling the
// columns from the left, with one row at a time selected. The row operations are those of its
// rows, offered here as the control offers them.
class MList : public QWidget
{
    Q_OBJECT

public:
    struct Column
    {
        QString heading;
        int width; // pixels
    };

    explicit MList(QWidget *parent = nullptr);

    void setColumns(const QList<Column> &columns);
    ListRows &rows();
    const ListRows &rows() const;

    char separator() const { return rows().separator(); }
    void setSeparator(char separator) { rows().setSeparator(separator); }

    int addRow(const QByteArray &text) { return rows().addRow(text); }
    int lastAddedRow() const { return rows().lastAddedRow(); }
    void removeRow(int row) { rows().removeRow(row); }
    void clear() { rows().clear(); }
    int rowCount() const { return rows().rowCount(); }

    QByteArray rowText(int row) const { return rows().rowText(row); }
    void setRowText(int row, const QByteArray &text) { rows().setRowText(row, text); }
    QByteArray rowTag(int row) const { return rows().rowTag(row); }
    void setRowTag(int row, const QByteArray &tag) { rows().setRowTag(row, tag); }
    quint32 rowColour(int row) const { return rows().rowColour(row); }
    void setRowColour(int row, quint32 colour) { rows().setRowColour(row, colour); }
    // Selecting a row scrolls the list to it.
    bool isRowSelected(int row) const;
    void setRowSelected(int row, bool selected);

    QByteArray sortKey() const { return rows().sortKey(); }
    void setSortKey(const QByteArray &key) { rows().setSortKey(key); }
    bool isSorted() const { return rows().isSorted(); }
    void setSorted(bool sorted) { rows().setSorted(sorted); }
    void setComparer(IMSort *comparer) { rows().setComparer(comparer); }

signals:
    void Click();

private:
    QModelIndex indexOf(int row) const;

    MListModel *m_model;
    QTreeView *m_view;
};

} // namespace qlon
