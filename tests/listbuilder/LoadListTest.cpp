#include "listbuilder/logic/LoadList.h"
#include "core/RecordFile.h"
#include "store/ItemRec500.h"
#include "tests/support/CatalogueItem.h"
#include "tests/support/TempSite.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

using test::CatalogueItem;

class LoadListTest : public ::testing::Test
{
protected:
    QString writeCatalogue(const QList<ItemRec500> &items)
    {
        QByteArray bytes;
        for (const ItemRec500 &record : items)
            bytes += record.bytes();
        return site.write(QStringLiteral("TempInv.dat"), bytes);
    }

    QByteArrayList rows(const QList<ItemRec500> &items, const CategoryChoice &choice)
    {
        RecordFile file(writeCatalogue(items), ItemRec500::size);
        QByteArrayList rows;
        for (const ListedItem &listed : ListItems(file, choice)) {
            EXPECT_EQ(listed.tag, listed.text.split('|').first());
            rows.append(listed.text);
        }
        return rows;
    }

    test::TempSite site;
};

TEST_F(LoadListTest, TheFirstRecordOfANameWinsAndNamesAreChanged)
{
    CategoryChoice all;
    all.all = true;
    const QByteArrayList listed = rows({CatalogueItem({"House Salad", "Food", "6.95"}), CatalogueItem({"  ", "Food"}),
                                           CatalogueItem({"Joe's Wings", ""}), CatalogueItem({"House Salad", "Catering", "7.95"}),
                                           CatalogueItem({" Pie ", "Dessert", ""}), CatalogueItem({"JoeMs Wings", "Food", "1.00"})},
        all);
    EXPECT_EQ(listed, (QByteArrayList{"House Salad|Food|6.95|0|0", "JoeMs Wings|Food|5.00|0|0", "Pie|Dessert|0|0|0"}));
}

TEST_F(LoadListTest, EachOptionSelectsByTheItemsDepartment)
{
    const QList<ItemRec500> items = {CatalogueItem({"Burger", "Food"}), CatalogueItem({"Cola", "Beverage"}),
        CatalogueItem({"Lager", "Beer"}), CatalogueItem({"Cap", "Retail"}), CatalogueItem({"Platter", "Catering"}),
        CatalogueItem({"Plain", ""}), CatalogueItem({"Odd", "Seclect Below"})};
    struct Case
    {
        const char *option;
        bool CategoryChoice::*flag;
        const char *caption;
        QByteArrayList names;
    };
    const Case cases[] = {
        {"All", &CategoryChoice::all, "", {"Burger", "Cola", "Lager", "Cap", "Platter", "Plain", "Odd"}},
        {"Retail", &CategoryChoice::retail, "", {"Cap"}},
        {"Both", &CategoryChoice::both, "", {"Burger", "Cola", "Lager", "Platter", "Plain", "Odd"}},
        {"Food", &CategoryChoice::food, "", {"Burger", "Plain"}},
        {"Bar", &CategoryChoice::bar, "", {"Cola"}},
        {"Beer below", &CategoryChoice::department, " Beer ", {"Lager"}},
        {"Retail below", &CategoryChoice::department, "Retail", {"Cap"}},
        {"nothing picked below", &CategoryChoice::department, "Seclect Below", {"Odd"}},
        {"a department in other case", &CategoryChoice::department, "beer", {}},
        {"no option", nullptr, "", {}},
    };
    for (const Case &test : cases) {
        CategoryChoice choice;
        if (test.flag)
            choice.*test.flag = true;
        choice.departmentCaption = test.caption;
        QByteArrayList names;
        for (const QByteArray &row : rows(items, choice))
            names.append(row.split('|').first());
        EXPECT_EQ(names, test.names) << test.option;
    }
}

TEST_F(LoadListTest, MoreThanThreeThousandRecordsEndWithASubscriptError)
{
    CategoryChoice all;
    all.all = true;
    QList<ItemRec500> items;
    for (int number = 1; number <= 3000; ++number)
        items.append(CatalogueItem({"Item " + QByteArray::number(number), "Food"}));
    items.append(CatalogueItem({"Item 17", "Food"}));
    items.append(CatalogueItem({"", "Food"}));
    EXPECT_EQ(rows(items, all).size(), 3000) << "repeats and empty names past 3000 are passed over as usual";

    items.append(CatalogueItem({"One Too Many", "Food"}));
    RecordFile file(writeCatalogue(items), ItemRec500::size);
    try {
        ListItems(file, all);
        FAIL() << "a new name past 3000 records was listed";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), RuntimeError::SubscriptOutOfRange);
    }
}

} // namespace
} // namespace qlon
