#include "web/logic/ReportQueue.h"

#include <algorithm>

namespace qlon::web {

namespace {

constexpr qsizetype keptJobs = 64;

} // namespace

ReportQueue::ReportQueue(Runner runner, int longestQueue, std::chrono::seconds kept)
    : m_runner(std::move(runner))
    , m_longestQueue(longestQueue)
    , m_kept(kept)
    , m_worker([this] { work(); })
{
}

ReportQueue::~ReportQueue()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_all();
    m_worker.join();
}

ReportQueue::State ReportQueue::submit(const QString &key, const ReportJob &job)
{
    std::unique_lock lock(m_mutex);
    dropOldJobs();
    if (!m_entries.contains(key)) {
        if (qsizetype(m_waiting.size()) >= m_longestQueue)
            return {};
        m_entries.insert(key, std::make_shared<Entry>(Entry{job, nullptr, {}}));
        m_waiting.push_back(key);
        m_changed.notify_all();
    }
    return stateOf(key);
}

ReportQueue::State ReportQueue::await(const QString &key, std::chrono::milliseconds limit)
{
    std::unique_lock lock(m_mutex);
    const std::shared_ptr<Entry> entry = m_entries.value(key);
    if (!entry)
        return {};
    m_changed.wait_for(lock, limit, [&entry] { return entry->outcome != nullptr; });
    return stateOf(key);
}

ReportQueue::State ReportQueue::stateOf(const QString &key) const
{
    const std::shared_ptr<Entry> entry = m_entries.value(key);
    if (entry->outcome)
        return {State::Phase::Done, 0, entry->outcome};
    if (key == m_running)
        return {State::Phase::Running, 0, nullptr};
    const auto place = std::find(m_waiting.begin(), m_waiting.end(), key);
    const int running = m_running.isEmpty() ? 0 : 1;
    return {State::Phase::Waiting, int(place - m_waiting.begin()) + running, nullptr};
}

void ReportQueue::dropOldJobs()
{
    const auto now = std::chrono::steady_clock::now();
    m_entries.removeIf([&](const auto &item) { return item.value()->outcome && now - item.value()->ended > m_kept; });
    // However many come within the time kept, the oldest done jobs make room.
    while (m_entries.size() > keptJobs) {
        auto oldest = m_entries.end();
        for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry) {
            if (entry.value()->outcome && (oldest == m_entries.end() || entry.value()->ended < oldest.value()->ended))
                oldest = entry;
        }
        if (oldest == m_entries.end())
            return;
        m_entries.erase(oldest);
    }
}

void ReportQueue::work()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_stopping || !m_waiting.empty(); });
        if (m_stopping)
            return;
        m_running = m_waiting.front();
        m_waiting.pop_front();
        const std::shared_ptr<Entry> entry = m_entries.value(m_running);
        lock.unlock();
        auto outcome = std::make_shared<const ReportOutcome>(m_runner(entry->job));
        lock.lock();
        entry->outcome = std::move(outcome);
        entry->ended = std::chrono::steady_clock::now();
        m_running.clear();
        m_changed.notify_all();
    }
}

} // namespace qlon::web
