#include "editors/QlonUpDept.h"
#include "itemssold/QlonItemsSold.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "tests/support/ScreenTest.h"
#include "ui/VbComboBox.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace qlon {
namespace {

QByteArrayList entries(const VbComboBox *picker)
{
    QByteArrayList texts;
    for (int index = 0; index < picker->entryCount(); ++index)
        texts.append(picker->entryText(index));
    return texts;
}

class DepartmentsEditorTest : public test::ScreenTest
{
protected:
    static void SetUpTestSuite()
    {
        registerMainScreenAlone();
        Screens().add(QStringLiteral("QlonUpDept"), [] { return new QlonUpDept; });
        Screens().add(QStringLiteral("QlonItemsSold"), [] { return new QlonItemsSold; });
    }

    void SetUp() override
    {
        ScreenTest::SetUp();
        writeConfiguration("C:\\Quillon\\", "\"01/01/2004\",\"01/02/2004\"\r\n");
        Site().SiteRoot = "C:\\Quillon\\"; // the Items Sold screen reads the departments below it
    }

    QlonUpDept *open(const QByteArray &mode)
    {
        // The event loop runs between two clicks of the user: a screen closed for good is gone.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Shared().ScreenMode = mode;
        return Screens().touch<QlonUpDept>(QStringLiteral("QlonUpDept"));
    }

    QByteArray departments() const { return site.read(QStringLiteral("Quillon/data/Departments.dat")); }
};

TEST_F(DepartmentsEditorTest, OpeningShowsTheFirstFourteenNamesAndCreatesAMissingFile)
{
    QlonUpDept *editor = open("UPCHARGE2");
    EXPECT_EQ(departments(),
        "\"All\"\r\n\"Food\"\r\n\"Beverage\"\r\n\"Catering\"\r\n\"Speicals\"\r\n\"Retail\"\r\n"
        "\"Gift Card\"\r\n\"All\"\r\n\"Liquor\"\r\n\"Beer\"\r\n\"Wine\"\r\n");
    EXPECT_EQ(editor->Text1[7]->text(), QStringLiteral("All"));
    EXPECT_EQ(editor->Check1[10]->text(), QStringLiteral("Wine"));
    EXPECT_TRUE(editor->Text1[11]->text().isEmpty());
    editor->close();

    QByteArray fifteen;
    for (int line = 1; line <= 15; ++line)
        fifteen += "\"Dept " + QByteArray::number(line) + "\"\r\n";
    site.write(QStringLiteral("Quillon/data/Departments.dat"), fifteen);
    editor = open("FMI");
    EXPECT_EQ(editor->Text1[13]->text(), QStringLiteral("Dept 14"));
    editor->SSCommand1->click();
    EXPECT_EQ(departments(), fifteen.left(fifteen.indexOf("\"Dept 15\"")));
    EXPECT_TRUE(Shared().ScreenMode.isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Screens().existing(QStringLiteral("QlonUpDept")), nullptr) << "Done closes the screen for good";
}

TEST_F(DepartmentsEditorTest, DoneReloadsTheMainScreensPickerWithTheNamedRowsAndThePick)
{
    site.write(QStringLiteral("Quillon/data/Departments.dat"), "\"Food\"\r\n\"Bar\"\r\n\"Soup, Salad\"\r\n\"Retail\"\r\n");
    QLONlistBuilder1 *main = Screens().touch<QLONlistBuilder1>(QStringLiteral("QLONlistBuilder1"));
    QlonUpDept *editor = open("UPCHARGE2");
    editor->Check1[1]->click();
    editor->Check1[2]->click();
    EXPECT_FALSE(editor->Check1[1]->isChecked());
    EXPECT_EQ(editor->Label1->text(), QStringLiteral("Soup, Salad"));
    editor->Text1[1]->clear();
    editor->Text1[5]->setText(QStringLiteral("Patio"));
    editor->SSCommand1->click();
    EXPECT_EQ(
        departments(), "\"Food\"\r\n\"\"\r\n\"Soup, Salad\"\r\n\"Retail\"\r\n\"\"\r\n\"Patio\"\r\n" + QByteArray("\"\"\r\n").repeated(8));
    EXPECT_EQ(entries(main->Combo1), (QByteArrayList{"Food", "Soup, Salad", "Retail", "Patio"}));
    EXPECT_EQ(main->Combo1->text(), "Soup, Salad");

    main->Combo1->setText("Retail");
    open("UPCHARGE2")->SSCommand1->click();
    EXPECT_EQ(main->Combo1->text(), "Retail") << "with no box on, the picker keeps its text";
}

TEST_F(DepartmentsEditorTest, DoneForTheItemsSoldScreenGivesAllFourteenRowsAndKeepsTheMode)
{
    site.write(QStringLiteral("Quillon/data/Departments.dat"), "\"All\"\r\n\"Food\"\r\n\"All\"\r\n");
    open("")->SSCommand1->click();
    const auto *itemsSold = qobject_cast<QlonItemsSold *>(Screens().existing(QStringLiteral("QlonItemsSold")));
    ASSERT_NE(itemsSold, nullptr) << "created to take the list";
    EXPECT_EQ(entries(itemsSold->Combo2), (QByteArrayList{"All", "Food", "All"} + QByteArrayList(11, QByteArray())));

    auto label3 = std::make_unique<QLabel>();
    QlonUpDept *editor = open("UPCHARGE");
    editor->setUpchargeLabel(label3.get());
    editor->Check1[1]->click();
    editor->SSCommand1->click();
    EXPECT_EQ(label3->text(), QStringLiteral("Food"));
    EXPECT_TRUE(Shared().ScreenMode.isEmpty());
}

} // namespace
} // namespace qlon
