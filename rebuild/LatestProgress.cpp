#include "rebuild/LatestProgress.h"

#include <QLabel>
#include <QProgressBar>

namespace qlon {

LatestProgress::LatestProgress(QProgressBar *bar, QLabel *count)
    : m_bar(bar)
    , m_count(count)
{
}

void LatestProgress::setRange(int minimum, int maximum)
{
    show();
    m_bar->setRange(minimum, maximum);
}

void LatestProgress::setValue(int value)
{
    m_latestValue = value;
}

void LatestProgress::setCount(int count)
{
    m_latestCount = count;
}

void LatestProgress::show()
{
    if (m_latestValue)
        m_bar->setValue(*std::exchange(m_latestValue, std::nullopt));
    if (m_latestCount)
        m_count->setText(QString::number(*std::exchange(m_latestCount, std::nullopt)));
}

} // namespace qlon
