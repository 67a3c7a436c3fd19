#include "rebuild/LatestProgress.h"

#include <QLabel>
#include <QProgressBar>

#include <gtest/gtest.h>

#include <variant>

namespace qlon {
namespace {

struct Range
{
    int minimum;
    int maximum;
};
struct Value
{
    int value;
};
struct Count
{
    int count;
};
// The screen yields: the widgets are painted as they stand.
struct Pause
{
};
using Step = std::variant<Range, Value, Count, Pause>;

// The widgets a run drives, each change made on them at once.
struct Widgets
{
    QProgressBar bar;
    QLabel count{QStringLiteral("000")};

    void apply(const Step &step)
    {
        if (const auto *range = std::get_if<Range>(&step))
            bar.setRange(range->minimum, range->maximum);
        else if (const auto *value = std::get_if<Value>(&step))
            bar.setValue(value->value);
        else if (const auto *shown = std::get_if<Count>(&step))
            count.setText(QString::number(shown->count));
    }
};

void apply(LatestProgress &progress, const Step &step)
{
    if (const auto *range = std::get_if<Range>(&step))
        progress.setRange(range->minimum, range->maximum);
    else if (const auto *value = std::get_if<Value>(&step))
        progress.setValue(value->value);
    else if (const auto *shown = std::get_if<Count>(&step))
        progress.setCount(shown->count);
    else
        progress.show();
}

// At each pause the widgets fed through LatestProgress stand as those changed at every step,
// a range that leaves the last value outside it included.
TEST(LatestProgressTest, EachPauseShowsWhatChangingTheWidgetsAtOnceShows)
{
    const Step steps[] = {Range{0, 100}, Value{0}, Range{0, 52}, Value{0}, Pause{}, Value{1}, Value{2}, Count{1}, Count{2}, Pause{},
        Value{51}, Count{3}, Range{0, 1001}, Value{1}, Value{2}, Pause{}, Value{1000}, Count{9}, Range{0, 11}, Pause{}, Value{4}, Pause{},
        Pause{}};
    Widgets atOnce;
    Widgets paced;
    LatestProgress progress(&paced.bar, &paced.count);
    int pause = 0;
    for (const Step &step : steps) {
        atOnce.apply(step);
        apply(progress, step);
        if (!std::holds_alternative<Pause>(step))
            continue;
        ++pause;
        EXPECT_EQ(paced.bar.minimum(), atOnce.bar.minimum()) << "pause " << pause;
        EXPECT_EQ(paced.bar.maximum(), atOnce.bar.maximum()) << "pause " << pause;
        EXPECT_EQ(paced.bar.value(), atOnce.bar.value()) << "pause " << pause;
        EXPECT_EQ(paced.count.text(), atOnce.count.text()) << "pause " << pause;
    }
    EXPECT_EQ(pause, 6);
}

} // namespace
} // namespace qlon
