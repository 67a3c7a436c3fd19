// The main of the tests that drive widgets: an application object drawing off screen, and each
// test starting and ending with every global as a fresh program has it. Message boxes are
// scripted, so that a handler that shows one never waits for a person: a test reads them with
// test::ShownMessages().
#include "platform/FileLock.h"
#include "store/JetCheck.h"
#include "tests/support/ShownMessages.h"
#include "ui/ProgramState.h"

#include <QApplication>
#include <QTextStream>

#include <gtest/gtest.h>

namespace qlon::test {

namespace {

QString messages;
QTextStream messageStream(&messages);

class FreshState : public ::testing::EmptyTestEventListener
{
    void OnTestStart(const ::testing::TestInfo &) override { reset(); }
    void OnTestEnd(const ::testing::TestInfo &) override { reset(); }

    static void reset()
    {
        messages.clear();
        ResetProgramState(&messageStream);
    }
};

} // namespace

QString ShownMessages()
{
    messageStream.flush();
    return messages;
}

} // namespace qlon::test

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    // Jet files are read as the program reads them, their catalogue checked apart first.
    qlon::SetJetChecker(QStringLiteral(QLON_JET_CHECKER));
    // A file held on purpose fails after a moment, not after a station's few seconds.
    qlon::SetStationWait(std::chrono::milliseconds(100));
    ::testing::UnitTest::GetInstance()->listeners().Append(new qlon::test::FreshState);
    return RUN_ALL_TESTS();
}
