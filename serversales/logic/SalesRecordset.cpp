#include "serversales/logic/SalesRecordset.h"

#include "core/Like.h"

#include <algorithm>

namespace qlon {

void SalesRecordset::open(Connect connect)
{
    m_connect = std::move(connect);
    m_open = false;
    m_rows.reset();
    m_current = 0;
    m_rowsAtOpening = m_connect()->MarkRows();
    m_open = true;
}

void SalesRecordset::refresh()
{
    if (!m_connect)
        throw RuntimeError(RuntimeError::ObjectClosed);
    open(m_connect);
    moved(0);
}

std::vector<SalesRow> &SalesRecordset::rows()
{
    if (!isOpen())
        throw RuntimeError(RuntimeError::ObjectClosed);
    if (!m_rows) {
        std::vector<SalesRow> fetched;
        m_connect()->SelectMarked(m_rowsAtOpening, [&](const SalesRow &row) {
            fetched.push_back(row);
            return true;
        });
        m_rows = std::move(fetched);
    }
    return *m_rows;
}

int SalesRecordset::count()
{
    return int(rows().size());
}

const SalesRow &SalesRecordset::row(int index)
{
    return rows().at(std::size_t(index));
}

bool SalesRecordset::atEnd()
{
    // The mark alone tells whether the first row is there: the opening fetches nothing.
    if (isOpen() && !m_rows && m_current == 0)
        return m_rowsAtOpening.empty;
    return m_current >= count();
}

int SalesRecordset::absolutePosition()
{
    return atEnd() ? PositionAtEnd : m_current + 1;
}

void SalesRecordset::moved(int index)
{
    m_current = index <= 0 ? 0 : std::min(index, count());
    if (m_heldMoves)
        ++*m_heldMoves;
    else if (m_moved)
        m_moved();
}

void SalesRecordset::withMovesHeld(const std::function<void()> &change)
{
    m_heldMoves = 0;
    try {
        change();
    } catch (...) {
        m_heldMoves.reset();
        throw;
    }
    for (int held = *std::exchange(m_heldMoves, std::nullopt); held > 0; --held) {
        if (m_moved)
            m_moved();
    }
}

void SalesRecordset::moveFirst()
{
    moved(0);
}

void SalesRecordset::moveNext()
{
    if (atEnd())
        throw RuntimeError(RuntimeError::NoCurrentRecord);
    moved(m_current + 1);
}

void SalesRecordset::moveLast()
{
    moved(count() - 1);
}

void SalesRecordset::moveTo(int index)
{
    moved(index);
}

void SalesRecordset::find(SalesColumn column, QByteArrayView pattern)
{
    const std::vector<SalesRow> &all = rows();
    int index = m_current;
    while (index < int(all.size()) && !(all[index][column] && MatchesLike(*all[index][column], pattern)))
        ++index;
    moved(index);
}

void SalesRecordset::addNew()
{
    rows().emplace_back();
    moved(count() - 1);
}

void SalesRecordset::deleteCurrent()
{
    if (atEnd())
        throw RuntimeError(RuntimeError::NoCurrentRecord);
    rows().erase(rows().begin() + m_current);
    moved(m_current);
    if (atEnd())
        moveLast();
}

void SalesRecordset::setValue(int index, SalesColumn column, SalesValue value)
{
    rows().at(std::size_t(index))[column] = std::move(value);
}

void SalesRecordset::updateBatch() const
{
    throw RuntimeError(RuntimeError::ReadOnlyDatabase);
}

} // namespace qlon
