#pragma once

#include <QByteArray>

#include <array>

namespace qlon {

// Units by their size in ounces: 26 rows of 3 texts, column 1 a unit's name and column 2 how
// many ounces one such unit holds. The screen that owns recipes fills it; rows 1 to 23 count.
struct UnitTable
{
    std::array<std::array<QByteArray, 3>, 26> cells;

    // The ounces of the unit; a unit the table doesn't hold reads row 24, which is empty.
    double ouncesOf(QByteArrayView unit) const;
};

struct FoodCostTexts
{
    QByteArray cost; // "$ 0.00" until a recipe is costed, then the money form
    QByteArray percentage; // "37%": the cost against the price, cut to a whole number
};

// The cost of one sale of item `record` of the item file, from its recipe and the stock file
// data\LiqInventory.dat, and its share of the price as shown on the screen. A unit cost in a
// unit the table doesn't hold raises "Division by zero".
FoodCostTexts FoodCost(QByteArrayView itemPath, qint32 record, QByteArrayView priceText, const UnitTable &units);

} // namespace qlon
