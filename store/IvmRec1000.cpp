#include "store/IvmRec1000.h"

namespace qlon {

namespace {
int firstFieldOf(int row)
{
    return 3 * (row - 1);
}
} // namespace

IvmRec1000 IvmRec1000::Cleared()
{
    IvmRec1000 recipe;
    for (int number = 1; number <= rowCount; ++number)
        recipe.setRow(number, {{}, "0", "Ounce"});
    return recipe;
}

RecipeRow IvmRec1000::row(int number) const
{
    const int field = firstFieldOf(number);
    return {trimmedField(field), trimmedField(field + 1), trimmedField(field + 2)};
}

void IvmRec1000::setRow(int number, const RecipeRow &row)
{
    const int field = firstFieldOf(number);
    setField(field, row.IngredientName);
    setField(field + 1, row.IngredientAmount);
    setField(field + 2, row.IngredientUnit);
}

QList<RecipeRow> IvmRec1000::rows() const
{
    QList<RecipeRow> rows;
    for (int number = 1; number <= rowCount; ++number) {
        RecipeRow next = row(number);
        if (next.IngredientName.isEmpty())
            break;
        rows.append(std::move(next));
    }
    return rows;
}

} // namespace qlon
