#include "editors/TCEmployee.h"
#include "store/EmployeeRec1000.h"
#include "tests/support/ScreenTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

namespace qlon {
namespace {

EmployeeRec1000 employee(QByteArrayView number, QByteArrayView name, QByteArrayView phone, QByteArrayView inactive = "0")
{
    EmployeeRec1000 record;
    const std::pair<int, QByteArrayView> fields[] = {{EmployeeRec1000::EmployeeNumber, number}, {EmployeeRec1000::EmployeeName, name},
        {EmployeeRec1000::Phone, phone}, {EmployeeRec1000::City, "Portsmouth"}, {EmployeeRec1000::Notes, "Caf\xe9 shifts"},
        {EmployeeRec1000::HourlyRate, "12.50"}, {EmployeeRec1000::JobTitle1, "Server"}, {EmployeeRec1000::JobTitle2, "Host"},
        {EmployeeRec1000::JobTitle3, "Bar"}, {EmployeeRec1000::JobRate1, "4.25"}, {EmployeeRec1000::JobDepartment1, "Floor"},
        {EmployeeRec1000::DefaultJob, "Server"}, {EmployeeRec1000::DefaultDepartment, "Floor"}, {EmployeeRec1000::AcceptsTransfers, "-1"},
        {EmployeeRec1000::InactiveFlag, inactive}};
    for (const auto &[field, text] : fields)
        record.setField(field, text);
    return record;
}

QStringList entries(const QListWidget *list)
{
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts.append(list->item(row)->text());
    return texts;
}

class EmployeeEditorTest : public test::ScreenTest
{
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        Site().SiteRoot = "C:\\Quillon\\";
        site.write(QStringLiteral("Quillon/Data/Jobs1.dat"), "\"Server\"\r\n\"Bartender\"\r\n");
        site.write(QStringLiteral("Quillon/Data/DEPT.dat"), "\"Floor\"\r\n\"Kitchen\"\r\n");
        write({employee("1002", "maria Santos", "555-0102"), employee("1003", "Dave O'Brien", "555-0199", "-1"),
            employee("1004", "Lena Fischer", "555-0150"), employee("", "", "")});
        Screens().add(QStringLiteral("TCEmployee"), [] { return new TCEmployee; });
        screen = Screens().touch<TCEmployee>(QStringLiteral("TCEmployee"));
    }

    void write(const QList<EmployeeRec1000> &records)
    {
        QByteArray bytes;
        for (const EmployeeRec1000 &record : records)
            bytes += record.bytes();
        site.write(QStringLiteral("Quillon/Data/Zemployee.dat"), bytes);
    }

    QByteArray record(int number) const { return site.read(QStringLiteral("Quillon/Data/Zemployee.dat")).mid((number - 1) * 1000, 1000); }

    void show(const QString &name)
    {
        const QList<QListWidgetItem *> found = screen->List1->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1);
        emit screen->List1->itemClicked(found.first());
    }

    TCEmployee *screen = nullptr;
};

TEST_F(EmployeeEditorTest, TheListSortsAsTheOldListBoxAndFiltersTheInactive)
{
    EXPECT_EQ(entries(screen->List1),
        (QStringList{QString(), QStringLiteral("Dave O'Brien"), QStringLiteral("Lena Fischer"), QStringLiteral("maria Santos")}));
    EXPECT_EQ(screen->cmbJob[2]->count(), 2);
    EXPECT_EQ(screen->cmbDefaultDepartment->itemText(1), QStringLiteral("Kitchen"));
    EXPECT_FALSE(screen->chkTransfers->isVisibleTo(screen)) << "no point-of-sale program beside it";

    screen->cmdSortPhone->click();
    EXPECT_EQ(screen->lblSortBy->text(), QStringLiteral("ph"));
    EXPECT_EQ(entries(screen->List1).first(), QString());
    screen->optActive->click();
    EXPECT_EQ(entries(screen->List1), (QStringList{QString(), QStringLiteral("555-0102"), QStringLiteral("555-0150")}))
        << "rebuilt by phone, the inactive one left out";
}

TEST_F(EmployeeEditorTest, SavingAShownRecordWritesItBackByteForByte)
{
    show(QStringLiteral("Lena Fischer"));
    EXPECT_EQ(screen->txtRecord->text(), QStringLiteral("3"));
    EXPECT_EQ(screen->txtCity->text(), QStringLiteral("Portsmouth"));
    EXPECT_EQ(screen->cmbJob[2]->currentText(), QStringLiteral("Bar"));
    EXPECT_TRUE(screen->chkTransfers->isChecked());
    EXPECT_TRUE(screen->cmdSaveUpdate->isEnabled());
    const QByteArray before = record(3);
    screen->cmdSaveUpdate->click();
    EXPECT_EQ(record(3), before);

    screen->txtHourlyRate->clear();
    screen->cmbJob[0]->setEditText({});
    screen->cmbDefaultDepartment->setEditText({});
    screen->txtRecord->setText(QStringLiteral("1"));
    screen->cmdSaveUpdate->click();
    const EmployeeRec1000 saved(record(1));
    EXPECT_EQ(saved.trimmedField(EmployeeRec1000::EmployeeName), "Lena Fischer") << "saved where Record points";
    EXPECT_EQ(saved.trimmedField(EmployeeRec1000::HourlyRate), "0.00");
    EXPECT_EQ(saved.trimmedField(EmployeeRec1000::JobTitle1), "Other");
    EXPECT_EQ(saved.trimmedField(EmployeeRec1000::DefaultDepartment), "Not Assigned");
}

TEST_F(EmployeeEditorTest, ShownByNumberJobsThreeAndFourTakeTheTitlesOfOneAndTwo)
{
    screen->txtRecord->setText(QStringLiteral("1"));
    emit screen->txtRecord->returnPressed();
    EXPECT_EQ(screen->cmbJob[2]->currentText(), QStringLiteral("Server"));
    EXPECT_EQ(screen->cmbJob[3]->currentText(), QStringLiteral("Host"));
    screen->cmdSaveUpdate->click();
    EXPECT_EQ(EmployeeRec1000(record(1)).trimmedField(EmployeeRec1000::JobTitle3), "Server") << "and a save keeps them";
}

TEST_F(EmployeeEditorTest, DeleteRenumbersAndDropsEmptySlotsAndAddNewAppends)
{
    const QByteArray first = record(1);
    const QByteArray third = record(3);
    screen->txtRecord->setText(QStringLiteral("0"));
    screen->cmdDelete->click();
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Data/Zemployee.dat")).size(), 4000) << "Record 0 deletes nothing";

    show(QStringLiteral("Dave O'Brien"));
    screen->cmdDelete->click();
    EXPECT_EQ(site.read(QStringLiteral("Quillon/Data/Zemployee.dat")), first + third);
    EXPECT_TRUE(QFileInfo::exists(site.hostPath(QStringLiteral("Quillon/Data/Zemployee.tmp"))));
    EXPECT_EQ(screen->txtRecord->text(), QStringLiteral("0"));
    EXPECT_TRUE(screen->txtName->text().isEmpty());
    EXPECT_EQ(entries(screen->List1), (QStringList{QStringLiteral("Lena Fischer"), QStringLiteral("maria Santos")}));

    screen->cmdAddNew->click();
    EXPECT_EQ(screen->txtRecord->text(), QStringLiteral("3"));
    EXPECT_FALSE(screen->cmdDelete->isEnabled());
    screen->txtName->setText(QStringLiteral("Kim Lee"));
    screen->cmdSaveNew->click();
    const EmployeeRec1000 added(record(3));
    EXPECT_EQ(added.trimmedField(EmployeeRec1000::EmployeeName), "Kim Lee");
    EXPECT_EQ(added.trimmedField(EmployeeRec1000::JobDepartment1), "Not Assigned");
    EXPECT_EQ(added.trimmedField(EmployeeRec1000::AcceptsTransfers), "0");
    EXPECT_EQ(entries(screen->List1).size(), 3);
    EXPECT_TRUE(screen->cmdAddNew->isEnabled());
}

} // namespace
} // namespace qlon
