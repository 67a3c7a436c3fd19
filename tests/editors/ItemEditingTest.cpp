#include "editors/logic/ItemEditing.h"
#include "core/RecordFile.h"
#include "store/IvmRec1000.h"
#include "tests/support/CatalogueItem.h"
#include "tests/support/Rows.h"
#include "tests/support/TempSite.h"

#include <QFile>

#include <gtest/gtest.h>

namespace qlon {
namespace {

ItemRec500 storedItem()
{
    ItemRec500 record = test::CatalogueItem({"Pizza Pie", "Food", "12.00"});
    record.setField(ItemRec500::SlotCode, "\x01Z");
    record.setField(ItemRec500::AltTitle, "station's own");
    record.setField(ItemRec500::SpareCode, "\xe9!");
    record.setField(ItemRec500::ButtonNumber, "Cat 4");
    record.setField(ItemRec500::VisibleFlag, "T");
    record.setField(ItemRec500::KitPrinterFlag, "1");
    record.setField(ItemRec500::BarPrinterFlag, "N");
    record.setField(ItemRec500::PizzaFlag, "1");
    record.setField(ItemRec500::KitchenRoute, "6");
    record.setField(ItemRec500::RecordTail, "tail the stations never read");
    return record;
}

TEST(ItemEditingTest, TheViewFillsBlanksAndTheStoreKeepsWhatTheEditorDoesntShow)
{
    const ItemRec500 stored = storedItem();
    ItemView view = ViewOfItem(stored);
    EXPECT_EQ(view.buttonTitle, "Pizza Pie         ") << "texts keep their blanks";
    EXPECT_EQ(view.happyHourPrice, view.price) << "a blank happy-hour price shows the price";
    EXPECT_EQ(view.buttonNumber, "") << "a button number beginning with Cat shows empty";
    EXPECT_TRUE(view.visible && view.kitPrinter && view.pizza);
    EXPECT_FALSE(view.taxable || view.barPrinter);
    EXPECT_EQ(view.category, "Main Course");
    EXPECT_EQ(view.modifierList, "Mod1");
    EXPECT_EQ(view.kitchenPrinter, 5) << "route 6 is Kit 5";

    ItemRec500 saved = stored;
    view.buttonTitle = "A title of nineteen";
    view.kitPrinter = false;
    view.barPrinter = true;
    view.kitchenPrinter = 0;
    StoreView(saved, view);
    EXPECT_EQ(saved.field(ItemRec500::ButtonTitle), "A title of ninetee") << "cut to its field";
    EXPECT_EQ(saved.trimmedField(ItemRec500::ButtonNumber), "");
    EXPECT_EQ(saved.trimmedField(ItemRec500::HappyHourPrice), "12.00");
    EXPECT_EQ(saved.field(ItemRec500::KitchenRoute), "0");
    EXPECT_EQ(saved.field(ItemRec500::KitPrinterFlag), "N");
    EXPECT_EQ(saved.field(ItemRec500::BarPrinterFlag), "1");
    EXPECT_EQ(saved.field(ItemRec500::TaxableFlag), "N");
    EXPECT_EQ(saved.field(ItemRec500::PizzaFlag), "1    ");
    EXPECT_EQ(saved.trimmedField(ItemRec500::RecordTail), "");
    for (ItemRec500::Field kept : {ItemRec500::SlotCode, ItemRec500::AltTitle, ItemRec500::SpareCode})
        EXPECT_EQ(saved.field(kept), stored.field(kept));

    view.kitchenPrinter = 8;
    StoreView(saved, view);
    EXPECT_EQ(saved.field(ItemRec500::KitchenRoute), "9");
    EXPECT_EQ(ViewOfItem(saved).kitchenPrinter, 8);
}

TEST(ItemEditingTest, AFreedSlotKeepsTheFieldsTheDeleterDoesntClear)
{
    const ItemRec500 freed = FreedSlot(storedItem());
    EXPECT_EQ(freed.field(ItemRec500::ButtonTitle), "Avaliable         ");
    EXPECT_TRUE(freed.isFree(FreeSlotRule::RetailRebuild));
    EXPECT_EQ(freed.trimmedField(ItemRec500::Price), "");
    EXPECT_EQ(freed.field(ItemRec500::VisibleFlag) + freed.field(ItemRec500::KitPrinterFlag), "NN");
    EXPECT_EQ(freed.field(ItemRec500::PizzaFlag), "1    ");
    EXPECT_EQ(freed.field(ItemRec500::AltTitle), storedItem().field(ItemRec500::AltTitle));
}

TEST(ItemEditingTest, FileOperationsStayWithinTheRecordsAndAppendAfterTheLast)
{
    test::TempSite site;
    const QByteArray path = "C:\\Quillon\\ini\\Button0.dat";
    EXPECT_EQ(ItemFile::Count(path), std::nullopt);
    EXPECT_EQ(ItemFile::Append(path, storedItem()), std::nullopt) << "a missing file isn't created";
    EXPECT_FALSE(QFile::exists(site.hostPath(QStringLiteral("Quillon/ini/Button0.dat"))));

    QByteArray twelve;
    for (int number = 1; number <= 12; ++number)
        twelve += test::CatalogueItem({"Item " + QByteArray::number(number), "Food", "1.00"}).bytes();
    site.write(QStringLiteral("Quillon/ini/Button0.dat"), twelve);
    EXPECT_EQ(ItemFile::Read(path, 13), std::nullopt);
    EXPECT_FALSE(ItemFile::Write(path, 0, storedItem()));
    ASSERT_TRUE(ItemFile::Write(path, 12, storedItem())) << "the last record is within the file";
    EXPECT_EQ(ItemFile::Read(path, 12)->bytes(), storedItem().bytes());
    ASSERT_TRUE(ItemFile::Write(path, 3, FreedSlot(*ItemFile::Read(path, 3))));
    EXPECT_EQ(ItemFile::Count(path), 12);
    EXPECT_EQ(ItemFile::Append(path, storedItem()), 13) << "after the last record, not in the free slot 3";
    EXPECT_EQ(site.read(QStringLiteral("Quillon/ini/Button0.dat")).left(500 * 2), twelve.left(500 * 2));

    EXPECT_EQ(ItemFile::ClearRecipe(path, 3), std::nullopt) << "no recipe file, no recipe";
    site.write(QStringLiteral("Quillon/ini/Button0.IVM"), QByteArray(4000, 'x'));
    EXPECT_EQ(ItemFile::ClearRecipe(path, 3), 4);
    const QByteArray recipes = site.read(QStringLiteral("Quillon/ini/Button0.IVM"));
    EXPECT_EQ(recipes.mid(2000, 1000), IvmRec1000::Cleared().bytes());
    EXPECT_EQ(recipes.left(2000) + recipes.mid(3000), QByteArray(3000, 'x'));

    RecordFile holder(site.hostPath(QStringLiteral("Quillon/ini/Button0.dat")), ItemRec500::size);
    holder.LockAll();
    EXPECT_EQ(test::RuntimeErrorNumber([&] { ItemFile::Write(path, 1, storedItem()); }), RuntimeError::PermissionDenied)
        << "a file a station holds";
}

} // namespace
} // namespace qlon
