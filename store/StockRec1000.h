#pragma once

#include "core/FixedRecord.h"

namespace qlon {

inline constexpr auto StockLayout =
    LayoutOfWidths<22>({50, 50, 10, 200, 40, 20, 10, 10, 5, 20, 20, 20, 10, 10, 10, 10, 10, 40, 10, 5, 5, 435});

// A stock article of data\LiqInventory.dat. The stock program owns the record; this program
// reads the cost, the name and the unit.
class StockRec1000 : public FixedRecord<1000, StockLayout>
{
public:
    using FixedRecord::FixedRecord;

    enum Field {
        UnitCost = 5,
        StockName = 10,
        CostUnit = 12,
    };
};

} // namespace qlon
