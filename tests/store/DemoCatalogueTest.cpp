#include "demo/DemoCatalogue.h"
#include "core/RecordFile.h"
#include "demo/DemoSite.h"
#include "store/CatalogueFiles.h"
#include "store/ItemRec500.h"
#include "store/IvmRec1000.h"
#include "tests/support/TempSite.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace qlon {
namespace {

FreeSlotRule ruleOf(qsizetype sequenceIndex)
{
    if (sequenceIndex < ButtonFileCount)
        return FreeSlotRule::ButtonRebuild;
    return sequenceIndex < ButtonFileCount + 7 ? FreeSlotRule::DrinkRebuild : FreeSlotRule::RetailRebuild;
}

class DemoCatalogueTest : public ::testing::Test
{
protected:
    QString hostPathOf(const QByteArray &sitePath) const
    {
        return site.hostPath(QStringLiteral("Quillon/") + QString::fromLatin1(sitePath).replace(u'\\', u'/'));
    }

    QList<ItemRec500> itemsOf(const QByteArray &sitePath) const
    {
        RecordFile file(hostPathOf(sitePath), ItemRec500::size);
        QList<ItemRec500> items;
        for (int number = 1; number <= file.CountRecords(); ++number)
            items.append(ItemRec500(file.GetRecord(number)));
        return items;
    }

    // The titles of every live item the rebuild would gather, with the files that exist.
    QByteArrayList liveTitles(int *files = nullptr) const
    {
        const QList<CatalogueFile> sequence = GatheredCatalogueFiles();
        QByteArrayList titles;
        for (qsizetype index = 0; index < sequence.size(); ++index) {
            if (!QFileInfo::exists(hostPathOf(sequence[index].items)))
                continue;
            if (files)
                ++*files;
            const qint32 items = RecordFile(hostPathOf(sequence[index].items), ItemRec500::size).CountRecords();
            EXPECT_EQ(RecordFile(hostPathOf(sequence[index].recipes), IvmRec1000::size).CountRecords(), items)
                << "the recipes of " << sequence[index].items.toStdString();
            for (const ItemRec500 &item : itemsOf(sequence[index].items)) {
                if (!item.isFree(ruleOf(index)))
                    titles.append(item.trimmedField(ItemRec500::ButtonTitle));
            }
        }
        return titles;
    }

    test::TempSite site;
};

TEST_F(DemoCatalogueTest, TheDemoSiteHoldsARealisticCatalogueWithItsAwkwardCases)
{
    WriteDemoSite(site.driveFolder(), QDate(2024, 3, 18));
    const QByteArrayList titles = liveTitles();
    EXPECT_GT(titles.size(), 300);
    EXPECT_LT(titles.size(), 3000) << "Load List reads at most 3000 records";
    EXPECT_EQ(titles.count("House Salad"), 2) << "one name at two prices";
    EXPECT_TRUE(titles.contains("Joe's Wings"));
    EXPECT_TRUE(titles.contains("Chicken Parmigiana")) << "a title of the whole width";

    const QList<ItemRec500> buttons = itemsOf("ini\\Button1.dat") + itemsOf("ini\\Button3.dat");
    const auto titled = [&](const QList<ItemRec500> &items, const QByteArray &title) {
        return std::count_if(
            items.begin(), items.end(), [&](const ItemRec500 &item) { return item.trimmedField(ItemRec500::ButtonTitle) == title; });
    };
    EXPECT_GE(titled(buttons, "Available"), 1) << "free for the button rebuild";
    EXPECT_GE(titled(buttons, ""), 1);
    EXPECT_GE(titled(itemsOf("data\\BeerDraft.dat"), "-"), 1);
    EXPECT_GE(titled(itemsOf("data\\RetailItems.dat"), "Available"), 1) << "an item for the retail rebuild";
    EXPECT_GE(titled(itemsOf("ini\\Button0.dat"), "Avaliable"), 1);
}

TEST_F(DemoCatalogueTest, TheGeneratedCatalogueFillsTheFilesInTheRebuildsOrder)
{
    WriteGeneratedCatalogue(site.hostPath(QStringLiteral("Quillon")), 60, 1000);
    int files = 0;
    const QByteArrayList titles = liveTitles(&files);
    EXPECT_EQ(files, 60);
    EXPECT_EQ(titles.size(), 60 * 900) << "every tenth slot is free";
    EXPECT_EQ(QSet<QByteArray>(titles.begin(), titles.end()).size(), titles.size()) << "names are unique";

    const QByteArray first = RecordFile(hostPathOf("ini\\Button0.dat"), ItemRec500::size).GetRecord(1);
    WriteGeneratedCatalogue(site.hostPath(QStringLiteral("Quillon")), 60, 1000);
    EXPECT_EQ(RecordFile(hostPathOf("ini\\Button0.dat"), ItemRec500::size).GetRecord(1), first) << "the same bytes again";
}

} // namespace
} // namespace qlon
