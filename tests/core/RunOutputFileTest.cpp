#include "core/RunOutputFile.h"
#include "core/HostPath.h"
#include "core/TextFile.h"
#include "tests/support/TempSite.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

const QByteArray itemsPath = QByteArrayLiteral("C:\\Quillon\\TempItems.dat");
const QString itemsFile = QStringLiteral("Quillon/TempItems.dat");

// The lines land as an opening for appending, a write and a close for each item left them.
TEST(RunOutputFileTest, EachItemsLinesStandAsOneOpeningPerItemLeavesThem)
{
    test::TempSite site;
    site.write(itemsFile, "\"ITEMNAME\"\r\n");
    RunOutputFile output;
    output.append(itemsPath, "\"Burger\"\r\n");
    EXPECT_EQ(site.read(itemsFile), "\"ITEMNAME\"\r\n\"Burger\"\r\n") << "a copy taken between two items holds every line";

    TextFile(HostPath(itemsPath), TextFile::Mode::Append).WriteLines("\"Other\"\r\n");
    output.append(itemsPath, "\"Fries\"\r\n");
    EXPECT_EQ(site.read(itemsFile), "\"ITEMNAME\"\r\n\"Burger\"\r\n\"Other\"\r\n\"Fries\"\r\n") << "a line goes after what others added";

    TextFile(HostPath(itemsPath), TextFile::Mode::Output).WriteLines("\"ITEMNAME\"\r\n");
    output.append(itemsPath, "\"Salad\"\r\n");
    EXPECT_EQ(site.read(itemsFile), "\"ITEMNAME\"\r\n\"Salad\"\r\n") << "a file begun anew meanwhile is appended to at its new end";

    output.append("C:\\Quillon\\TempItemsRec.dat", "\"Soup\"\r\n");
    EXPECT_EQ(site.read(QStringLiteral("Quillon/TempItemsRec.dat")), "\"Soup\"\r\n") << "another path is another file";
    EXPECT_EQ(site.read(itemsFile), "\"ITEMNAME\"\r\n\"Salad\"\r\n");
}

} // namespace
} // namespace qlon
