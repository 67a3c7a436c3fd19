#include "itemssold/logic/CatalogueScan.h"
#include "store/ItemRec500.h"
#include "store/SiteConfig.h"
#include "tests/support/CatalogueItem.h"
#include "tests/support/TempSite.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace qlon {
namespace {

using test::CatalogueItem;

// The row of a record: its fields at their full widths.
QByteArray row(const char *name, int nameWidth, const char *price, char itemClass, const char *department)
{
    return QByteArray(name).leftJustified(nameWidth) + '|' + QByteArray(price).leftJustified(10) + '|' + itemClass + '|' +
        QByteArray(department).leftJustified(20);
}

class CountingProgress : public ScanProgress
{
public:
    void setMaximum(int) override { }
    void setValue(int) override { }
    bool stopRequested() override { return ++asked > stopAfter; }
    int asked = 0;
    int stopAfter = 1000000;
};

class CatalogueScanTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Site() = SiteGlobals{};
        // The site's files lie under the data root, whatever folder the configuration stands in.
        Site().SiteRoot = "C:\\Station\\";
        Site().DataRoot = "C:\\Quillon\\";
        QList<ItemRec500> buttons = {CatalogueItem({"Burger", "Food", "9.95", "Burger Deluxe"}),
            CatalogueItem({"Avaliable", "Food", "1", "x"}), CatalogueItem({"Water", "Food", "0", "Water"})};
        for (int filler = 0; filler < 11; ++filler)
            buttons.append(CatalogueItem({"Late " + QByteArray::number(filler), "Food", "1", "Late"}));
        write(QStringLiteral("Quillon/ini/Button0.dat"), buttons);
        write(QStringLiteral("Quillon/ini/Mod0.dat"),
            {CatalogueItem({"ADD Cheese", "Food", "1.00", "Cheese"}), CatalogueItem({"Avaliable 2", "Food", "1", "x"}),
                CatalogueItem({"Plain", "Food", "0", "p"})});
        write(QStringLiteral("Quillon/ini/Mod0.IVM"), {});
        write(QStringLiteral("Quillon/ini/Mod1.dat"), {CatalogueItem({"No Recipes", "Food", "1", "n"})});
        write(QStringLiteral("Quillon/data/BeerDraft.dat"),
            {CatalogueItem({"Bud", "Beer", "4", "Budweiser"}), CatalogueItem({" Ale ", "Beer", "5", "Ale"})});
        write(QStringLiteral("Quillon/data/RetailItems.dat"),
            {CatalogueItem({"Tee", "Retail", "20", "Logo Tee"}), CatalogueItem({"Free", "Food", "0", "Free"})});
    }

    void write(const QString &path, const QList<ItemRec500> &records)
    {
        QByteArray bytes;
        for (const ItemRec500 &record : records)
            bytes += record.bytes();
        site.write(path, bytes);
    }

    QByteArrayList scan(const ReportOptions &options)
    {
        CountingProgress progress;
        return ReadCatalogue(options, progress).rows;
    }

    test::TempSite site;
};

TEST_F(CatalogueScanTest, EachReportTakesItsPassesInTheirOrder)
{
    // Records 4 to 12 of the button file are the first nine fillers, all printed as "Late".
    const QByteArrayList food = QByteArrayList{row("Burger Deluxe", 18, "9.95", 'F', "Food"), row("Water", 18, "0", 'F', "Food")} +
        QByteArrayList(9, row("Late", 18, "1", 'F', "Food")) + QByteArrayList{row("ADD Cheese", 18, "1.00", 'F', "Food")};
    const QByteArrayList bar = {row("Budweiser", 18, "4", 'L', "Beer"), row("Bud", 18, "4", 'L', "Beer"), row("Ale", 18, "5", 'L', "Beer")};
    const QByteArrayList retail = {row("Logo Tee", 18, "20", 'R', "Retail")};
    EXPECT_EQ(scan({.food = true}), food) << "twelve button records, the free one and the thirteenth left out";
    EXPECT_EQ(scan({.bar = true}), bar) << "an unpriced drink drops out; equal names give one row";
    EXPECT_EQ(scan({.both = true}), food + bar);
    EXPECT_EQ(scan({.retail = true}), retail);
    EXPECT_EQ(scan({.all = true}), food + bar + retail);
}

TEST_F(CatalogueScanTest, AStopKeepsTheRowsGatheredSoFar)
{
    CountingProgress progress;
    progress.stopAfter = 1; // the second question comes after the first row
    const CatalogueRows found = ReadCatalogue({.all = true}, progress);
    EXPECT_TRUE(found.stopped);
    EXPECT_EQ(found.rows, QByteArrayList{row("Burger Deluxe", 18, "9.95", 'F', "Food")});
}

// The old removal: passes from the top, each removing the second of the first equal pair.
QByteArrayList removedFromTheTop(QByteArrayList rows)
{
    for (bool removed = true; removed;) {
        removed = false;
        for (qsizetype index = 0; index + 1 < rows.size(); ++index) {
            if (rows[index] == rows[index + 1]) {
                rows.removeAt(index + 1);
                removed = true;
                break;
            }
        }
    }
    return rows;
}

TEST(RemoveDuplicatesTest, GivesWhatPassesFromTheTopGave)
{
    QRandomGenerator random(7);
    for (int round = 0; round < 200; ++round) {
        QByteArrayList rows;
        const int count = int(random.bounded(30));
        for (int index = 0; index < count; ++index)
            rows.append("Item " + QByteArray::number(random.bounded(4)) + '|' + QByteArray::number(random.bounded(2)));
        std::sort(rows.begin(), rows.end(), [](const QByteArray &a, const QByteArray &b) { return a.left(6) < b.left(6); });
        QByteArrayList fast = rows;
        RemoveDuplicates(fast);
        ASSERT_EQ(fast, removedFromTheTop(rows)) << rows.join(' ').toStdString();
    }
}

} // namespace
} // namespace qlon
