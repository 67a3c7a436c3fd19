#include "rebuild/logic/RebuildItems.h"
#include "core/FileTable.h"
#include "core/RecordFile.h"
#include "store/ItemRec500.h"
#include "store/IvmRec1000.h"
#include "store/SiteConfig.h"
#include "tests/support/CatalogueItem.h"
#include "tests/support/TempSite.h"

#include <QDir>

#include <gtest/gtest.h>

namespace qlon {
namespace {

// A catalogue item with bytes in fields the rebuild doesn't read, which its copy must keep.
ItemRec500 item(const test::ItemFields &fields)
{
    ItemRec500 record = test::CatalogueItem(fields);
    record.setField(ItemRec500::SlotCode, "07");
    record.setField(ItemRec500::AltTitle, "alt \x93" + fields.title);
    record.setField(ItemRec500::RecordTail, "tail bytes \x01\x81");
    return record;
}

IvmRec1000 recipeOf(const QByteArray &ingredient)
{
    IvmRec1000 recipe = IvmRec1000::Cleared();
    recipe.setRow(1, {ingredient, "2", "Ounce"});
    return recipe;
}

QByteArray itemTitleWithTrimmedTitle(const ItemRec500 &source)
{
    ItemRec500 rebuilt = source;
    rebuilt.setField(ItemRec500::ButtonTitle, source.trimmedField(ItemRec500::ButtonTitle));
    return rebuilt.bytes();
}

// The merged files as the rules read, one record at a time.
struct MergedFiles
{
    QByteArray items;
    QByteArray recipes;
    QByteArray titles;
};

enum class SourceGroup { Food, Liquor, Retail };

void mergeRecordAtATime(MergedFiles &merged, const QString &itemsPath, const QString &recipesPath, SourceGroup group)
{
    RecordFile items(itemsPath, ItemRec500::size);
    RecordFile recipes(recipesPath, IvmRec1000::size);
    QByteArrayList freeTitles{"", "Avaliable"};
    if (group != SourceGroup::Retail)
        freeTitles.append("Available");
    if (group == SourceGroup::Liquor)
        freeTitles.append("-");
    for (qint32 number = 1; number <= items.CountRecords(); ++number) {
        ItemRec500 item(items.GetRecord(number));
        const QByteArray title = item.trimmedField(ItemRec500::ButtonTitle);
        if (freeTitles.contains(title))
            continue;
        item.setField(ItemRec500::ButtonTitle, title);
        if (group == SourceGroup::Retail) {
            item.setField(ItemRec500::Department, "Retail");
            item.setField(ItemRec500::ButtonTitle, item.field(ItemRec500::KitchenText));
        }
        merged.items += item.bytes();
        merged.recipes += recipes.GetRecord(number);
        if (group == SourceGroup::Food)
            merged.titles += '"' + title + "\"\r\n";
    }
}

class RebuildItemsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Site() = SiteGlobals{};
        Site().DataRoot = "C:\\QUILLON\\";
        setLiquorRebuild("-1");
        QDir(site.driveFolder()).mkpath(QStringLiteral("Quillon/Temp"));
    }

    void setLiquorRebuild(const QByteArray &value) { Site().Config.setField(IniRec2300::LiquorRebuild, value); }

    // Writes an item file and, unless told otherwise, its recipe file of the same records.
    void writeCatalogue(
        const QString &relative, const QList<ItemRec500> &items, bool withRecipes = true, const QString &recipeRelative = {})
    {
        QByteArray itemBytes;
        QByteArray recipeBytes;
        for (const ItemRec500 &record : items) {
            itemBytes += record.bytes();
            recipeBytes += recipeOf("for " + record.trimmedField(ItemRec500::ButtonTitle)).bytes();
        }
        site.write(QStringLiteral("Quillon/") + relative, itemBytes);
        if (withRecipes)
            site.write(
                QStringLiteral("Quillon/") + (recipeRelative.isEmpty() ? relative.chopped(3) + QStringLiteral("IVM") : recipeRelative),
                recipeBytes);
    }

    void rebuild()
    {
        RebuildItems::EmptyTempFiles();
        RebuildItems run(
            {[this](int, int maximum) { progressMaximum = maximum; }, [](int) {}, [this](int count) { shownCount = count; }, [] {}});
        run.Run();
    }

    QList<QByteArray> records(const QString &relative, int size) const
    {
        const QByteArray bytes = site.read(QStringLiteral("Quillon/") + relative);
        QList<QByteArray> records;
        for (qsizetype at = 0; at < bytes.size(); at += size)
            records.append(bytes.sliced(at, qMin<qsizetype>(size, bytes.size() - at)));
        return records;
    }

    QByteArrayList titles() const
    {
        QByteArrayList titles;
        for (const QByteArray &record : records(QStringLiteral("Temp/TempInv.dat"), ItemRec500::size))
            titles.append(ItemRec500(record).trimmedField(ItemRec500::ButtonTitle));
        return titles;
    }

    test::TempSite site;
    int progressMaximum = 0;
    int shownCount = 0;
};

TEST_F(RebuildItemsTest, ASiteWithoutCatalogueEndsWithEmptyFiles)
{
    site.write(QStringLiteral("Quillon/Temp/TempInv.dat"), QByteArray(1500, 'x'));
    rebuild();
    for (const QString &file :
        {QStringLiteral("TempInv.dat"), QStringLiteral("TempInv.IVM"), QStringLiteral("TempInvLB.DAT"), QStringLiteral("tList1.dat")}) {
        EXPECT_TRUE(QFileInfo::exists(site.hostPath(QStringLiteral("Quillon/Temp/") + file))) << file.toStdString();
        EXPECT_TRUE(site.read(QStringLiteral("Quillon/Temp/") + file).isEmpty()) << file.toStdString();
    }
    EXPECT_EQ(Files().openCount(), 0u);
}

TEST_F(RebuildItemsTest, GathersEveryGroupInOrderByteForByte)
{
    const ItemRec500 burger = item({"  Burger"});
    const ItemRec500 fries = item({"Fries", ""});
    writeCatalogue(QStringLiteral("ini/Button0.dat"), {burger, item({"Avaliable"}), item({"Available"}), item({""}), fries});
    writeCatalogue(QStringLiteral("ini/3/ButtonFB.dat"), {item({"Pie", "Dessert"})});
    writeCatalogue(QStringLiteral("ini/Mod0.dat"), {item({"ADD Cheese"})});
    writeCatalogue(QStringLiteral("data/BeerDraft.dat"), {item({"Lager", "Beer"}), item({"-", "Beer"})});
    writeCatalogue(QStringLiteral("data/ExpressBar.dat"), {item({"Shot", "Liquor"})}, true, QStringLiteral("data/EXpressBar.IVM"));
    const ItemRec500 shirt = item({.title = "Available", .department = "Merch", .kitchenText = "T-Shirt"});
    writeCatalogue(QStringLiteral("data/RetailItems.dat"),
        {shirt, item({.title = "Avaliable", .department = "", .kitchenText = "Ghost"}),
            item({.title = "Mug", .department = "", .kitchenText = ""})});

    rebuild();

    EXPECT_EQ(titles(), (QByteArrayList{"Burger", "Fries", "Pie", "Lager", "Shot", "T-Shirt", ""}));
    const QList<QByteArray> items = records(QStringLiteral("Temp/TempInv.dat"), ItemRec500::size);
    EXPECT_EQ(items[0], itemTitleWithTrimmedTitle(burger)) << "all but the title's leading blanks is the source's";
    EXPECT_EQ(items[1], fries.bytes()) << "a blank department stays blank";
    ItemRec500 rebuiltShirt = shirt;
    rebuiltShirt.setField(ItemRec500::Department, "Retail");
    rebuiltShirt.setField(ItemRec500::ButtonTitle, "T-Shirt");
    EXPECT_EQ(items[5], rebuiltShirt.bytes()) << "retail is listed under its kitchen text";
    EXPECT_EQ(records(QStringLiteral("Temp/TempInvLB.DAT"), ItemRec500::size), items);

    const QList<QByteArray> recipes = records(QStringLiteral("Temp/TempInv.IVM"), IvmRec1000::size);
    ASSERT_EQ(recipes.size(), 7);
    EXPECT_EQ(recipes[1], recipeOf("for Fries").bytes()) << "a recipe travels with its item";
    EXPECT_EQ(recipes[4], recipeOf("for Shot").bytes());
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Temp/tList1.dat")), "\"Burger\"\r\n\"Fries\"\r\n\"Pie\"\r\n");
    EXPECT_EQ(shownCount, 7);
}

TEST_F(RebuildItemsTest, DrinksOnlyWhenTheSiteAsksForThem)
{
    writeCatalogue(QStringLiteral("data/cocktail.dat"), {item({"Mojito", "Liquor"})});
    setLiquorRebuild("0");
    rebuild();
    EXPECT_TRUE(titles().isEmpty());
    setLiquorRebuild(" -1  ");
    rebuild();
    EXPECT_EQ(titles(), QByteArrayList{"Mojito"});
    EXPECT_EQ(progressMaximum, 2) << "the drink's count shows on the progress bar";
}

TEST_F(RebuildItemsTest, MissingOrShortRecipeFiles)
{
    writeCatalogue(QStringLiteral("ini/Button1.dat"), {item({"No Recipe File"})}, false);
    writeCatalogue(QStringLiteral("data/WineGlass.dat"), {item({"Merlot", "Wine"})}, false);
    site.write(QStringLiteral("Quillon/ini/1/Button2.dat"), item({"Soup"}).bytes() + item({"Stew"}).bytes());
    site.write(QStringLiteral("Quillon/ini/1/Button2.IVM"), recipeOf("Broth").bytes());
    writeCatalogue(QStringLiteral("data/RetailItems.dat"), {item({.title = "Cap", .department = "", .kitchenText = "Cap"})}, false);

    rebuild();

    EXPECT_EQ(titles(), (QByteArrayList{"Soup", "Stew", "Cap"}));
    const QList<QByteArray> recipes = records(QStringLiteral("Temp/TempInv.IVM"), IvmRec1000::size);
    ASSERT_EQ(recipes.size(), 3);
    EXPECT_EQ(recipes[1], QByteArray(1000, ' ')) << "behind the end of a short recipe file the rows are empty";
    EXPECT_TRUE(QFileInfo::exists(site.hostPath(QStringLiteral("Quillon/data/RetailItems.IVM"))))
        << "the retail recipe file comes into being";
}

// Source records are read and merged records written in blocks; the files equal those of a
// record-at-a-time merge, across the blocks' edges, a damaged end and a short recipe file.
TEST_F(RebuildItemsTest, BlocksGiveWhatRecordAtATimeGives)
{
    const QByteArrayList titles{" Steak ", "Avaliable", "Available", "", "-", "Soup", "Eighteen characters"};
    const auto catalogue = [&](int count) {
        QList<ItemRec500> items;
        for (int number = 1; number <= count; ++number)
            items.append(item({.title = titles[number % titles.size()] + (number % 5 ? "" : " " + QByteArray::number(number)),
                .department = number % 4 ? "Food" : "",
                .kitchenText = "kitchen " + QByteArray::number(number)}));
        return items;
    };
    writeCatalogue(QStringLiteral("ini/Button0.dat"), catalogue(1300));
    writeCatalogue(QStringLiteral("ini/2/Button7.dat"), catalogue(513));
    site.write(QStringLiteral("Quillon/ini/Button0.IVM"), site.read(QStringLiteral("Quillon/ini/Button0.IVM")).first(900 * 1000 + 1));
    writeCatalogue(QStringLiteral("data/BeerDraft.dat"), catalogue(600));
    site.write(QStringLiteral("Quillon/data/BeerDraft.dat"), site.read(QStringLiteral("Quillon/data/BeerDraft.dat")) + "damaged end");
    writeCatalogue(QStringLiteral("data/RetailItems.dat"), catalogue(1025), false);

    MergedFiles expected;
    for (const auto &[items, group] : {std::pair{"ini/Button0.dat", SourceGroup::Food}, {"ini/2/Button7.dat", SourceGroup::Food},
             {"data/BeerDraft.dat", SourceGroup::Liquor}, {"data/RetailItems.dat", SourceGroup::Retail}}) {
        const QString path = site.hostPath(QStringLiteral("Quillon/") + QLatin1String(items));
        mergeRecordAtATime(expected, path, path.chopped(3) + QStringLiteral("IVM"), group);
    }
    rebuild();

    EXPECT_EQ(site.read(QStringLiteral("Quillon/Temp/TempInv.dat")), expected.items);
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Temp/TempInvLB.DAT")), expected.items);
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Temp/TempInv.IVM")), expected.recipes);
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Temp/tList1.dat")), expected.titles);
    EXPECT_EQ(shownCount, expected.items.size() / ItemRec500::size);
}

TEST_F(RebuildItemsTest, NoSourceFileIsEverWritten)
{
    writeCatalogue(QStringLiteral("ini/Button0.dat"), {item({" Padded "}), item({"Avaliable"})});
    writeCatalogue(QStringLiteral("data/RetailItems.dat"), {item({.title = "x", .department = "", .kitchenText = "Hat"})});
    const QByteArray buttons = site.read(QStringLiteral("Quillon/ini/Button0.dat"));
    const QByteArray retail = site.read(QStringLiteral("Quillon/data/RetailItems.dat"));
    rebuild();
    EXPECT_EQ(site.read(QStringLiteral("Quillon/ini/Button0.dat")), buttons);
    EXPECT_EQ(site.read(QStringLiteral("Quillon/data/RetailItems.dat")), retail);
}

TEST_F(RebuildItemsTest, AMissingTempFolderOrAHeldFileEndsTheRun)
{
    QDir(site.hostPath(QStringLiteral("Quillon/Temp"))).removeRecursively();
    try {
        rebuild();
        FAIL() << "rebuilt without a Temp folder";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), RuntimeError::PathNotFound);
    }
    CloseAll();
    QDir(site.driveFolder()).mkpath(QStringLiteral("Quillon/Temp"));
    RecordFile station(site.hostPath(QStringLiteral("Quillon/Temp/TempInvLB.DAT")), ItemRec500::size);
    station.LockAll();
    try {
        rebuild();
        FAIL() << "rebuilt into a file held elsewhere";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), RuntimeError::PermissionDenied);
    }
}

} // namespace
} // namespace qlon
