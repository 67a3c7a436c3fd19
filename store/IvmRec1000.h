#pragma once

#include "core/FixedRecord.h"

#include <QList>

namespace qlon {

inline constexpr auto RecipeLayout = LayoutOfRuns<60>([] {
    std::array<FieldRun, 60> runs{};
    for (std::size_t field = 0; field < runs.size(); ++field)
        runs[field] = {1, field % 3 == 0 ? 30 : 10};
    return runs;
}());

// One stock article that one sale of an item uses up, and how much of it.
struct RecipeRow
{
    QByteArray IngredientName;
    QByteArray IngredientAmount;
    QByteArray IngredientUnit;
};

// An item's recipe: 20 rows of 50 bytes in the sister file, record N for item record N.
class IvmRec1000 : public FixedRecord<1000, RecipeLayout>
{
public:
    static constexpr int rowCount = 20;

    using FixedRecord::FixedRecord;

    // Twenty empty rows, as a deleted item's recipe is written.
    static IvmRec1000 Cleared();

    // Row 1 to 20, trimmed.
    RecipeRow row(int number) const;
    void setRow(int number, const RecipeRow &row);
    // The rows from the first up to the first with an empty name.
    QList<RecipeRow> rows() const;
};

} // namespace qlon
