#include "core/Ansi.h"
#include "editors/FItemButtonFood.h"
#include "editors/ItemCompanions.h"
#include "store/IvmRec1000.h"
#include "store/StockRec1000.h"
#include "tests/support/CatalogueItem.h"
#include "tests/support/ScreenTest.h"
#include "ui/ScreenTimer.h"
#include "ui/VbComboBox.h"
#include "ui/VbTextBox.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

namespace qlon {
namespace {

// The host's button view, noting what the editor asks of it.
class FakeButtonView : public QWidget, public ButtonViewCompanion
{
public:
    QByteArray currentPath() const override { return path; }
    void Fill_data() override { calls.append(QStringLiteral("Fill_data")); }
    void Set_data() override { calls.append(QStringLiteral("Set_data")); }
    void SSCommand1_Click() override { calls.append(QStringLiteral("SSCommand1_Click")); }
    void showModifierList(const QByteArray &list) override { calls.append(QStringLiteral("list ") + QString::fromLatin1(list)); }

    QByteArray path = "C:\\Quillon\\ini\\Button0.dat";
    QStringList calls;
};

class ItemEditorTest : public test::ScreenTest
{
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        writeConfiguration("C:\\Quillon\\", {});
        ReadConfiguration();
        QByteArray items;
        for (int number = 1; number <= 12; ++number)
            items += test::CatalogueItem({"Item " + QByteArray::number(number), "Food", "4.00"}).bytes();
        ItemRec500 pizza = test::CatalogueItem({"Pie", "Food", "11.00"});
        pizza.setField(ItemRec500::AltTitle, "kept \xe9");
        pizza.setField(ItemRec500::ButtonNumber, "Cat2");
        pizza.setField(ItemRec500::PizzaFlag, "1");
        pizza.setField(ItemRec500::PizzaSize, "0");
        pizza.setField(ItemRec500::KitPrinterFlag, "1");
        pizza.setField(ItemRec500::KitchenRoute, "5");
        items.replace(500, 500, pizza.bytes());
        site.write(QStringLiteral("Quillon/ini/Button0.dat"), items);
        site.write(QStringLiteral("Quillon/ini/Button0.IVM"), QByteArray(12 * 1000, 'r'));
        Screens().add(QStringLiteral("FItemButtonFood"), [] { return new FItemButtonFood; });
        Screens().add(QStringLiteral("ButtonView"), [] { return new FakeButtonView; });
        view = dynamic_cast<FakeButtonView *>(Screens().touch(QStringLiteral("ButtonView")));
        view->show();
        editor = Screens().touch<FItemButtonFood>(QStringLiteral("FItemButtonFood"));
        editor->setItem(view->path, 2);
        editor->LoadItem();
    }

    ItemRec500 stored(int number) const
    {
        return ItemRec500(site.read(QStringLiteral("Quillon/ini/Button0.dat")).mid((number - 1) * 500, 500));
    }

    FakeButtonView *view = nullptr;
    FItemButtonFood *editor = nullptr;
};

TEST_F(ItemEditorTest, ARecordShowsByTheEditorsRulesAndSavesOnlyWhatTheEditorOwns)
{
    EXPECT_EQ(editor->txtButtonTitle->text(), QStringLiteral("Pie               "));
    EXPECT_EQ(editor->cmdSample->text(), QStringLiteral("Pie"));
    EXPECT_EQ(editor->txtHappyHour->text(), editor->txtPrice->text());
    EXPECT_EQ(editor->txtButtonNumber->text(), QString());
    EXPECT_EQ(editor->lblRecord->text(), QStringLiteral("2"));
    EXPECT_EQ(editor->lblFoodCost->text() + editor->lblFoodPercent->text(), QStringLiteral("$0.000%"));
    EXPECT_EQ(site.read(QStringLiteral("Quillon/data/Departments.dat")),
        "\"Food\"\r\n\"Beverage\"\r\n\"Catering\"\r\n\"Speicals\"\r\n\"Retail\"\r\n\"Gift Card\"\r\n\"All\"\r\n")
        << "the editor's own defaults";
    EXPECT_EQ(editor->cboDepartment->entryCount(), 7);
    EXPECT_TRUE(editor->chkPizza->isChecked());
    EXPECT_FALSE(editor->cboModifier->isEnabled());
    EXPECT_TRUE(editor->fraKitchen->isEnabled());
    EXPECT_TRUE(editor->optKitchen[2]->isChecked()) << "route 5 is Kit 4";

    editor->cmdPizzaYes->click();
    EXPECT_EQ(editor->txtPizzaSize->text(), QStringLiteral("16")) << "a pizza of size 0 becomes 16";
    EXPECT_EQ(editor->cboModifier->text(), "Pizza");
    editor->chkKitPrinter->click();
    EXPECT_FALSE(editor->fraKitchen->isEnabled());
    emit editor->txtPrice->LostFocus();
    editor->txtPrice->setText(QStringLiteral("12.50"));
    emit editor->txtPrice->LostFocus();
    EXPECT_EQ(editor->txtHappyHour->text(), QStringLiteral("12.50"));

    const ItemRec500 before = stored(2);
    editor->cmdSaveUpdate->click();
    const ItemRec500 after = stored(2);
    EXPECT_EQ(after.field(ItemRec500::KitchenRoute), "0");
    EXPECT_EQ(after.trimmedField(ItemRec500::ButtonNumber), "") << "Cat goes out blank";
    EXPECT_EQ(after.trimmedField(ItemRec500::Price), "12.50");
    EXPECT_EQ(after.trimmedField(ItemRec500::ModifierList), "Pizza");
    for (ItemRec500::Field kept : {ItemRec500::SlotCode, ItemRec500::AltTitle, ItemRec500::SpareCode})
        EXPECT_EQ(after.field(kept), before.field(kept));
    EXPECT_EQ(stored(1).bytes(), test::CatalogueItem({"Item 1", "Food", "4.00"}).bytes());
    EXPECT_EQ(view->calls, QStringList({QStringLiteral("Set_data"), QStringLiteral("Set_data")}));
}

TEST_F(ItemEditorTest, DeleteFreesTheSlotAndANewItemGoesAfterTheLast)
{
    IvmRec1000 recipe = IvmRec1000::Cleared();
    recipe.setRow(1, {"Beef", "2", "Ounce"});
    site.write(QStringLiteral("Quillon/ini/Button0.IVM"),
        site.read(QStringLiteral("Quillon/ini/Button0.IVM")).replace(2000, 1000, recipe.bytes()));
    StockRec1000 beef;
    beef.setField(StockRec1000::StockName, "Beef");
    beef.setField(StockRec1000::UnitCost, "0.25");
    beef.setField(StockRec1000::CostUnit, "Ounce");
    site.write(QStringLiteral("Quillon/data/LiqInventory.dat"), beef.bytes());
    editor->setItem(view->path, 3);
    editor->LoadItem();
    EXPECT_EQ(editor->lblFoodCost->text() + editor->lblFoodPercent->text(), QStringLiteral("$0.5012%"));
    editor->cmdDelete->click();
    EXPECT_EQ(editor->lblFoodCost->text() + editor->lblFoodPercent->text(), QStringLiteral("$0.000%")) << "the freed record's cost";
    EXPECT_EQ(stored(3).trimmedField(ItemRec500::ButtonTitle), "Avaliable");
    EXPECT_EQ(site.read(QStringLiteral("Quillon/ini/Button0.IVM")).mid(2000, 1000), IvmRec1000::Cleared().bytes());
    EXPECT_FALSE(editor->pnlDeleting->isVisible());
    EXPECT_EQ(view->calls, QStringList({QStringLiteral("Fill_data"), QStringLiteral("SSCommand1_Click")}));

    editor->cmdAddNew->click();
    EXPECT_TRUE(editor->cmdSaveNew->isEnabled());
    EXPECT_FALSE(editor->cmdDelete->isEnabled());
    editor->txtButtonTitle->setText(QStringLiteral("Crème Brûlée"));
    emit editor->txtButtonTitle->LostFocus();
    EXPECT_EQ(editor->txtReceipt->text(), QStringLiteral("Crème Brûlée"));
    EXPECT_TRUE(editor->chkKitPrinter->isChecked()) << "the title's defaults, not Add New's";
    editor->cmdSaveNew->click();
    EXPECT_EQ(site.read(QStringLiteral("Quillon/ini/Button0.dat")).size(), 13 * 500);
    EXPECT_EQ(stored(13).trimmedField(ItemRec500::ButtonTitle),
        "Cr\xe8me Br\xfbl\xe9"
        "e");
    EXPECT_FALSE(editor->cmdSaveNew->isEnabled());
    EXPECT_TRUE(editor->cmdAddNew->isEnabled());

    editor->setItem(view->path, 14);
    editor->cmdSaveUpdate->click();
    EXPECT_EQ(site.read(QStringLiteral("Quillon/ini/Button0.dat")).size(), 13 * 500) << "past the end nothing is written";
    EXPECT_EQ(editor->prgDeleting->value(), 12) << "Delete left the bar at the recipe file's count";
    editor->prgDeleting->setValue(1);
    editor->tmrDeleting->start();
    AdvanceClock(360 * 48);
    EXPECT_EQ(editor->prgDeleting->value(), 49) << "one step each 360 ms";
    AdvanceClock(360);
    EXPECT_EQ(editor->prgDeleting->value(), 1) << "at 50 the bar starts over";
    editor->tmrDeleting->stop();

    editor->cmdView->click();
    EXPECT_EQ(view->calls.last(), QStringLiteral("list ") + FromAnsi(Site().DataRoot) + QStringLiteral("ini\\Mod1.dat"));
}

} // namespace
} // namespace qlon
