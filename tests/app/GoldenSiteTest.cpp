// The golden sites of tests/data/sites: each one's script run on a copy of its site, its output
// and files compared byte for byte with those it must give.
#include "tests/support/Printers.h"
#include "tests/support/TempSite.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace qlon {
namespace {

const QString sitesFolder = QStringLiteral(QLON_TEST_DATA "/sites");

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

void copyFolder(const QString &from, const QString &to)
{
    for (const QString &path : test::FilesBelow(from))
        writeFile(to + QLatin1Char('/') + path, contentsOf(from + QLatin1Char('/') + path));
}

class GoldenSiteTest : public ::testing::TestWithParam<QString>
{
protected:
    QString golden(const QString &relative) const { return sitesFolder + QLatin1Char('/') + GetParam() + QLatin1Char('/') + relative; }

    QByteArray run(const QString &driveFolder) const
    {
        QProcess process;
        process.setWorkingDirectory(driveFolder);
        process.start(QStringLiteral(QLON_PROGRAM),
            {QStringLiteral("--drive"), QStringLiteral("C=") + driveFolder, QStringLiteral("--today"),
                QString::fromLatin1(contentsOf(golden(QStringLiteral("today"))).trimmed()), QStringLiteral("--script"),
                golden(QStringLiteral("job.qlon"))});
        EXPECT_TRUE(process.waitForFinished(120000));
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return process.readAllStandardOutput();
    }
};

TEST_P(GoldenSiteTest, TheRunGivesItsOutputAndFilesAndChangesNoStationFile)
{
    QTemporaryDir drive;
    const QString site = golden(QStringLiteral("site"));
    copyFolder(site, drive.path());
    const QByteArray output = run(drive.path());
    const QString expected = golden(QStringLiteral("expected/files"));

    if (qEnvironmentVariableIsSet("QLON_UPDATE_GOLDEN")) {
        writeFile(golden(QStringLiteral("expected/stdout.txt")), output);
        for (const QString &path : test::FilesBelow(expected))
            writeFile(expected + QLatin1Char('/') + path, contentsOf(drive.filePath(path)));
        GTEST_SKIP() << "expected output written";
    }
    EXPECT_EQ(output, contentsOf(golden(QStringLiteral("expected/stdout.txt"))));
    for (const QString &path : test::FilesBelow(expected))
        EXPECT_EQ(contentsOf(drive.filePath(path)), contentsOf(expected + QLatin1Char('/') + path)) << path.toStdString();
    for (const QString &path : test::FilesBelow(site))
        EXPECT_EQ(contentsOf(drive.filePath(path)), contentsOf(site + QLatin1Char('/') + path)) << path.toStdString() << " changed";
}

INSTANTIATE_TEST_SUITE_P(Sites, GoldenSiteTest, ::testing::ValuesIn(QDir(sitesFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot)),
    [](const ::testing::TestParamInfo<QString> &info) {
        return QString(info.param).replace(QLatin1Char('-'), QLatin1Char('_')).toStdString();
    });

} // namespace
} // namespace qlon
