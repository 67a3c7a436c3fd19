#include "core/DateWords.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

struct WordCase
{
    const char *today;
    const char *word;
    const char *expected; // empty: not a date word
};

class DateWordsTest : public ::testing::TestWithParam<WordCase>
{
};

TEST_P(DateWordsTest, NamesTheDayRelativeToToday)
{
    const WordCase &c = GetParam();
    const QDate today = QDate::fromString(QString::fromLatin1(c.today), Qt::ISODate);
    const QDate expected = QDate::fromString(QString::fromLatin1(c.expected), Qt::ISODate);
    EXPECT_EQ(DateFromWord(QString::fromLatin1(c.word), today), expected) << c.word << " on " << c.today;
}

INSTANTIATE_TEST_SUITE_P(AroundMonthAndYearEnds, DateWordsTest,
    ::testing::Values(WordCase{"2026-01-01", "today", "2026-01-01"}, WordCase{"2026-01-01", "Yesterday", "2025-12-31"},
        WordCase{"2026-03-01", "yesterday", "2026-02-28"}, WordCase{"2024-03-01", "today-1", "2024-02-29"},
        WordCase{"2026-01-05", "today-10", "2025-12-26"}, WordCase{"2026-01-05", "today-0", "2026-01-05"},
        // 2026-01-01 is a Thursday; a Monday is its own week's Monday.
        WordCase{"2026-01-01", "monday", "2025-12-29"}, WordCase{"2025-12-29", "monday", "2025-12-29"},
        WordCase{"2026-01-04", "monday", "2025-12-29"},
        WordCase{"2026-01-04", "last-monday", "2025-12-22"}, WordCase{"2026-01-15", "first-of-month", "2026-01-01"},
        WordCase{"2026-01-15", "first-of-last-month", "2025-12-01"}, WordCase{"2026-01-15", "last-of-last-month", "2025-12-31"},
        WordCase{"2024-03-31", "last-of-last-month", "2024-02-29"}, WordCase{"2026-03-31", "first-of-last-month", "2026-02-01"},
        WordCase{"2026-01-15", "today-x", ""}, WordCase{"2026-01-15", "today--1", ""}, WordCase{"2026-01-15", "tomorrow", ""},
        WordCase{"2026-01-15", "01/15/2026", ""}));

} // namespace
} // namespace qlon
