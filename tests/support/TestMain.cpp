// The main of the tests without widgets: each test starts and ends with the site's state as a
// fresh program has it.
#include "platform/FileLock.h"
#include "store/JetCheck.h"
#include "store/SiteState.h"

#include <gtest/gtest.h>

namespace {

class FreshState : public ::testing::EmptyTestEventListener
{
    void OnTestStart(const ::testing::TestInfo &) override { qlon::ResetSiteState(); }
    void OnTestEnd(const ::testing::TestInfo &) override { qlon::ResetSiteState(); }
};

} // namespace

int main(int argc, char *argv[])
{
    ::testing::InitGoogleTest(&argc, argv);
    // Jet files are read as the program reads them, their catalogue checked apart first.
    qlon::SetJetChecker(QStringLiteral(QLON_JET_CHECKER));
    // A file held on purpose fails after a moment, not after a station's few seconds.
    qlon::SetStationWait(std::chrono::milliseconds(100));
    ::testing::UnitTest::GetInstance()->listeners().Append(new FreshState);
    return RUN_ALL_TESTS();
}
