#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QWidget>

class QTreeView;

namespace qlon {

class MListModel;

// A comparer that a list sorts its rows with, in place of its own text order.
class IMSort
{
public:
    virtual ~IMSort() = default;
    // Negative when a ranks before b, 0 when they rank equal, positive when a ranks after b.
    // May throw RuntimeError.
    virtual qint16 IMSort_CompareColumns(const QByteArray &a, const QByteArray &b) = 0;
};

// A list of text rows shown as columns: each row's fields, split at the separator, fill the
// columns from the left. Each row carries a tag, a colour value and a selected state. The list
// can sort itself on one column and then keeps added rows in that order.
// An index out of range throws RuntimeError::InvalidPropertyValue.
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
    char separator() const;
    void setSeparator(char separator);

    // Appends the row, or when the list is sorted puts it behind the rows that rank equal.
    int addRow(const QByteArray &text);
    // The index that the last addRow returned; -1 before any and after clear.
    int lastAddedRow() const { return m_lastAddedRow; }
    void removeRow(int row);
    void clear();
    int rowCount() const;

    QByteArray rowText(int row) const;
    // Rewrites the row where it stands, also in a sorted list.
    void setRowText(int row, const QByteArray &text);
    QByteArray rowTag(int row) const;
    void setRowTag(int row, const QByteArray &tag);
    // An old-platform colour value: 0x00BBGGRR, or a system colour when the high bit is set.
    quint32 rowColour(int row) const;
    void setRowColour(int row, quint32 colour);
    // One row at a time is selected; selecting a row scrolls the list to it.
    bool isRowSelected(int row) const;
    void setRowSelected(int row, bool selected);

    // The column number from 0, then "a" for ascending or "d" for descending, then any blanks:
    // "5d ", "0a"; "0a" at first. An unreadable text throws RuntimeError::InvalidPropertyValue.
    QByteArray sortKey() const { return m_sortKey; }
    void setSortKey(const QByteArray &key);
    bool isSorted() const { return m_sorted; }
    // True sorts the rows on the column, every time it is set; false keeps the order as it
    // stands. Without a comparer the column texts compare with ASCII letters of either case
    // alike, then by their bytes; a row without the column sorts as an empty text. Rows that rank
    // equal keep their order. When the comparer throws, the exception passes to the caller and
    // the list stays as it was, unsorted.
    void setSorted(bool sorted);
    // Not owned; nullptr returns to the list's own text order.
    void setComparer(IMSort *comparer) { m_comparer = comparer; }

signals:
    void Click();

private:
    int checkedRow(int row) const;
    QModelIndex indexOf(int row) const;
    int sortedPlaceOf(const QByteArray &text) const;
    bool ranksBefore(const QByteArray &a, const QByteArray &b) const;
    int compareKeys(const QByteArray &a, const QByteArray &b) const;
    void sortRows();

    MListModel *m_model;
    QTreeView *m_view;
    QByteArray m_sortKey = QByteArrayLiteral("0a");
    int m_sortColumn = 0;
    bool m_descending = false;
    bool m_sorted = false;
    IMSort *m_comparer = nullptr;
    int m_lastAddedRow = -1;
};

} // namespace qlon
