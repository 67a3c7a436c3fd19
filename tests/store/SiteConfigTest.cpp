#include "store/SiteConfig.h"
#include "core/FileTable.h"
#include "core/HostPath.h"
#include "demo/DemoSite.h"
#include "store/StartDates.h"
#include "tests/support/TempSite.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(IniRec2300Test, FieldsStandAtTheirPositions)
{
    struct Case
    {
        int field;
        int offset;
        int width;
    };
    const Case cases[] = {
        {0, 0, 40},
        {3, 120, 20},
        {4, 140, 50},
        {5, 190, 40},
        {7, 240, 20},
        {8, 260, 200},
        {9, 460, 1},
        {20, 471, 1},
        {21, 472, 28},
        {22, 500, 5},
        {26, 565, 20},
        {27, 585, 1},
        {28, 586, 20},
        {31, 610, 2},
        {32, 612, 288},
        {34, 905, 20},
        {37, 932, 5},
        {39, 942, 40},
        {41, 987, 1},
        {45, 1003, 5},
        {46, 1008, 5},
        {48, 1018, 40},
        {50, 1078, 40},
        {53, 1168, 10},
        {71, 1263, 5},
        {72, 1268, 20},
        {73, 1288, 2},
        {100, 1420, 5},
        {101, 1425, 20},
        {104, 1455, 20},
        {128, 1590, 5},
        {129, 1595, 20},
        {134, 1695, 20},
        {158, 1830, 5},
        {159, 1835, 10},
        {164, 1865, 10},
        {165, 1875, 50},
        {180, 1995, 5},
        {182, 2010, 10},
        {185, 2030, 5},
        {186, 2035, 265},
    };
    for (const Case &test : cases) {
        EXPECT_EQ(IniRec2300::span(test.field).offset, test.offset) << "field " << test.field;
        EXPECT_EQ(IniRec2300::span(test.field).width, test.width) << "field " << test.field;
    }
}

TEST(IniRec2300Test, FieldsNotSetSurviveByteForByte)
{
    QByteArray bytes(IniRec2300::size, ' ');
    for (int index = 0; index < bytes.size(); ++index)
        bytes[index] = char('A' + index % 26);
    IniRec2300 record(bytes);
    record.setField(IniRec2300::DataRootField, "D:\\SITE\\");
    const QByteArray after = record.bytes();
    EXPECT_EQ(after.first(1018), bytes.first(1018));
    EXPECT_EQ(after.sliced(1018, 40), QByteArray("D:\\SITE\\").leftJustified(40, ' '));
    EXPECT_EQ(after.sliced(1058), bytes.sliced(1058));
}

class SiteConfigTest : public ::testing::Test
{
protected:
    // Writes QlonINI.dat into C:\Quillon\ with the given fields.
    void writeConfiguration(std::initializer_list<std::pair<int, QByteArray>> fields)
    {
        IniRec2300 record;
        for (const auto &[field, text] : fields)
            record.setField(field, text);
        site.write(QStringLiteral("Quillon/QlonINI.dat"), record.bytes());
    }

    test::TempSite site;
};

TEST_F(SiteConfigTest, FoldsTheSiteFoldersToUpperCaseAndKeepsTheOthers)
{
    writeConfiguration({{IniRec2300::SiteRootField, "  e:\\pos\\ "}, {IniRec2300::DataRootField, "d:\\site\\"},
        {IniRec2300::EmployeeRootField, " d:\\Staff\\"}, {IniRec2300::SecondRootField, "f:\\Backup\\  "}});
    ReadConfiguration();
    const SiteGlobals &globals = Site();
    EXPECT_EQ(globals.SiteRoot, "E:\\POS\\");
    EXPECT_EQ(globals.DataRoot, "D:\\SITE\\");
    EXPECT_EQ(globals.EmployeeRoot, "d:\\Staff\\");
    EXPECT_EQ(globals.SecondRoot, "f:\\Backup\\");
    EXPECT_EQ(globals.IniPath, "C:\\Quillon\\QlonINI.dat");
    EXPECT_EQ(DataPath("data\\Departments.dat"), "D:\\SITE\\data\\Departments.dat");
    // The trimmed texts stand in the global record too, left-justified.
    EXPECT_EQ(globals.Config.field(IniRec2300::EmployeeRootField), QByteArray("d:\\Staff\\").leftJustified(40, ' '));
}

TEST_F(SiteConfigTest, LeavesTheFileOpenAndLockedUntilTheNextCloseAll)
{
    writeConfiguration({{IniRec2300::DataRootField, "c:\\Quillon\\"}});
    ReadConfiguration();
    const QString path = site.hostPath(QStringLiteral("Quillon/QlonINI.dat"));
    EXPECT_TRUE(Files().isOpen(ConfigFileNumber));
    EXPECT_THROW(RecordFile(path, IniRec2300::size).LockAll(), RuntimeError);
    CloseAll();
    EXPECT_NO_THROW(RecordFile(path, IniRec2300::size).LockAll());
    EXPECT_EQ(site.read(QStringLiteral("Quillon/QlonINI.dat")).size(), IniRec2300::size) << "the file is never written";
}

TEST_F(SiteConfigTest, AFileHeldElsewhereEndsWithPermissionDenied)
{
    writeConfiguration({});
    RecordFile holder(site.hostPath(QStringLiteral("Quillon/QlonINI.dat")), IniRec2300::size);
    holder.LockAll();
    try {
        ReadConfiguration();
        FAIL() << "read a file held elsewhere";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), RuntimeError::PermissionDenied);
    }
}

TEST_F(SiteConfigTest, MissingBlankOrShortRecordsFallBackToTheDefaultFolders)
{
    ReadConfiguration();
    EXPECT_EQ(Site().SiteRoot, "C:\\Quillon\\");
    EXPECT_TRUE(Site().DataRoot.isEmpty()) << "no file: DataRoot stays empty";
    EXPECT_EQ(DataPath("data\\Quillon.mdb"), "c:\\Quillon\\data\\Quillon.mdb");

    Site() = SiteGlobals{};
    writeConfiguration({{IniRec2300::SiteName, "Blank Roots"}});
    ReadConfiguration();
    EXPECT_EQ(Site().SiteRoot, "C:\\Quillon\\");
    EXPECT_TRUE(Site().DataRoot.isEmpty());
    EXPECT_EQ(DataPath("data\\Departments.dat"), "c:\\Quillon\\data\\Departments.dat");
    CloseAll();

    Site() = SiteGlobals{};
    site.write(QStringLiteral("Quillon/QlonINI.dat"), "Short Site Name");
    ReadConfiguration();
    EXPECT_EQ(Site().Config.trimmedField(IniRec2300::SiteName), "Short Site Name");
    EXPECT_TRUE(Site().DataRoot.isEmpty());
    EXPECT_EQ(site.read(QStringLiteral("Quillon/QlonINI.dat")), "Short Site Name");
}

TEST_F(SiteConfigTest, AFolderWithoutItsBackslashIsJoinedAsItStands)
{
    writeConfiguration({{IniRec2300::DataRootField, "d:\\site"}});
    ReadConfiguration();
    EXPECT_EQ(DataPath("data\\Departments.dat"), "D:\\SITEdata\\Departments.dat");
}

TEST_F(SiteConfigTest, TheDemoSiteReadsBack)
{
    WriteDemoSite(site.driveFolder(), QDate(2026, 11, 23));
    ReadConfiguration();
    EXPECT_EQ(Site().DataRoot, "C:\\QUILLON\\");
    EXPECT_EQ(Site().Config.trimmedField(IniRec2300::LiquorRebuild), "-1");
    CloseAll();
    const StartDates dates = ReadStartDates(HostPath(DataPath("data\\ListbuilderINI.dat")));
    EXPECT_EQ(dates.from, QByteArray("11/16/2026"));
    EXPECT_EQ(dates.to, QByteArray("11/22/2026"));
}

TEST_F(SiteConfigTest, StartDatesReadAlikeOnOneLineOrTwo)
{
    const QString oneLine = site.write(QStringLiteral("one.dat"), "\"06/22/2003\",\"06/24/2003\"\r\n");
    const QString twoLines = site.write(QStringLiteral("two.dat"), "06/22/2003\r\n06/24/2003\r\n");
    const QString half = site.write(QStringLiteral("half.dat"), "\"06/22/2003\"\r\n");
    for (const QString &path : {oneLine, twoLines}) {
        const StartDates dates = ReadStartDates(path);
        EXPECT_EQ(dates.from, QByteArray("06/22/2003"));
        EXPECT_EQ(dates.to, QByteArray("06/24/2003"));
    }
    EXPECT_FALSE(ReadStartDates(half).to.has_value());
}

} // namespace
} // namespace qlon
