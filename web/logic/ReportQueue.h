#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace qlon::web {

// One run of the report command: its words, and the file it writes in place of its figures.
struct ReportJob
{
    enum class File { None, Csv, Pdf };
    QStringList arguments;
    File file = File::None;
};

// What a run gave: its status (-1 when it crashed or ran out of time), its figures or its file,
// and its standard error, which goes to the log and never to a browser.
struct ReportOutcome
{
    int status = -1;
    bool timedOut = false;
    QByteArray output;
    QString log;
};

// The reports of one site, run one at a time in the order they came, by a thread of the queue's
// own. Each job has a key, so that a page that asks again finds its job waiting, running or done;
// done jobs are kept a while for the pages that sort or download them.
class ReportQueue
{
public:
    using Runner = std::function<ReportOutcome(const ReportJob &job)>;

    struct State
    {
        enum class Phase { Waiting, Running, Done, Full };
        Phase phase = Phase::Full;
        int ahead = 0; // the reports to run before this one, while waiting
        std::shared_ptr<const ReportOutcome> outcome; // when done
    };

    explicit ReportQueue(Runner runner, int longestQueue = 16, std::chrono::seconds kept = std::chrono::minutes(10));
    ~ReportQueue();
    ReportQueue(const ReportQueue &) = delete;
    ReportQueue &operator=(const ReportQueue &) = delete;

    // The job of the key, queued now unless it is known; Full when too many wait.
    State submit(const QString &key, const ReportJob &job);
    // Waits up to `limit` for the job of the key to end; its state then.
    State await(const QString &key, std::chrono::milliseconds limit);

private:
    struct Entry
    {
        ReportJob job;
        std::shared_ptr<const ReportOutcome> outcome;
        std::chrono::steady_clock::time_point ended;
    };

    State stateOf(const QString &key) const;
    void dropOldJobs();
    void work();

    Runner m_runner;
    const int m_longestQueue;
    const std::chrono::seconds m_kept;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    QHash<QString, std::shared_ptr<Entry>> m_entries;
    std::deque<QString> m_waiting;
    QString m_running;
    bool m_stopping = false;
    std::thread m_worker;
};

} // namespace qlon::web
