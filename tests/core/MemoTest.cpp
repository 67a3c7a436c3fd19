#include "core/Memo.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace qlon {
namespace {

TEST(MemoTest, ComputesEachKeyOnceAndKeepsItsOwnCopyOfRawKeys)
{
    Memo<QByteArray, QByteArray> memo;
    int computed = 0;
    const auto upper = [&](const QByteArray &key) {
        return memo.get(key, [&] {
            ++computed;
            return key.toUpper();
        });
    };
    std::string buffer = "abc";
    EXPECT_EQ(upper(QByteArray::fromRawData(buffer.data(), qsizetype(buffer.size()))), "ABC");
    buffer = "xyz"; // the raw key's bytes change under the memo
    EXPECT_EQ(upper(QByteArray::fromRawData(buffer.data(), qsizetype(buffer.size()))), "XYZ");
    EXPECT_EQ(upper("abc"), "ABC");
    EXPECT_EQ(upper("abc"), "ABC");
    EXPECT_EQ(upper("xyz"), "XYZ");
    EXPECT_EQ(computed, 2);
}

// Rows in time order repeat the key of the row before: it answers as any other key, also while
// the memo grows and moves its entries.
TEST(MemoTest, TheKeyOfTheCallBeforeAnswersAsTheMemoGrows)
{
    Memo<QByteArray, int> memo;
    int computed = 0;
    for (int key = 0; key < 1000; ++key) {
        const QByteArray text = QByteArray::number(key);
        const auto compute = [&] {
            ++computed;
            return key;
        };
        ASSERT_EQ(memo.get(text, compute), key);
        ASSERT_EQ(memo.get(text, compute), key) << "the key of the call before";
    }
    EXPECT_EQ(computed, 1000);
}

TEST(MemoTest, ACopyAnswersFromItsOwnEntries)
{
    auto original = std::make_unique<Memo<QByteArray, QByteArray>>();
    original->get("abc", [] { return QByteArray("ABC"); });
    Memo<QByteArray, QByteArray> copy = *original;
    original.reset();
    EXPECT_EQ(copy.get("abc", [] { return QByteArray("read again"); }), "ABC");
}

TEST(MemoTest, ForgetsAllPastItsLimitAndStillAnswers)
{
    Memo<int, int> memo;
    int computed = 0;
    const auto twice = [&](int key) {
        return memo.get(key, [&] {
            ++computed;
            return key * 2;
        });
    };
    constexpr int limit = 100000;
    for (int key = 0; key < limit; ++key)
        twice(key);
    EXPECT_EQ(twice(limit), 2 * limit); // the memo starts afresh here
    EXPECT_EQ(twice(0), 0);
    EXPECT_EQ(twice(limit), 2 * limit);
    EXPECT_EQ(computed, limit + 2);
}

} // namespace
} // namespace qlon
