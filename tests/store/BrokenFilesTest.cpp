// The readers on damaged files as stations leave them, kept in tests/data/broken.
#include "core/RecordFile.h"
#include "listbuilder/logic/LoadList.h"
#include "store/Departments.h"
#include "store/ItemRec500.h"
#include "store/MonthlySales.h"
#include "tests/support/Printers.h"
#include "tests/support/TempSite.h"

#include <QFile>

#include <gtest/gtest.h>

namespace qlon {
namespace {

// A copy of the broken file in a temporary site, since a reader may lock or create what it opens.
QString copied(test::TempSite &site, const QString &name)
{
    QFile file(QStringLiteral(QLON_TEST_DATA "/broken/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return site.write(name, file.readAll());
}

TEST(BrokenFilesTest, ACatalogueCutInItsLastRecordReadsTheCutRecordWithBlanks)
{
    test::TempSite site;
    // Five and a half records: the count rounds to six, and the last record is read up to
    // where the file ends, filled up with blanks; its title, price and department lie in the
    // half that is there.
    RecordFile catalogue(copied(site, QStringLiteral("Button0.dat")), ItemRec500::size);
    ASSERT_EQ(catalogue.CountRecords(), 6);
    QByteArrayList rows;
    CategoryChoice everything;
    everything.all = true;
    for (const ListedItem &item : ListItems(catalogue, everything))
        rows.append(item.text);

    EXPECT_EQ(rows,
        (QByteArrayList{"Burger|Food|6.50|0|0", "Fries|Food|2.50|0|0", "Avaliable|Food|0|0|0", "Caf\xE9 Latte|Beverage|3.25|0|0",
            "Soda|Beverage|1.50|0|0", "Pie|Food|3.00|0|0"}));
}

TEST(BrokenFilesTest, ADepartmentNameAcrossALineEndStaysOneNameAndACutNameEndsTheList)
{
    test::TempSite site;
    EXPECT_EQ(ReadDepartmentNames(copied(site, QStringLiteral("Departments.dat"))), (QByteArrayList{"Food", "Bever\r\nage", "Beer", "Wi"}));
}

TEST(BrokenFilesTest, AMonthlyFileWithABadDateAndANameAcrossALineEndStaysInStep)
{
    test::TempSite site;
    QByteArrayList read;
    {
        MonthlySalesFile month(copied(site, QStringLiteral("ItemsSold032004.DAT")), site.hostPath(QStringLiteral("Items.tmp")));
        while (const std::optional<MonthlyRecord> record = month.next())
            read.append(record->at(SoldDate) + ' ' + record->at(SoldItem));
        EXPECT_EQ(month.rejects(), 0);
    }
    // The reader takes dates as they stand: the scans, not the reader, pass over "02/30/04".
    EXPECT_EQ(read, (QByteArrayList{"03/01/04 Burger", "02/30/04 Fries", "03/02/04 Club\r\nSoda", "03/03/04 Soup"}));
}

} // namespace
} // namespace qlon
