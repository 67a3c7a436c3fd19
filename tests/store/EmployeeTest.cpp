#include "store/EmployeeRec1000.h"
#include "tests/support/TempSite.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace qlon {
namespace {

QByteArray employee(QByteArrayView number, QByteArrayView name, QByteArrayView acceptsTransfers, QByteArrayView inactive = "0")
{
    EmployeeRec1000 record;
    record.setField(EmployeeRec1000::EmployeeNumber, number);
    record.setField(EmployeeRec1000::EmployeeName, name);
    record.setField(EmployeeRec1000::AcceptsTransfers, acceptsTransfers);
    record.setField(EmployeeRec1000::InactiveFlag, inactive);
    return record.bytes();
}

TEST(EmployeeTest, FieldsLieWhereTheStationsPutThem)
{
    EXPECT_EQ(EmployeeRec1000::span(EmployeeRec1000::EmployeeName).offset, 40);
    EXPECT_EQ(EmployeeRec1000::span(EmployeeRec1000::Notes).width, 330);
    EXPECT_EQ(EmployeeRec1000::span(EmployeeRec1000::AcceptsTransfers).offset, 660);
    EXPECT_EQ(EmployeeRec1000::span(EmployeeRec1000::JobRate1).offset, 705);
    EXPECT_EQ(EmployeeRec1000::span(EmployeeRec1000::InactiveFlag).offset, 845);
    EXPECT_EQ(EmployeeRec1000::span(EmployeeRec1000::EmployeeTail).width, 150);
}

TEST(EmployeeTest, ServerPickerTakesNumberedEmployeesWhoAcceptTransfers)
{
    test::TempSite site;
    const QByteArray file = employee(" 1002 ", "Ann Server", "-1") + employee("", "No Number", "-1") + employee("1003", "Bob Cook", "0") +
        employee("1004", "Cy Gone", "-1", "-1") + employee("1005", "", "1") + employee("1006", "Dee Bar", "");
    // A damaged tail of half a record counts as a record only when rounding says so.
    const QString path = site.write(QStringLiteral("Data/Zemployee.dat"), file + employee("1007", "Half", "-1").left(500));
    EXPECT_EQ(ServerNumbers(path), (QByteArrayList{"1002", "1004", "1005"}));
    site.write(QStringLiteral("Data/Zemployee.dat"), file + employee("1007", "Half", "-1").left(665));
    EXPECT_EQ(ServerNumbers(path), (QByteArrayList{"1002", "1004", "1005", "1007"}));
}

TEST(EmployeeTest, MissingFileGivesNoServersAndStaysMissing)
{
    test::TempSite site;
    const QString path = site.hostPath(QStringLiteral("Data/Zemployee.dat"));
    EXPECT_TRUE(ServerNumbers(path).isEmpty());
    EXPECT_FALSE(QFileInfo::exists(path));
}

} // namespace
} // namespace qlon
