#pragma once

#include "core/RuntimeError.h"

#include <QByteArray>

#include <array>

namespace qlon {

// The table of department values, row i for position i of the main screen's department
// picker. Calculate Sales uses columns 0 to 2; the server screen columns 1 to 3 of a copy of its
// own, taken when it loads.
class CategoryValues
{
public:
    static constexpr int rowCount = 111;
    static constexpr int columnCount = 4;

    // A position outside the table raises "Subscript out of range".
    QByteArray &at(int row, int column);
    void clear() { m_cells = {}; }

private:
    std::array<std::array<QByteArray, columnCount>, rowCount> m_cells;
};

// The state that screens share and leave for one another.
struct ProgramGlobals
{
    // The word by which a screen tells another who opened it, or that a stop is asked.
    QByteArray ScreenMode;
    // The stop flag of the Items Sold scans, which their Stop button sets.
    bool StopRequested = false;
    CategoryValues CategoryTable;
    // The merged catalogue file that Load List read last.
    QByteArray ItemListPath;
    // The list row that Calculate Sales works on.
    qint32 CurrentRow = 0;
    // The report file of the last run, and what the last item counted.
    QByteArray TempItemsPath;
    double LastItemSales = 0;
    QByteArray LastItemType;
    // The site's name, which only the printer status screen reads from the configuration.
    QByteArray SiteName;
    // The documents waiting at a printer, as the printer queue screen counted them last.
    qint32 PendingCount = 0;
};

ProgramGlobals &Shared();

} // namespace qlon
