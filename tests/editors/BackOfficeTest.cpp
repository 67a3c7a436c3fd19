#include "editors/BackOffice.h"
#include "core/Ansi.h"
#include "editors/ButtonView.h"
#include "editors/FItemButtonFood.h"
#include "editors/ListEditor.h"
#include "editors/PhoneList.h"
#include "editors/PrinterListView.h"
#include "editors/PrinterQueueView.h"
#include "editors/PrinterStatus.h"
#include "editors/RecipeView.h"
#include "editors/TCEmployee.h"
#include "itemssold/QlonItemsSold.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "platform/spooler/PrintSpooler.h"
#include "store/EmployeeRec1000.h"
#include "store/IvmRec1000.h"
#include "tests/support/CatalogueItem.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ShownMessages.h"
#include "ui/Dialogs.h"
#include "ui/Program.h"
#include "ui/VbTextBox.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace qlon {
namespace {

class TwoPrinters : public PrintSpooler
{
public:
    QList<SystemPrinter> printers() override
    {
        return {{QStringLiteral("Kitchen Star"), QStringLiteral("socket://10.0.0.31:9100")},
            {QStringLiteral("Bar HP"), QStringLiteral("ipp://10.0.0.40/ipp")}};
    }
    QList<PrintJob> jobs(const QString &deviceName, int limit) override
    {
        QList<PrintJob> waiting;
        for (int id = 1; id <= (deviceName == QLatin1String("Bar HP") ? 200 : 2) && id <= limit; ++id)
            waiting.append(
                {id, QStringLiteral("Ticket %1").arg(id), QStringLiteral("pos"), 4, QDateTime(QDate(2026, 11, 23), QTime(19, 5))});
        return waiting;
    }
};

class BackOfficeTest : public test::ScreenTest
{
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        SetSpooler(&spooler);
        writeConfiguration("C:\\Quillon\\", {});
        ReadConfiguration();
        QByteArray items;
        for (const char *title : {"Burger", "Fries", "Pie"})
            items += test::CatalogueItem({title, "Food", "4.00"}).bytes();
        site.write(QStringLiteral("Quillon/ini/Button0.dat"), items);
        IvmRec1000 pieRecipe(QByteArray(1000, 'r'));
        pieRecipe.setRow(1, {"Flour", "0.25", "lb"});
        site.write(QStringLiteral("Quillon/ini/Button0.IVM"), QByteArray(2000, ' ') + pieRecipe.bytes());
        registerScreens();
        host = Screens().touch<BackOffice>(QStringLiteral("BackOffice"));
        host->show();
    }

    void TearDown() override
    {
        SetSpooler(nullptr);
        ScreenTest::TearDown();
    }

    // The screens the host opens, and those it supplies itself.
    static void registerScreens()
    {
        registerMainScreenAlone();
        Screens().add(QStringLiteral("QlonItemsSold"), [] { return new QlonItemsSold; });
        Screens().add(QStringLiteral("TCEmployee"), [] { return new TCEmployee; });
        Screens().add(QStringLiteral("PrinterStatus"), [] { return new PrinterStatus; });
        Screens().add(QStringLiteral("FItemButtonFood"), [] { return new FItemButtonFood; });
        RegisterBackOfficeScreens();
    }

    QByteArray buttonFile() const { return site.read(QStringLiteral("Quillon/ini/Button0.dat")); }

    ButtonView *openButtonView() const
    {
        host->cmdItemButtons->click();
        auto *view = qobject_cast<ButtonView *>(Screens().existing(QStringLiteral("ButtonView")));
        EXPECT_NE(view, nullptr);
        return view;
    }

    TwoPrinters spooler;
    BackOffice *host = nullptr;
};

TEST_F(BackOfficeTest, TheHostOpensEachScreen)
{
    EXPECT_TRUE(host->cmdListBuilder->isVisibleTo(host)) << "started on the host, the list builder is hidden";
    const std::pair<QPushButton *, const char *> opens[] = {{host->cmdListBuilder, "QLONlistBuilder1"},
        {host->cmdItemsSold, "QlonItemsSold"}, {host->cmdItemButtons, "ButtonView"}, {host->cmdEmployees, "TCEmployee"},
        {host->cmdPrinters, "PrinterStatus"}};
    for (const auto &[command, screen] : opens) {
        command->click();
        const QWidget *opened = Screens().existing(QString::fromLatin1(screen));
        ASSERT_NE(opened, nullptr) << screen;
        EXPECT_TRUE(opened->isVisible()) << screen;
    }
}

// Opened from the back office, a screen's Done closes that screen, not the program.
TEST_F(BackOfficeTest, DoneClosesOnlyItsOwnScreen)
{
    SetProgramEndHook([](int, const RuntimeError *) {
        std::fputs("Done ended the program\n", stderr);
        std::_Exit(3);
    });
    host->cmdListBuilder->click();
    host->cmdPrinters->click();
    auto *main = qobject_cast<QLONlistBuilder1 *>(Screens().existing(QStringLiteral("QLONlistBuilder1")));
    auto *printers = qobject_cast<PrinterStatus *>(Screens().existing(QStringLiteral("PrinterStatus")));
    ASSERT_TRUE(main && printers);
    printers->cmdDone->click();
    main->SSCommand1->click();
    EXPECT_FALSE(printers->isVisible());
    EXPECT_FALSE(main->isVisible());
    EXPECT_TRUE(host->isVisible());
    SetProgramEndHook({});
}

TEST_F(BackOfficeTest, AnItemPickedInTheButtonViewIsEditedSavedAndDeletedThere)
{
    ButtonView *view = openButtonView();
    EXPECT_EQ(view->Label1->text(), FromAnsi(Site().DataRoot) + QStringLiteral("ini\\Button0.dat"));
    EXPECT_EQ(view->cboFile->currentText(), QStringLiteral("main menu set, page 0 — ") + view->Label1->text());
    ASSERT_EQ(view->lstRecords->count(), 3);
    EXPECT_EQ(view->lstRecords->item(1)->text(), QStringLiteral("   2  Fries"));

    view->lstRecords->setCurrentRow(1);
    view->cmdEdit->click();
    auto *editor = qobject_cast<FItemButtonFood *>(Screens().existing(QStringLiteral("FItemButtonFood")));
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(editor->lblRecord->text(), QStringLiteral("2"));
    editor->txtButtonTitle->setText(QStringLiteral("Curly Fries"));
    const QByteArray before = buttonFile();
    editor->cmdSaveUpdate->click();
    EXPECT_EQ(view->lstRecords->item(1)->text(), QStringLiteral("   2  Curly Fries")) << "the view shows the saved title";
    EXPECT_EQ(buttonFile().left(500), before.left(500));
    EXPECT_EQ(buttonFile().mid(1000), before.mid(1000));

    editor->cmdDelete->click();
    EXPECT_EQ(view->lstRecords->item(1)->text(), QStringLiteral("   2  Avaliable")) << "the view is listed again";
    EXPECT_EQ(view->lstRecords->currentRow(), 1) << "and keeps its place";

    // A modifier list shown from the editor hides the commands; the file stays picked, and picking
    // it again brings it back.
    site.write(QStringLiteral("Quillon/ini/Mod1.dat"), test::CatalogueItem({"Rare", "Food", "0.00"}).bytes());
    const QString picked = view->cboFile->currentText();
    view->showModifierList(Site().DataRoot + "ini\\Mod1.dat");
    EXPECT_FALSE(view->picCommands->isVisibleTo(view));
    EXPECT_EQ(view->lstRecords->item(0)->text(), QStringLiteral("   1  Rare"));
    EXPECT_EQ(view->cboFile->currentText(), picked);
    emit view->cboFile->activated(view->cboFile->currentIndex());
    EXPECT_TRUE(view->picCommands->isVisibleTo(view));
    EXPECT_EQ(view->lstRecords->item(1)->text(), QStringLiteral("   2  Avaliable"));
}

TEST_F(BackOfficeTest, TheRecipeViewShowsTheTwentyRowsAndWritesBackOnlyWhatChanged)
{
    ButtonView *view = openButtonView();
    view->lstRecords->setCurrentRow(2);
    view->cmdRecipe->click();
    auto *recipe = qobject_cast<RecipeView *>(Screens().existing(QStringLiteral("RecipeView")));
    ASSERT_NE(recipe, nullptr);
    ASSERT_EQ(recipe->grdRecipe->rowCount(), IvmRec1000::rowCount);
    EXPECT_EQ(recipe->grdRecipe->item(0, 0)->text(), QStringLiteral("Flour"));
    EXPECT_EQ(recipe->grdRecipe->item(0, 2)->text(), QStringLiteral("lb"));

    const QByteArray before = site.read(QStringLiteral("Quillon/ini/Button0.IVM"));
    recipe->cmdSave->click();
    EXPECT_EQ(site.read(QStringLiteral("Quillon/ini/Button0.IVM")), before) << "nothing changed, nothing written";

    recipe->grdRecipe->item(3, 1)->setText(QStringLiteral("2"));
    recipe->cmdSave->click();
    const QByteArray after = site.read(QStringLiteral("Quillon/ini/Button0.IVM"));
    const qsizetype changedRow = 2000 + 3 * 50;
    EXPECT_EQ(after.left(changedRow), before.left(changedRow));
    EXPECT_EQ(after.mid(changedRow + 50), before.mid(changedRow + 50)) << "the other rows keep their bytes";
    EXPECT_EQ(IvmRec1000(after.mid(2000)).row(4).IngredientAmount, "2");

    // Closing with an edit asks first: Cancel stays, Yes saves.
    recipe->grdRecipe->item(3, 1)->setText(QStringLiteral("5"));
    Dialogs::queueAnswer(MessageAnswer::Cancel);
    recipe->cmdClose->click();
    EXPECT_TRUE(recipe->isVisible());
    Dialogs::queueAnswer(MessageAnswer::Yes);
    recipe->cmdClose->click();
    EXPECT_FALSE(recipe->isVisible());
    EXPECT_EQ(IvmRec1000(site.read(QStringLiteral("Quillon/ini/Button0.IVM")).mid(2000)).row(4).IngredientAmount, "5");
    EXPECT_EQ(test::ShownMessages().count(QStringLiteral("| Save changes?")), 2);

    view->lstRecords->setCurrentRow(0);
    view->cmdRecipe->click();
    EXPECT_TRUE(recipe->grdRecipe->isEnabled()) << "record 1 has a recipe of blank rows";
    QFile::remove(site.hostPath(QStringLiteral("Quillon/ini/Button0.IVM")));
    view->cmdRecipe->click();
    EXPECT_FALSE(recipe->grdRecipe->isEnabled()) << "without a recipe file there is nothing to edit";
    recipe->cmdSave->click();
    EXPECT_FALSE(QFile::exists(site.hostPath(QStringLiteral("Quillon/ini/Button0.IVM"))));
}

TEST_F(BackOfficeTest, PrinterCompanionsShowTheSpoolersQueuesAndTheOthersAreDisabledWithATip)
{
    host->cmdPrinters->click();
    auto *status = qobject_cast<PrinterStatus *>(Screens().existing(QStringLiteral("PrinterStatus")));
    ASSERT_NE(status, nullptr);
    for (QPushButton *foreign : {status->cmdIPConn, status->cmdBios, status->cmdTestPrinter}) {
        EXPECT_FALSE(foreign->isEnabled()) << foreign->objectName().toStdString();
        EXPECT_TRUE(foreign->toolTip().contains(QStringLiteral("back office")));
    }
    EXPECT_TRUE(status->cmdAllPrinters->isEnabled());

    status->cmdAllPrinters->click();
    auto *all = dynamic_cast<PrinterListView *>(Screens().existing(PrinterListCompanion));
    ASSERT_NE(all, nullptr);
    ASSERT_EQ(all->grdPrinters->rowCount(), 2);
    EXPECT_EQ(all->grdPrinters->item(1, 2)->text(), QStringLiteral("127")) << "a queue is counted up to 127 jobs";
    EXPECT_FALSE(all->lblService->isVisibleTo(all));
    struct NoService : TwoPrinters
    {
        QList<SystemPrinter> printers() override { return {}; }
        bool answered() const override { return false; }
    } noService;
    SetSpooler(&noService);
    all->Command1->click();
    EXPECT_EQ(all->grdPrinters->rowCount(), 0);
    EXPECT_TRUE(all->lblService->isVisibleTo(all)) << "an empty list says why";
    SetSpooler(&spooler);

    auto *details = dynamic_cast<PrinterQueueView *>(Screens().touch(PrinterDetailsCompanion));
    details->setPrinter(QStringLiteral("Kitchen Star"));
    details->Command1_Click();
    EXPECT_EQ(details->Label1->text(), QStringLiteral("Kitchen Star on socket://10.0.0.31:9100: 2 waiting"));
    ASSERT_EQ(details->lstJobs->topLevelItemCount(), 2);
    EXPECT_EQ(details->lstJobs->topLevelItem(1)->text(1), QStringLiteral("Ticket 2"));
    EXPECT_EQ(Shared().PendingCount, 2);
}

TEST_F(BackOfficeTest, EmployeeCompanionsEditAListFileAndListThePhones)
{
    site.write(QStringLiteral("Quillon/data/Jobs1.dat"), "\"Server\"\r\n\"Cook\"\r\n");
    EmployeeRec1000 zoe, al, gone;
    zoe.setField(EmployeeRec1000::EmployeeName, "Zoe");
    zoe.setField(EmployeeRec1000::Phone, "555-0101");
    al.setField(EmployeeRec1000::EmployeeName, "al");
    al.setField(EmployeeRec1000::Phone, "555-0199");
    gone.setField(EmployeeRec1000::EmployeeName, "Bob");
    gone.setField(EmployeeRec1000::InactiveFlag, "-1");
    site.write(QStringLiteral("Quillon/data/Zemployee.dat"), zoe.bytes() + EmployeeRec1000().bytes() + gone.bytes() + al.bytes());
    host->cmdEmployees->click();
    auto *employees = qobject_cast<TCEmployee *>(Screens().existing(QStringLiteral("TCEmployee")));
    ASSERT_NE(employees, nullptr);
    employees->cmbJob[0]->setCurrentText(QStringLiteral("Cook"));

    employees->findChild<QPushButton *>(QStringLiteral("cmdEdit(0)Job"))->click();
    auto *lists = dynamic_cast<ListEditor *>(Screens().existing(QStringLiteral("ListEditor")));
    ASSERT_NE(lists, nullptr);
    EXPECT_EQ(lists->SSPanel1->text(), QStringLiteral("Jobs 1 List"));
    ASSERT_EQ(lists->List1->count(), 2);
    lists->Text1->setText(QStringLiteral("Host \"ess\""));
    lists->cmdAdd->click();
    lists->List1->setCurrentRow(0);
    lists->cmdRemove->click();
    lists->cmdSave->click();
    EXPECT_EQ(site.read(QStringLiteral("Quillon/data/Jobs1.dat")), "\"Cook\"\r\n\"Host ess\"\r\n");
    EXPECT_EQ(employees->cmbJob[1]->count(), 2) << "the pickers offer the saved list";
    EXPECT_EQ(employees->cmbJob[0]->currentText(), QStringLiteral("Cook")) << "and keep what they showed";
    lists->Text1->setText(QStringLiteral("Runner"));
    lists->cmdAdd->click();
    Dialogs::queueAnswer(MessageAnswer::No);
    lists->cmdClose->click();
    EXPECT_FALSE(lists->isVisible());
    EXPECT_EQ(site.read(QStringLiteral("Quillon/data/Jobs1.dat")), "\"Cook\"\r\n\"Host ess\"\r\n") << "No drops the edit";
    employees->findChild<QPushButton *>(QStringLiteral("cmdEdit(0)Job"))->click();
    lists->cmdClose->click();
    EXPECT_EQ(test::ShownMessages(), QStringLiteral("message: List Editor | Save changes?\n"))
        << "asked once: the second close had nothing to save";

    employees->cmdPhoneList->click();
    auto *phones = dynamic_cast<PhoneList *>(Screens().existing(QStringLiteral("PhoneList")));
    ASSERT_NE(phones, nullptr);
    EXPECT_TRUE(phones->isVisible());
    ASSERT_EQ(phones->grdPhones->rowCount(), 2) << "the inactive and the empty slot are left out";
    EXPECT_EQ(phones->grdPhones->item(0, 0)->text(), QStringLiteral("al"));
    EXPECT_EQ(phones->grdPhones->item(1, 1)->text(), QStringLiteral("555-0101"));
}

} // namespace
} // namespace qlon
