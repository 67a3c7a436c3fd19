#include "web/logic/Accounts.h"
#include "web/logic/Sessions.h"
#include "web/logic/SignInGuard.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace qlon::web {
namespace {

TEST(AccountsTest, KeepsOnlyArgon2idHashesInAFileItsOwnerAloneReads)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("qlon/users"));
    Accounts accounts(path);
    EXPECT_TRUE(accounts.add(QStringLiteral("alice"), QStringLiteral("correct horse"), Role::Manager));
    EXPECT_TRUE(accounts.add(QStringLiteral("bob"), QStringLiteral("battery staple"), Role::Viewer));
    EXPECT_FALSE(accounts.add(QStringLiteral("carol"), QStringLiteral("short"), Role::Viewer));
    EXPECT_FALSE(accounts.add(QStringLiteral("bad:name"), QStringLiteral("long enough"), Role::Viewer));
    EXPECT_FALSE(accounts.add(QStringLiteral("a\nb"), QStringLiteral("long enough"), Role::Viewer));
    ASSERT_TRUE(accounts.save().isEmpty());

    QFile file(path);
    EXPECT_EQ(file.permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther | QFileDevice::WriteGroup | QFileDevice::WriteOther),
        QFileDevice::Permissions());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_FALSE(text.contains("correct horse"));
    EXPECT_EQ(text.count("$argon2id$"), 2);

    Accounts read(path);
    ASSERT_TRUE(read.load().isEmpty());
    EXPECT_EQ(read.verify(QStringLiteral("alice"), QStringLiteral("correct horse")), Role::Manager);
    EXPECT_EQ(read.verify(QStringLiteral("bob"), QStringLiteral("battery staple")), Role::Viewer);
    EXPECT_FALSE(read.verify(QStringLiteral("alice"), QStringLiteral("battery staple")));
    EXPECT_FALSE(read.verify(QStringLiteral("nobody"), QStringLiteral("correct horse")));
    EXPECT_TRUE(read.remove(QStringLiteral("bob")));
    EXPECT_FALSE(read.remove(QStringLiteral("bob")));
    ASSERT_TRUE(read.save().isEmpty());
    Accounts again(path);
    ASSERT_TRUE(again.load().isEmpty());
    EXPECT_FALSE(again.contains(QStringLiteral("bob")));
    EXPECT_TRUE(again.contains(QStringLiteral("alice")));
}

TEST(AccountsTest, AFileThatIsNoAccountListIsNamedAndTrustedForNothing)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("users"));
    for (const QByteArray &bytes : {QByteArray("alice:manager:plaintext\n"), QByteArray("alice:owner:$argon2id$v=19$x\n"),
             QByteArray("alice\n"), QByteArray("\x00\xff:viewer:$argon2id$\n", 21)}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        Accounts accounts(path);
        const QString error = accounts.load();
        EXPECT_TRUE(error.contains(path)) << bytes.toStdString();
        EXPECT_FALSE(accounts.verify(QStringLiteral("alice"), QStringLiteral("plaintext")));
    }
}

TEST(SessionsTest, RandomIdsThatEndOnSignOutOrAfterTwelveIdleHours)
{
    Sessions sessions;
    const Moment start{};
    const Session first = sessions.open(QStringLiteral("alice"), Role::Viewer, start);
    const Session second = sessions.open(QStringLiteral("alice"), Role::Viewer, start);
    EXPECT_EQ(first.id.size(), 64);
    EXPECT_NE(first.id, second.id);
    EXPECT_NE(first.id, first.csrfToken);

    // Each request restarts the idle time.
    EXPECT_TRUE(sessions.find(first.id, start + std::chrono::hours(11)));
    EXPECT_TRUE(sessions.find(first.id, start + std::chrono::hours(22)));
    EXPECT_FALSE(sessions.find(second.id, start + std::chrono::hours(12) + std::chrono::seconds(1)));
    EXPECT_FALSE(sessions.find(first.id, start + std::chrono::hours(34) + std::chrono::seconds(1)));

    const Session third = sessions.open(QStringLiteral("bob"), Role::Manager, start);
    EXPECT_EQ(sessions.find(third.id, start)->name, QStringLiteral("bob"));
    sessions.close(third.id);
    EXPECT_FALSE(sessions.find(third.id, start));
    EXPECT_FALSE(sessions.find(QString(), start));
}

TEST(SignInGuardTest, FiveFailuresLockANameOrAnAddressForAMinuteThenLonger)
{
    SignInGuard guard;
    const Moment start{};
    const QString here = QStringLiteral("10.0.0.1");
    for (int failure = 1; failure < SignInGuard::failuresBeforeLock; ++failure)
        guard.failed(QStringLiteral("alice"), here, start);
    EXPECT_FALSE(guard.locked(QStringLiteral("alice"), here, start));
    guard.failed(QStringLiteral("alice"), here, start);
    EXPECT_TRUE(guard.locked(QStringLiteral("alice"), QStringLiteral("10.0.0.2"), start + std::chrono::seconds(59)));
    EXPECT_TRUE(guard.locked(QStringLiteral("bob"), here, start + std::chrono::seconds(59)));
    EXPECT_FALSE(guard.locked(QStringLiteral("bob"), QStringLiteral("10.0.0.2"), start));
    const Moment later = start + std::chrono::seconds(61);
    EXPECT_FALSE(guard.locked(QStringLiteral("alice"), here, later));

    // The second lock lasts twice as long.
    for (int failure = 0; failure < SignInGuard::failuresBeforeLock; ++failure)
        guard.failed(QStringLiteral("alice"), QStringLiteral("10.0.0.3"), later);
    EXPECT_TRUE(guard.locked(QStringLiteral("alice"), QStringLiteral("10.0.0.4"), later + std::chrono::seconds(119)));
    EXPECT_FALSE(guard.locked(QStringLiteral("alice"), QStringLiteral("10.0.0.4"), later + std::chrono::seconds(121)));

    // A success clears the counts: four more failures lock nothing.
    guard.succeeded(QStringLiteral("bob"), here);
    for (int failure = 1; failure < SignInGuard::failuresBeforeLock; ++failure)
        guard.failed(QStringLiteral("bob"), here, later);
    EXPECT_FALSE(guard.locked(QStringLiteral("bob"), here, later));
}

} // namespace
} // namespace qlon::web
