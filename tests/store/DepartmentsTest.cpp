#include "store/Departments.h"
#include "tests/support/TempSite.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(DepartmentsTest, ANewSiteGetsTheCallersDefaultsOnce)
{
    test::TempSite site;
    const QString path = site.hostPath(QStringLiteral("Departments.dat"));
    EXPECT_TRUE(EnsureDepartmentsFile(path, MainScreenDepartments()));
    const QByteArray written = site.read(QStringLiteral("Departments.dat"));
    EXPECT_EQ(written, "\"Food\"\r\n\"Beverage\"\r\n\"Catering\"\r\n\"Speicals\"\r\n\"Retail\"\r\n\"Gift Card\"\r\n\"All\"\r\n");
    EXPECT_FALSE(EnsureDepartmentsFile(path, DepartmentsEditorDepartments()));
    EXPECT_EQ(site.read(QStringLiteral("Departments.dat")), written);
}

TEST(DepartmentsTest, EachScreenKeepsItsOwnDefaultsRepeatsIncluded)
{
    EXPECT_EQ(ItemEditorDepartments(), MainScreenDepartments());
    EXPECT_EQ(ItemsSoldDepartments().size(), 8);
    EXPECT_EQ(ItemsSoldDepartments().count("All"), 2);
    const QByteArrayList editor = DepartmentsEditorDepartments();
    EXPECT_EQ(editor.size(), 11);
    EXPECT_EQ(editor.first(), "All");
    EXPECT_EQ(editor.last(), "Wine");
}

TEST(DepartmentsTest, NamesKeepBlanksCommasAndSpacing)
{
    test::TempSite site;
    const QString path = site.write(QStringLiteral("Departments.dat"), "\"Food\"\r\n\"\"\r\n\"Soup, Salad\"\r\n\" Bar \"\r\n\"\"\r\n");
    EXPECT_EQ(ReadDepartmentNames(path), (QByteArrayList{"Food", "", "Soup, Salad", " Bar ", ""}));
    EXPECT_EQ(ReadDepartmentNames(path, 2), (QByteArrayList{"Food", ""}));
}

TEST(DepartmentsTest, FourteenRowsRoundTripAndTheFifteenthIsDropped)
{
    test::TempSite site;
    QByteArray fifteen;
    for (int line = 1; line <= 15; ++line)
        fifteen += "\"Dept " + QByteArray::number(line) + "\"\r\n";
    const QString path = site.write(QStringLiteral("Departments.dat"), fifteen);
    QByteArrayList rows = ReadDepartmentNames(path, 14);
    ASSERT_EQ(rows.size(), 14);
    rows[3] = "";
    rows[5] = "Soup, Salad";
    WriteDepartmentNames(path, rows);
    EXPECT_EQ(ReadDepartmentNames(path), rows);
    EXPECT_TRUE(site.read(QStringLiteral("Departments.dat")).contains("\r\n\"\"\r\n"));
}

} // namespace
} // namespace qlon
