#pragma once

#include <optional>

class QLabel;
class QProgressBar;

namespace qlon {

// The progress bar and the item count of a run that changes them at every record. The latest
// values reach the widgets when the screen is about to yield, the only moment they can be
// painted: a progress bar otherwise repaints itself at once on a new value.
class LatestProgress
{
public:
    LatestProgress(QProgressBar *bar, QLabel *count);

    // A new range reaches the bar at once, after the value that came before it.
    void setRange(int minimum, int maximum);
    void setValue(int value);
    void setCount(int count);
    // Hands the latest value and count to the widgets.
    void show();

private:
    QProgressBar *m_bar;
    QLabel *m_count;
    std::optional<int> m_latestValue;
    std::optional<int> m_latestCount;
};

} // namespace qlon
