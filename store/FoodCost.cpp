#include "store/FoodCost.h"

#include "core/Conversions.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/HostPath.h"
#include "core/Money.h"
#include "core/RecordFile.h"
#include "core/RuntimeError.h"
#include "store/CatalogueFiles.h"
#include "store/ItemRec500.h"
#include "store/IvmRec1000.h"
#include "store/SiteConfig.h"
#include "store/StockRec1000.h"

#include <QFileInfo>

#include <cmath>
#include <optional>

namespace qlon {

double UnitTable::ouncesOf(QByteArrayView unit) const
{
    for (int row = 1; row <= 23; ++row) {
        if (cells[row][1] == unit)
            return NumericValue(cells[row][2]);
    }
    return NumericValue(cells[24][2]);
}

namespace {

struct StockEntry
{
    double cost;
    QByteArray unit;
};

// The stock file read once; each ingredient is then looked up in it as the scan from the first
// record would find it.
class StockScan
{
public:
    StockScan()
    {
        const QString path = HostPath(DataPath(StockFile));
        if (!QFileInfo(path).isFile())
            return;
        RecordFile file(path, StockRec1000::size);
        for (qint32 number = 1; number <= file.CountRecords(); ++number) {
            const StockRec1000 record(file.GetRecord(number));
            m_names.append(record.trimmedField(StockRec1000::StockName));
            m_entries.append({NumericValue(record.trimmedField(StockRec1000::UnitCost)), record.trimmedField(StockRec1000::CostUnit)});
        }
    }

    // The first article of the name; with none, the last one read, as the scan leaves it.
    std::optional<StockEntry> find(const QByteArray &name) const
    {
        if (m_entries.isEmpty())
            return std::nullopt;
        const qsizetype found = m_names.indexOf(name);
        return m_entries.at(found < 0 ? m_entries.size() - 1 : found);
    }

private:
    QByteArrayList m_names;
    QList<StockEntry> m_entries;
};

std::optional<IvmRec1000> readRecipe(QByteArrayView itemPath, qint32 record)
{
    const QString path = HostPath(SisterPath(itemPath));
    if (!QFileInfo(path).isFile())
        return std::nullopt;
    RecordFile file(path, IvmRec1000::size);
    if (record < 1 || record > file.CountRecords())
        return std::nullopt;
    return IvmRec1000(file.GetRecord(record));
}

double unitCostOf(const StockEntry &stock, const RecipeRow &row, const UnitTable &units)
{
    // Deliberately in this order: a row in another unit than ounces whose stock is stated in
    // that same unit multiplies a converted amount by an unconverted cost.
    if (stock.unit == row.IngredientUnit)
        return stock.cost;
    const double ounces = units.ouncesOf(stock.unit);
    if (ounces == 0)
        throw RuntimeError(stock.cost == 0 ? RuntimeError::Overflow : RuntimeError::DivisionByZero);
    return stock.cost / ounces;
}

double rowCost(const RecipeRow &row, const StockScan &stock, const UnitTable &units)
{
    double amount = NumericValue(row.IngredientAmount);
    if (row.IngredientUnit != "Ounce")
        amount *= units.ouncesOf(row.IngredientUnit);
    const std::optional<StockEntry> article = stock.find(row.IngredientName);
    // Without a stock file the scan finds nothing: the row costs nothing.
    return article ? amount * unitCostOf(*article, row, units) : 0.0;
}

QByteArray percentageOf(Money total, QByteArrayView priceText)
{
    const double price = NumericValue(Format(NumericValue(priceText), "#####.##"));
    if (total <= Money() || price <= 0)
        return "0%";
    // 100 x total stays exact money, so that 2.30 on a price of 10 is 23 and not 22.99... cut to 22.
    return QByteArray::number(qint64(std::trunc((total * 100).toDouble() / price))) + '%';
}

} // namespace

FoodCostTexts FoodCost(QByteArrayView itemPath, qint32 record, QByteArrayView priceText, const UnitTable &units)
{
    const std::optional<IvmRec1000> recipe = readRecipe(itemPath, record);
    if (!recipe)
        return {"$ 0.00", "0%"};
    const StockScan stock;
    Money total;
    // Each row's cost is a double; the running total is rounded back to money after each addition.
    for (const RecipeRow &row : recipe->rows())
        total = Money::FromDouble(total.toDouble() + rowCost(row, stock, units));
    return {Currency(total.toDouble()), percentageOf(total, priceText)};
}

} // namespace qlon
