#include "core/RecordFile.h"
#include "core/FixedField.h"
#include "tests/support/TempSite.h"

#include <QFileInfo>
#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(RecordFileTest, CountRoundsHalvesToEven)
{
    struct Case
    {
        qint64 bytes;
        qint64 count;
    };
    const Case cases[] = {{0, 0}, {249, 0}, {250, 0}, {251, 1}, {500, 1}, {750, 2}, {1250, 2}, {1750, 4}, {2500, 5}};
    for (const Case &test : cases)
        EXPECT_EQ(RoundedQuotient(test.bytes, 500), test.count) << test.bytes;
    EXPECT_EQ(RoundedQuotient(2500, 1000), 2);
    EXPECT_EQ(RoundedQuotient(3500, 1000), 4);
}

TEST(RecordFileTest, OpeningCreatesAnEmptyFile)
{
    test::TempSite site;
    const QString path = site.hostPath(QStringLiteral("TempInv.dat"));
    RecordFile file(path, 500);
    EXPECT_TRUE(QFileInfo::exists(path));
    EXPECT_EQ(file.CountRecords(), 0);
    EXPECT_EQ(file.GetRecord(1), QByteArray(500, ' '));
}

TEST(RecordFileTest, RecordsRoundTripByteForByteAndGrowTheFile)
{
    test::TempSite site;
    QByteArray original(500, ' ');
    for (int index = 0; index < 500; ++index)
        original[index] = char(index % 256); // every byte value, the undefined ones of the code page too
    const QString path = site.write(QStringLiteral("items.dat"), original + QByteArray(500, 'b'));

    RecordFile file(path, 500);
    EXPECT_EQ(file.GetRecord(1), original);
    file.PutRecord(4, "short");
    EXPECT_EQ(file.CountRecords(), 4);
    EXPECT_EQ(file.GetRecord(4), PadOrCut("short", 500));
    EXPECT_EQ(file.GetRecord(2), QByteArray(500, 'b'));
    file.PutRecord(2, QByteArray(600, 'x'));
    file.close();

    const QByteArray bytes = site.read(QStringLiteral("items.dat"));
    ASSERT_EQ(bytes.size(), 2000);
    EXPECT_EQ(bytes.first(500), original) << "a record not written stays as it was";
    EXPECT_EQ(bytes.sliced(500, 500), QByteArray(500, 'x'));
}

// Records written one after another are handed to the system in blocks, not one by one; whatever
// the mix of reads and writes, every read and the file at the end equal a plain array of records
// changed the same way, one record at a time.
TEST(RecordFileTest, AnyMixOfReadsAndWritesGivesWhatRecordAtATimeGives)
{
    test::TempSite site;
    const QString path = site.hostPath(QStringLiteral("mixed.dat"));
    constexpr int size = 37; // no divisor of the system's blocks
    QByteArray expected;
    QRandomGenerator random(17);
    {
        RecordFile file(path, size);
        qint64 number = 1;
        for (int step = 0; step < 5000; ++step) {
            // Mostly the next record, now and then anywhere, past the end too.
            number = random.bounded(8) == 0 ? 1 + random.bounded(300) : number + 1;
            const qint64 start = (number - 1) * size;
            if (random.bounded(3) == 0) {
                const QByteArray stored = expected.mid(start, size);
                ASSERT_EQ(file.GetRecord(number), PadOrCut(stored, size)) << "step " << step;
                continue;
            }
            const QByteArray record = PadOrCut(QByteArray::number(step) + '|' + QByteArray::number(number), size);
            file.PutRecord(number, record);
            if (expected.size() < start + size)
                expected.resize(start + size, '\0'); // a gap reads back as zero bytes
            expected.replace(start, size, record);
        }
        EXPECT_EQ(file.CountRecords(), expected.size() / size);
    }
    EXPECT_EQ(site.read(QStringLiteral("mixed.dat")), expected);
}

TEST(RecordFileTest, ADamagedFileReadsAsItsRoundedCountSays)
{
    test::TempSite site;
    const QString path = site.write(QStringLiteral("short.dat"), QByteArray(1750, 'a'));
    RecordFile file(path, 500);
    ASSERT_EQ(file.CountRecords(), 4);
    EXPECT_EQ(file.GetRecord(4), QByteArray(250, 'a') + QByteArray(250, ' '));
    EXPECT_EQ(file.GetRecord(9), QByteArray(500, ' '));
    EXPECT_THROW(file.GetRecord(0), RuntimeError);
}

// Runs of records read or written in one go give what the same records one at a time give, over
// a damaged end and past it.
TEST(RecordFileTest, RunsOfRecordsEqualRecordAtATime)
{
    test::TempSite site;
    QByteArray stored;
    for (int step = 0; step < 1750; ++step)
        stored += char('a' + step % 26);
    RecordFile file(site.write(QStringLiteral("run.dat"), stored), 500);
    QByteArray run;
    for (const auto &[first, count] : {std::pair{1, 4}, {2, 2}, {3, 5}, {7, 3}, {1, 1}}) {
        QByteArray oneAtATime;
        for (int number = first; number < first + count; ++number)
            oneAtATime += file.GetRecord(number);
        file.GetRecords(first, count, run);
        EXPECT_EQ(run, oneAtATime) << first << " " << count;
    }

    const QByteArray records = QByteArray(500, 'x') + QByteArray(500, 'y');
    file.PutRecords(6, records);
    file.close();
    RecordFile oneAtATime(site.write(QStringLiteral("single.dat"), stored), 500);
    oneAtATime.PutRecord(6, records.first(500));
    oneAtATime.PutRecord(7, records.sliced(500));
    oneAtATime.close();
    EXPECT_EQ(site.read(QStringLiteral("run.dat")), site.read(QStringLiteral("single.dat")));
}

TEST(RecordFileTest, AMissingFolderFailsWithPathNotFound)
{
    test::TempSite site;
    try {
        RecordFile file(site.hostPath(QStringLiteral("Temp/TempInv.dat")), 500);
        FAIL() << "opened in a missing folder";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), RuntimeError::PathNotFound);
        EXPECT_EQ(error.message(), QStringLiteral("Run-time error '76':\r\n\r\nPath not found"));
    }
}

TEST(RecordFileTest, AReadOnlyFileIsReadButNeverWritten)
{
    test::TempSite site;
    const QString path = site.write(QStringLiteral("ro.dat"), QByteArray(500, 'r'));
    QFile::setPermissions(path, QFileDevice::ReadOwner);
    if (QFileInfo(path).isWritable())
        GTEST_SKIP() << "running as a user who may write anything";
    RecordFile file(path, 500);
    EXPECT_EQ(file.GetRecord(1), QByteArray(500, 'r'));
    EXPECT_THROW(file.PutRecord(1, "x"), RuntimeError);
}

TEST(FixedFieldTest, FieldsAreCutAndFilledWithBlanks)
{
    QByteArray record(40, '.');
    WriteFixed(record, {2, 18}, "Eighteen chars ok!");
    WriteFixed(record, {20, 18}, "Nineteen characters");
    WriteFixed(record, {38, 2}, "");
    EXPECT_EQ(record, "..Eighteen chars ok!Nineteen character  ");
    EXPECT_EQ(ReadTrimmed(record, {20, 18}), "Nineteen character");
    EXPECT_EQ(TrimBlanks("  \tx y\t  "), "\tx y\t");

    // A field's own text moved left within it, as a title losing its leading blanks; a copy
    // taken before keeps its bytes.
    QByteArray shifted("[   Burger ]");
    const QByteArray before = shifted;
    WriteFixed(shifted, {1, 10}, WithinBlanks(QByteArrayView(shifted).sliced(1, 10)));
    EXPECT_EQ(shifted, "[Burger    ]");
    EXPECT_EQ(before, "[   Burger ]");
}

} // namespace
} // namespace qlon
