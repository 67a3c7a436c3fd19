#include "core/HostPath.h"

#include "core/RuntimeError.h"
#include "tests/support/Rows.h"
#include "tests/support/TempSite.h"

#include <QDir>

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(HostPathTest, NamesWindowsRefusesAreBadFileNamesAndOpenNothing)
{
    test::TempSite site;
    for (const QByteArray &bad : {QByteArray("C:\\Quillon\\data\\LIQMODIFIERS.IVM\0Departments.dat", 46),
             QByteArray("C:\\Quillon\\a|b.dat"), QByteArray("C:\\Quillon\\data\\x?.dat"), QByteArray("C:\\Quillon\\C:\\x.dat"),
             QByteArray("C:\\Quillon\\\x01.dat"), QByteArray("C:\\Quillon\\\"x\".dat")})
        EXPECT_EQ(test::RuntimeErrorNumber([&] { HostPath(bad); }), RuntimeError::BadFileNameOrNumber) << bad.constData();
    EXPECT_EQ(HostPath("c:\\Quillon\\data\\Departments.dat"), site.hostPath(QStringLiteral("Quillon/data/Departments.dat")));
}

TEST(HostPathTest, AFolderInPlaceOfAFileIsMissing)
{
    test::TempSite site;
    QDir(site.driveFolder()).mkpath(QStringLiteral("Quillon/data/Departments.dat"));
    site.write(QStringLiteral("Quillon/data/Jobs1.dat"), "\"Server\"\r\n");

    EXPECT_FALSE(FileExists(HostPath("C:\\Quillon\\data\\Departments.dat")));
    EXPECT_TRUE(FileExists(HostPath("C:\\Quillon\\data\\jobs1.dat")));
    EXPECT_FALSE(FileExists(HostPath("C:\\Quillon\\data\\Jobs2.dat")));
}

} // namespace
} // namespace qlon
