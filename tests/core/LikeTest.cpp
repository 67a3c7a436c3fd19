#include "core/Like.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(LikeTest, PatternsMatchAsTheDataEngineMatchedThem)
{
    const struct
    {
        const char *text;
        const char *pattern;
        bool matches;
    } cases[] = {
        {"1000", "*10*", true},
        {"2100", "*10*", true},
        {"1200", "*10*", false},
        {"", "*", true},
        {"ab", "a", false},
        {"abc", "A?C", true},
        {"\xe9t\xe9", "\xc9T\xc9", true},
        {"a1c", "a#c", true},
        {"abc", "a#c", false},
        {"b", "[a-c]", true},
        {"d", "[a-c]", false},
        {"d", "[!a-c]", true},
        {"*", "[*]", true},
        {"x", "[*]", false},
        {"x", "[x", false},
        {"a-b", "a[-]b", true},
        {"1002", "*1002*", true},
        {"10020", "1002", false},
    };
    for (const auto &test : cases)
        EXPECT_EQ(MatchesLike(test.text, test.pattern), test.matches) << test.text << " LIKE " << test.pattern;
}

// "*part*" is searched for directly; "*part**", which means the same, takes the general walk.
TEST(LikeTest, ASearchForAPartFindsWhatTheGeneralWalkFinds)
{
    const char *const texts[] = {"", "1", "10", "1017", "x1017", "10107", "101", "ABc\xe9", "abC\xc9x", "a?b", "a#1"};
    const char *const parts[] = {"", "1", "10", "017", "1017", "ab", "BC\xc9", "\xe9", "a!b", "-"};
    for (const char *text : texts) {
        for (const char *part : parts) {
            const QByteArray pattern = '*' + QByteArray(part) + '*';
            EXPECT_EQ(MatchesLike(text, pattern), MatchesLike(text, pattern + '*')) << text << " LIKE " << pattern.constData();
        }
    }
    EXPECT_TRUE(MatchesLike("ab\xe9", "*B\xc9*"));
    EXPECT_FALSE(MatchesLike("1010", "*1017*"));
}

} // namespace
} // namespace qlon
