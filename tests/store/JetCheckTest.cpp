#include "store/JetCheck.h"

#include "core/RuntimeError.h"
#include "store/SalesStore.h"
#include "tests/support/TempSite.h"

#include <QElapsedTimer>
#include <QFile>

#include <gtest/gtest.h>

namespace qlon {
namespace {

class JetCheckTest : public ::testing::Test
{
protected:
    void TearDown() override { SetJetChecker(QStringLiteral(QLON_JET_CHECKER)); }

    // A checker that does what the shell line says, whatever file it is given.
    QString checker(const QByteArray &shellLine)
    {
        const QString path = site.write(QStringLiteral("checker.sh"), "#!/bin/sh\n" + shellLine + "\n");
        QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::ExeOwner);
        return path;
    }

    QString failureOf(const QString &file)
    {
        try {
            CheckJetFile(file, "ItemsSold");
        } catch (const RuntimeError &error) {
            return error.description() + QLatin1Char(' ') + error.detail();
        }
        return {};
    }

    test::TempSite site;
    const QString database = QStringLiteral("/srv/pos/Quillon/data/Quillon.mdb");
    const QString unrecognized = UnrecognizedFormatError(database).description() + QLatin1Char(' ') + database;
};

TEST_F(JetCheckTest, ACheckerThatHangsCrashesOrRefusesMakesTheFileUnrecognizedNamingIt)
{
    SetJetChecker(checker("sleep 30"), 300);
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(failureOf(database), unrecognized);
    EXPECT_LT(clock.elapsed(), 10000) << "the time limit holds";

    SetJetChecker(checker("kill -SEGV $$"));
    EXPECT_EQ(failureOf(database), unrecognized);
    SetJetChecker(checker("exit 1"));
    EXPECT_EQ(failureOf(database), unrecognized);
    SetJetChecker(checker("exit 2"));
    EXPECT_EQ(failureOf(database), QString()) << "a missing table is the reader's to tell";
}

TEST_F(JetCheckTest, TheCheckerTellsADatabaseFromAnythingElse)
{
    const QString nwind = QStringLiteral(QLON_JET_FIXTURES "/nwind.mdb");
    EXPECT_EQ(CheckJetFileHere(nwind, "Orders"), 0);
    EXPECT_EQ(CheckJetFileHere(nwind, "ItemsSold"), 2);
    const QString garbage = site.write(QStringLiteral("Quillon.mdb"), QByteArray(4096 * 4, 'x'));
    EXPECT_EQ(CheckJetFileHere(garbage, "ItemsSold"), 1);
    EXPECT_EQ(failureOf(garbage), UnrecognizedFormatError(garbage).description() + QLatin1Char(' ') + garbage);
}

} // namespace
} // namespace qlon
