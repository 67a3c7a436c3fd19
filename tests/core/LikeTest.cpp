#include "core/Like.h"

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

} // namespace
} // namespace qlon
