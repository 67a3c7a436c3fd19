#pragma once

#include "store/SalesStore.h"

#include <memory>
#include <vector>

namespace qlon {

// The columns of the sales rows that a server search reads.
inline const SalesColumns ServerSearchColumns = ColumnsOf({EmpNumber, OrderDate, Item, UnitPrice, ItemType, Time, Quantity});

// The rows of the full select as the server screen keeps them from its load, small enough for a
// table of millions: only the search's columns, the texts of a row end to end in blocks of their
// own, and of each value its length, so that a row costs little more than its texts.
class ServerSearchRows
{
public:
    ServerSearchRows() = default;
    explicit ServerSearchRows(const std::vector<SalesRow> &rows);

    // Keeps the row's values of the search's columns.
    void add(const SalesRow &row);
    std::size_t size() const { return m_places.size(); }
    bool empty() const { return m_places.empty(); }

    // The row as it was added, with the search's columns only; the others are null.
    SalesRow row(std::size_t index) const;
    // One of the search's columns of the row; none for a null.
    std::optional<QByteArrayView> value(std::size_t index, SalesColumn column) const;

private:
    // Where a row's texts begin.
    struct Place
    {
        quint32 block;
        quint32 offset;
    };

    static constexpr int columnCount = 7;
    char *reserve(qsizetype bytes);
    // Calls `take` with each of the row's columns and its value, in the order of the columns.
    template<typename Take>
    void walk(std::size_t index, Take &&take) const;

    std::vector<std::unique_ptr<char[]>> m_blocks;
    std::vector<qsizetype> m_blockSizes;
    qsizetype m_used = 0; // in the last block
    std::vector<Place> m_places;
    std::vector<quint8> m_lengths; // columnCount a row, or one of the marks below
};

} // namespace qlon
