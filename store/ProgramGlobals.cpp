#include "store/ProgramGlobals.h"

namespace qlon {

QByteArray &CategoryValues::at(int row, int column)
{
    if (row < 0 || row >= rowCount || column < 0 || column >= columnCount)
        throw RuntimeError(RuntimeError::SubscriptOutOfRange);
    return m_cells[row][column];
}

ProgramGlobals &Shared()
{
    static ProgramGlobals globals;
    return globals;
}

} // namespace qlon
