#include "core/RecordFile.h"
#include "demo/DemoCatalogue.h"
#include "demo/DemoSite.h"
#include "store/CatalogueFiles.h"
#include "store/ItemRec500.h"
#include "store/IvmRec1000.h"
#include "store/StockRec1000.h"
#include "tests/support/TempSite.h"

#include <QFileInfo>
#include <QMap>
#include <QSet>

#include <gtest/gtest.h>

namespace qlon {
namespace {

FreeSlotRule ruleOf(qsizetype sequenceIndex)
{
    if (sequenceIndex < ButtonFileCount)
        return FreeSlotRule::ButtonRebuild;
    return sequenceIndex < ButtonFileCount + 7 ? FreeSlotRule::DrinkRebuild : FreeSlotRule::RetailRebuild;
}

QList<CatalogueFile> allCatalogueFiles()
{
    QList<CatalogueFile> files = GatheredCatalogueFiles();
    for (int index = 0; index < ModifierFileCount; ++index)
        files.append(ModifierFile(index));
    return files;
}

// A catalogue file read back, with its reader's rule of a free slot.
struct ReadFile
{
    QByteArray path;
    FreeSlotRule rule;
    QList<ItemRec500> items;
};

class SiteCatalogueTest : public ::testing::Test
{
protected:
    QString siteFolder() const { return site.hostPath(QStringLiteral("Quillon")); }
    QString hostPathOf(const QByteArray &sitePath) const
    {
        return site.hostPath(QStringLiteral("Quillon/") + QString::fromLatin1(sitePath).replace(u'\\', u'/'));
    }
    bool exists(const QByteArray &sitePath) const { return QFileInfo::exists(hostPathOf(sitePath)); }
    int countOf(const QByteArray &sitePath, int recordSize) const
    {
        return RecordFile(hostPathOf(sitePath), recordSize).CountRecords();
    }

    template <typename Record>
    QList<Record> recordsOf(const QByteArray &sitePath) const
    {
        RecordFile file(hostPathOf(sitePath), Record::size);
        QList<Record> records;
        for (int number = 1; number <= file.CountRecords(); ++number)
            records.append(Record(file.GetRecord(number)));
        return records;
    }

    // The gathered files that exist, read back.
    QList<ReadFile> gatheredFiles() const
    {
        const QList<CatalogueFile> sequence = GatheredCatalogueFiles();
        QList<ReadFile> files;
        for (qsizetype index = 0; index < sequence.size(); ++index)
            if (exists(sequence[index].items))
                files.append({sequence[index].items, ruleOf(index), recordsOf<ItemRec500>(sequence[index].items)});
        return files;
    }

    test::TempSite site;
};

class DemoCatalogueTest : public SiteCatalogueTest
{
protected:
    void SetUp() override { WriteDemoSite(site.driveFolder(), QDate(2024, 3, 18)); }

    QList<ItemRec500> liveItems() const
    {
        QList<ItemRec500> live;
        for (const ReadFile &file : gatheredFiles())
            for (const ItemRec500 &item : file.items)
                if (!item.isFree(file.rule))
                    live.append(item);
        return live;
    }

    int countTitled(const QByteArray &title) const
    {
        int count = 0;
        for (const ReadFile &file : gatheredFiles())
            for (const ItemRec500 &item : file.items)
                count += item.trimmedField(ItemRec500::ButtonTitle) == title;
        return count;
    }
};

class GeneratedCatalogueTest : public SiteCatalogueTest
{
};

TEST_F(DemoCatalogueTest, EveryItemFileHasItsSisterOfTheSameRecordCount)
{
    int written = 0;
    for (const CatalogueFile &file : allCatalogueFiles()) {
        if (!exists(file.items))
            continue;
        ++written;
        ASSERT_TRUE(exists(file.recipes)) << file.recipes.constData();
        EXPECT_GT(countOf(file.items, ItemRec500::size), 0) << file.items.constData();
        EXPECT_EQ(countOf(file.items, ItemRec500::size), countOf(file.recipes, IvmRec1000::size))
            << file.items.constData();
    }
    EXPECT_EQ(written, 26 + 7 + 1 + 4);
    EXPECT_TRUE(exists("data\\EXpressBar.IVM"));
}

TEST_F(DemoCatalogueTest, TwoMenuSetsOfTwelveButtonsAScreen)
{
    for (int index = 0; index < ButtonFileCount; ++index) {
        const QByteArray path = ButtonFile(index).items;
        const bool demoSet = index < 26;
        EXPECT_EQ(exists(path), demoSet) << path.constData();
        const bool buttonScreen = index % 13 != 12;
        if (demoSet && buttonScreen) {
            EXPECT_EQ(countOf(path, ItemRec500::size), 12) << path.constData();
        }
    }
}

TEST_F(DemoCatalogueTest, SeveralHundredLiveItemsUnderTheSitesDepartments)
{
    const QList<ItemRec500> live = liveItems();
    EXPECT_GE(live.size(), 300);
    EXPECT_LE(live.size(), 3000) << "Load List reads no more";
    const QSet<QByteArray> departments = {"",     "Food",     "Beverage", "Liquor",   "Beer",
                                          "Wine", "Catering", "Retail",   "Gift Card"};
    QMap<QByteArray, int> perDepartment;
    for (const ItemRec500 &item : live) {
        const QByteArray department = item.trimmedField(ItemRec500::Department);
        EXPECT_TRUE(departments.contains(department)) << department.constData();
        ++perDepartment[department];
    }
    EXPECT_GT(perDepartment.value("Food"), live.size() / 2);
    for (const char *department : {"Beverage", "Catering", "Beer", "Wine", "Liquor", "Retail", "Gift Card"})
        EXPECT_GT(perDepartment.value(department), 0) << department;
}

TEST_F(DemoCatalogueTest, FreeSlotsAreWrittenAsTheDeleterWritesThem)
{
    int deleted = 0;
    for (const ReadFile &file : gatheredFiles()) {
        for (const ItemRec500 &item : file.items) {
            if (item.trimmedField(ItemRec500::ButtonTitle) != "Avaliable")
                continue;
            ++deleted;
            for (int field : {ItemRec500::ReceiptText, ItemRec500::KitchenText, ItemRec500::Price,
                              ItemRec500::HappyHourPrice, ItemRec500::LongDescription, ItemRec500::Department})
                EXPECT_EQ(item.trimmedField(field), "") << file.path.constData() << " field " << field;
            for (int field : {ItemRec500::VisibleFlag, ItemRec500::TaxableFlag, ItemRec500::BarPrinterFlag,
                              ItemRec500::KitPrinterFlag})
                EXPECT_EQ(item.trimmedField(field), "N") << file.path.constData() << " field " << field;
        }
    }
    EXPECT_GE(deleted, 10);
}

TEST_F(DemoCatalogueTest, TheSlotsThatReadersTellApartAreThere)
{
    int availableInButtons = 0;
    int blankTitles = 0;
    int dashesInDrinks = 0;
    for (const ReadFile &file : gatheredFiles()) {
        for (const ItemRec500 &item : file.items) {
            const QByteArray title = item.trimmedField(ItemRec500::ButtonTitle);
            availableInButtons += file.rule == FreeSlotRule::ButtonRebuild && title == "Available";
            blankTitles += title.isEmpty();
            dashesInDrinks += file.rule == FreeSlotRule::DrinkRebuild && title == "-";
        }
    }
    EXPECT_GE(availableInButtons, 1);
    EXPECT_GE(blankTitles, 1);
    EXPECT_GE(dashesInDrinks, 1);
}

TEST_F(DemoCatalogueTest, TitlesWithAnApostropheAndOfTheWholeWidth)
{
    EXPECT_EQ(countTitled("Joe's Wings"), 1);
    EXPECT_EQ(countTitled("Chicken Parmigiana"), 1);
    int wholeWidth = 0;
    for (const ItemRec500 &item : liveItems())
        wholeWidth += !item.field(ItemRec500::ButtonTitle).endsWith(' ');
    EXPECT_GE(wholeWidth, 1);
}

TEST_F(DemoCatalogueTest, OneNameInTwoFilesAtTwoPrices)
{
    QList<QByteArray> prices;
    QSet<QByteArray> files;
    for (const ReadFile &file : gatheredFiles()) {
        for (const ItemRec500 &item : file.items) {
            if (item.trimmedField(ItemRec500::ButtonTitle) == "House Salad") {
                prices.append(item.trimmedField(ItemRec500::Price));
                files.insert(file.path);
            }
        }
    }
    EXPECT_EQ(prices, (QList<QByteArray>{"6.95", "7.95"}));
    EXPECT_EQ(files.size(), 2);
}

TEST_F(DemoCatalogueTest, NoOtherNameIsRepeated)
{
    QMap<QByteArray, int> titles;
    for (const ItemRec500 &item : liveItems())
        ++titles[item.trimmedField(ItemRec500::ButtonTitle)];
    QList<QByteArray> repeated;
    for (auto title = titles.cbegin(); title != titles.cend(); ++title)
        if (title.value() > 1)
            repeated.append(title.key());
    EXPECT_EQ(repeated, QList<QByteArray>{"House Salad"});
}

TEST_F(DemoCatalogueTest, OneItemWithoutDepartmentAndOneWithoutPrice)
{
    int withoutDepartment = 0;
    int withoutPrice = 0;
    for (const ItemRec500 &item : liveItems()) {
        withoutDepartment += item.trimmedField(ItemRec500::Department).isEmpty();
        withoutPrice += item.trimmedField(ItemRec500::Price).isEmpty();
    }
    EXPECT_EQ(withoutDepartment, 1);
    EXPECT_EQ(withoutPrice, 1);
}

TEST_F(DemoCatalogueTest, RetailArticlesAreNamedByTheirKitchenText)
{
    const QList<ItemRec500> retail = recordsOf<ItemRec500>(RetailFile().items);
    int available = 0;
    int withoutName = 0;
    int named = 0;
    for (const ItemRec500 &item : retail) {
        if (item.isFree(FreeSlotRule::RetailRebuild))
            continue;
        const QByteArray name = item.trimmedField(ItemRec500::KitchenText);
        available += item.trimmedField(ItemRec500::ButtonTitle) == "Available";
        withoutName += name.isEmpty();
        named += !name.isEmpty();
    }
    EXPECT_EQ(available, 1);
    EXPECT_EQ(withoutName, 1);
    EXPECT_GE(named, 10);
}

TEST_F(DemoCatalogueTest, PizzasCarryTheirSize)
{
    int pizzas = 0;
    for (const ItemRec500 &item : liveItems()) {
        if (item.trimmedField(ItemRec500::PizzaFlag) != "1")
            continue;
        ++pizzas;
        EXPECT_GT(item.trimmedField(ItemRec500::PizzaSize).toInt(), 0);
    }
    EXPECT_GE(pizzas, 6);
}

TEST_F(DemoCatalogueTest, RecipesNameStockArticlesInOunces)
{
    QSet<QByteArray> stock;
    for (const StockRec1000 &article : recordsOf<StockRec1000>(StockFile)) {
        stock.insert(article.trimmedField(StockRec1000::StockName));
        EXPECT_GT(article.trimmedField(StockRec1000::UnitCost).toDouble(), 0);
        EXPECT_EQ(article.trimmedField(StockRec1000::CostUnit), "Ounce");
    }
    int recipes = 0;
    for (const CatalogueFile &file : allCatalogueFiles()) {
        if (!exists(file.recipes))
            continue;
        for (const IvmRec1000 &recipe : recordsOf<IvmRec1000>(file.recipes)) {
            const QList<RecipeRow> rows = recipe.rows();
            recipes += !rows.isEmpty();
            EXPECT_LE(rows.size(), 4);
            for (const RecipeRow &row : rows) {
                EXPECT_TRUE(stock.contains(row.IngredientName)) << row.IngredientName.constData();
                EXPECT_GT(row.IngredientAmount.toDouble(), 0);
                EXPECT_EQ(row.IngredientUnit, "Ounce");
            }
        }
    }
    EXPECT_GE(recipes, 100);
}

TEST_F(DemoCatalogueTest, ItemsWithoutRecipeHaveClearedRows)
{
    const QList<ItemRec500> items = recordsOf<ItemRec500>(ButtonFile(0).items);
    const QList<IvmRec1000> recipes = recordsOf<IvmRec1000>(ButtonFile(0).recipes);
    ASSERT_EQ(items.size(), recipes.size());
    int cleared = 0;
    for (qsizetype index = 0; index < items.size(); ++index)
        cleared += recipes[index] == IvmRec1000::Cleared();
    EXPECT_GE(cleared, 2) << "a free slot and an item without recipe";
}

TEST_F(GeneratedCatalogueTest, SixtyFilesOfAThousandRecords)
{
    WriteGeneratedCatalogue(siteFolder(), 60, 1000);
    const QList<CatalogueFile> files = GatheredCatalogueFiles();
    ASSERT_EQ(files.size(), 60);
    for (const CatalogueFile &file : files) {
        EXPECT_EQ(countOf(file.items, ItemRec500::size), 1000) << file.items.constData();
        EXPECT_EQ(countOf(file.recipes, IvmRec1000::size), 1000) << file.recipes.constData();
    }
    EXPECT_FALSE(exists(ModifierFile(0).items));
}

TEST_F(GeneratedCatalogueTest, NamesAreUniqueAndEveryTenthSlotIsFree)
{
    WriteGeneratedCatalogue(siteFolder(), 3, 40);
    QSet<QByteArray> names;
    int free = 0;
    for (int index = 0; index < 3; ++index) {
        const QList<ItemRec500> items = recordsOf<ItemRec500>(ButtonFile(index).items);
        ASSERT_EQ(items.size(), 40);
        for (const ItemRec500 &item : items) {
            if (item.isFree(FreeSlotRule::ButtonRebuild)) {
                ++free;
                continue;
            }
            names.insert(item.trimmedField(ItemRec500::ButtonTitle));
            EXPECT_GT(item.trimmedField(ItemRec500::Price).toDouble(), 0);
        }
    }
    EXPECT_EQ(free, 12);
    EXPECT_EQ(names.size(), 108);
    EXPECT_TRUE(names.contains("Item 0001-0001"));
    EXPECT_TRUE(names.contains("Item 0003-0039"));
    EXPECT_FALSE(exists(ButtonFile(3).items));
}

TEST_F(GeneratedCatalogueTest, TheSameArgumentsWriteTheSameBytes)
{
    WriteGeneratedCatalogue(siteFolder(), 60, 30);
    const QByteArray retail = site.read(QStringLiteral("Quillon/data/RetailItems.dat"));
    const QByteArray recipes = site.read(QStringLiteral("Quillon/data/RetailItems.IVM"));
    WriteGeneratedCatalogue(siteFolder(), 60, 30);
    EXPECT_EQ(site.read(QStringLiteral("Quillon/data/RetailItems.dat")), retail);
    EXPECT_EQ(site.read(QStringLiteral("Quillon/data/RetailItems.IVM")), recipes);
}

} // namespace
} // namespace qlon
