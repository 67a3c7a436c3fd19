#pragma once

#include "store/SalesStore.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace qlon {

// The sales table as a screen's data control holds it: the rows the table had when the control
// opened, a current row that the grid and the searches move, and changes that stay in memory.
// The database belongs to the stations and is opened read-only on purpose, so the batch write
// of the changes is refused. The opening marks the rows the table has then, and they are fetched
// at their first use: rows the stations add later are not seen.
class SalesRecordset
{
public:
    // The platform's position past the last row.
    static constexpr int PositionAtEnd = -3;

    using Connect = std::function<std::unique_ptr<SalesStore>()>;

    // Marks the table's rows now; an error of the store goes to the caller, and the recordset
    // stays closed.
    void open(Connect connect);
    bool isOpen() const { return m_open; }
    // Opens again, which drops the changes and sees the rows added since; a recordset whose
    // opening failed tries the database again.
    void refresh();

    // The rows held, fetched when they haven't been.
    int count();
    const SalesRow &row(int index);
    // The index of the current row; count() past the last.
    int current() const { return m_current; }
    bool atEnd();
    // The current row counted from 1, or PositionAtEnd.
    int absolutePosition();

    void moveFirst();
    void moveNext();
    void moveLast();
    void moveTo(int index);
    // Moves forward from the current row, that row included, to the first whose column is LIKE
    // the pattern, or past the last row. A null value matches nothing.
    void find(SalesColumn column, QByteArrayView pattern);

    // A new empty row after the last, which becomes the current row.
    void addNew();
    // Deletes the current row and moves to the row after it, or to the last row when it was the
    // last.
    void deleteCurrent();
    void setValue(int index, SalesColumn column, SalesValue value);
    // Always refused with the engine's read-only error.
    [[noreturn]] void updateBatch() const;

    // Called after each move, whether the position changed or not.
    void onMove(std::function<void()> moved) { m_moved = std::move(moved); }
    // Runs a change whose moves are told only after it, one call for each move.
    void withMovesHeld(const std::function<void()> &change);

private:
    std::vector<SalesRow> &rows();
    void moved(int index);

    Connect m_connect;
    bool m_open = false;
    SalesRowsMark m_rowsAtOpening;
    std::optional<std::vector<SalesRow>> m_rows;
    int m_current = 0;
    std::function<void()> m_moved;
    std::optional<int> m_heldMoves;
};

} // namespace qlon
