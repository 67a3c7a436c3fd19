#pragma once

#include <QByteArray>
#include <QList>

namespace qlon {

// A comparer that a list sorts its rows with, in place of its own text order.
class IMSort
{
public:
    virtual ~IMSort() = default;
    // Negative when a ranks before b, 0 when they rank equal, positive when a ranks after b.
    // May throw RuntimeError.
    virtual qint16 IMSort_CompareColumns(const QByteArray &a, const QByteArray &b) = 0;
};

// Told of every change to a list's rows, before and after, so that a view can follow them.
// Each does nothing unless a view overrides it.
class ListRowsObserver
{
public:
    virtual ~ListRowsObserver() = default;
    virtual void beforeInsert(int /*row*/) { }
    virtual void afterInsert() { }
    virtual void beforeRemove(int /*row*/) { }
    virtual void afterRemove() { }
    virtual void beforeReset() { }
    virtual void afterReset() { }
    virtual void beforeReorder() { }
    // newRowOf[i] is where the row that stood at i went.
    virtual void afterReorder(const QList<int> & /*newRowOf*/) { }
    virtual void rowsChanged(int /*first*/, int /*last*/) { }
};

// The rows of a list control, without any view: texts whose fields, split at the separator, are
// the columns, each with a tag and a colour value. The rows can sort themselves on one column
// and then keep added rows in that order. An index out of range throws
// RuntimeError::InvalidPropertyValue.
class ListRows
{
public:
    // The system colour of a button's face: a row of this colour shows the list's own look.
    static constexpr quint32 buttonFace = 0x8000000F;

    struct Row
    {
        QByteArray text;
        QByteArray tag;
        quint32 colour = buttonFace;
    };

    ListRows();
    ListRows(const ListRows &) = delete;
    ListRows &operator=(const ListRows &) = delete;

    char separator() const { return m_separator; }
    void setSeparator(char separator);

    // The text between the separators number `column` and `column` + 1; empty when the text
    // has fewer fields.
    QByteArray fieldOf(const QByteArray &text, int column) const;
    QByteArray field(int row, int column) const { return fieldOf(rowText(row), column); }

    // Appends the row, or when the list is sorted puts it behind the rows that rank equal.
    int addRow(const QByteArray &text);
    // The index that the last addRow returned; -1 before any and after clear.
    int lastAddedRow() const { return m_lastAddedRow; }
    void removeRow(int row);
    void clear();
    int rowCount() const { return int(m_rows.size()); }

    const QByteArray &rowText(int row) const { return m_rows.at(checkedRow(row)).text; }
    // Rewrites the row where it stands, also in a sorted list.
    void setRowText(int row, const QByteArray &text);
    const QByteArray &rowTag(int row) const { return m_rows.at(checkedRow(row)).tag; }
    void setRowTag(int row, const QByteArray &tag);
    // An old-platform colour value: 0x00BBGGRR, or a system colour when the high bit is set.
    quint32 rowColour(int row) const { return m_rows.at(checkedRow(row)).colour; }
    void setRowColour(int row, quint32 colour);

    // The column number from 0, then "a" for ascending or "d" for descending, then any blanks:
    // "5d ", "0a"; "0a" at first. An unreadable text throws RuntimeError::InvalidPropertyValue.
    QByteArray sortKey() const { return m_sortKey; }
    void setSortKey(const QByteArray &key);
    bool isSorted() const { return m_sorted; }
    // True sorts the rows on the column, every time it is set; false keeps the order as it
    // stands. Without a comparer the column texts compare with ASCII letters of either case
    // alike, then by their bytes; a row without the column sorts as an empty text. Rows that rank
    // equal keep their order. When the comparer throws, the exception passes to the caller and
    // the rows stay as they were, unsorted.
    void setSorted(bool sorted);
    // Not owned; nullptr returns to the list's own text order.
    void setComparer(IMSort *comparer) { m_comparer = comparer; }

    // The row itself; throws RuntimeError::InvalidPropertyValue when it is out of range.
    int checkedRow(int row) const;

    // Not owned; one at a time, nullptr for none.
    void setObserver(ListRowsObserver *observer);

private:
    int sortedPlaceOf(const QByteArray &text) const;
    bool ranksBefore(const QByteArray &a, const QByteArray &b) const;
    int compareKeys(const QByteArray &a, const QByteArray &b) const;
    void sortRows();
    void reorder(const QList<int> &order);

    QList<Row> m_rows;
    char m_separator = '|';
    QByteArray m_sortKey = QByteArrayLiteral("0a");
    int m_sortColumn = 0;
    bool m_descending = false;
    bool m_sorted = false;
    IMSort *m_comparer = nullptr;
    int m_lastAddedRow = -1;
    ListRowsObserver *m_observer;
};

} // namespace qlon

Q_DECLARE_TYPEINFO(qlon::ListRows::Row, Q_RELOCATABLE_TYPE);
