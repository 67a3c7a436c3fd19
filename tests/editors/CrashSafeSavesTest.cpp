#include "core/FileReplace.h"
#include "core/RecordFile.h"
#include "tests/editors/SaveLoopFiles.h"
#include "tests/support/Rows.h"
#include "tests/support/TempSite.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>

namespace qlon {
namespace {

QByteArray quotedLines(const QByteArrayList &rows)
{
    QByteArray lines;
    for (const QByteArray &row : rows)
        lines += '"' + row + "\"\r\n";
    return lines;
}

// The three employees in each order the loop steps through, three of them or the two left after a delete.
QList<QByteArray> employeeStates()
{
    const std::array<QByteArray, 3> employees = test::Employees();
    QList<QByteArray> states;
    for (int first = 0; first < 3; ++first) {
        const QByteArray two = employees[first] + employees[(first + 1) % 3];
        states << two << two + employees[(first + 2) % 3];
    }
    return states;
}

// Starts the save loop on `file`, which holds the first of `contents` at the start, kills it at a
// random moment of its saves and reads the file back, over and over within a bounded count and
// time. Each time the file holds one of `contents` or, where the copy beside is allowed for, that
// copy does. The count of distinct contents seen.
qsizetype killWhileSaving(const char *mode, const QString &file, const QList<QByteArray> &contents, bool copyBeside = false)
{
    const quint32 seed = QRandomGenerator::global()->generate();
    SCOPED_TRACE(testing::Message() << mode << ", seed " << seed);
    QRandomGenerator random(seed);
    test::TempSite site;
    site.write(file, contents.first());
    QSet<QByteArray> seen;
    const QDeadlineTimer deadline(std::chrono::seconds(6));
    for (int kill = 0; kill < 75 && !deadline.hasExpired(); ++kill) {
        QProcess child;
        child.start(QStringLiteral(QLON_SAVE_LOOP), {QString::fromLatin1(mode), site.driveFolder()});
        if (!child.waitForReadyRead(20000)) {
            ADD_FAILURE() << "the save loop didn't start";
            break;
        }
        QThread::usleep(random.bounded(20000));
        ::kill(pid_t(child.processId()), SIGKILL);
        child.waitForFinished();
        const QByteArray now = site.read(file);
        if (!contents.contains(now)) {
            EXPECT_TRUE(copyBeside && contents.contains(site.read(CopyBesideOf(file))))
                << "kill " << kill << " left " << now.size() << " bytes";
        }
        seen.insert(now);
    }
    return seen.size();
}

TEST(CrashSafeSavesTest, AKilledSaveLeavesTheOldFileOrTheNewNeverAMixture)
{
    const QList<QByteArray> departments = {quotedLines(DepartmentsEditorDepartments()), quotedLines(test::EditedDepartments())};
    EXPECT_GE(killWhileSaving("departments", QStringLiteral("Departments.dat"), departments), 2) << "saves ran between kills";
    EXPECT_GT(killWhileSaving("employees", QStringLiteral("Zemployee.dat"), employeeStates()), 2) << "deletes and puts ran";
    const QList<QByteArray> items = {test::ItemButtons("Pizza Pie"), test::ItemButtons("Calzone")};
    EXPECT_GE(killWhileSaving("items", QStringLiteral("Button0.dat"), items), 2);
    // Where the share refuses the rename, a file cut in the middle has its whole copy beside it.
    const QList<QByteArray> inPlace = {test::InPlaceBefore(), test::InPlaceAfter()};
    EXPECT_GE(killWhileSaving("in-place", QStringLiteral("InPlace.dat"), inPlace, true), 2);
}

TEST(CrashSafeSavesTest, ASaveLeavesOnlyTheFileAndAHeldFileAsItWas)
{
    test::TempSite site;
    const QString path = site.write(QStringLiteral("Departments.dat"), "\"Food\"\r\n");
    site.write(QStringLiteral("Departments.dat.qlon-old"), "\"Food\"\r\n");
    ReplaceFile(path, "\"Bar\"\r\n");
    EXPECT_EQ(site.read(QStringLiteral("Departments.dat")), "\"Bar\"\r\n");
    EXPECT_EQ(QDir(site.driveFolder()).entryList(QDir::Files), QStringList{QStringLiteral("Departments.dat")})
        << "no temporary file, and the copy an interrupted save left is gone";

    ReplaceInPlaceKeepingCopy(path, "\"Beer\"\r\n\"Wine\"\r\n");
    ReplaceInPlaceKeepingCopy(path, "\"Soup\"\r\n");
    EXPECT_EQ(site.read(QStringLiteral("Departments.dat")), "\"Soup\"\r\n");
    EXPECT_EQ(QDir(site.driveFolder()).entryList(QDir::Files), QStringList{QStringLiteral("Departments.dat")});

    RecordFile holder(path, 1);
    holder.LockAll();
    EXPECT_EQ(test::RuntimeErrorNumber([&] { ReplaceFile(path, "\"Bar\"\r\n"); }), RuntimeError::PermissionDenied)
        << "a file a station holds";
    holder.close();
    EXPECT_EQ(site.read(QStringLiteral("Departments.dat")), "\"Soup\"\r\n");
    EXPECT_EQ(test::RuntimeErrorNumber([&] { ReplaceFile(site.hostPath(QStringLiteral("no/Departments.dat")), "x"); }),
        RuntimeError::PathNotFound);
}

} // namespace
} // namespace qlon
