#pragma once

#include <httplib.h>

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace qlon::web {

// The server's workers, each serving one connection at a time, and a server that takes no more
// connections than it has workers: while every worker is busy, taking a connection waits for one
// to free. So the program holds its workers' connections and the one it has in hand; further
// clients wait in the system's listen backlog, which refuses them once full, instead of in a queue
// of the program's that grows without bound.
class ConnectionPool : public httplib::TaskQueue
{
public:
    explicit ConnectionPool(std::size_t workers);
    ~ConnectionPool() override;
    ConnectionPool(const ConnectionPool &) = delete;
    ConnectionPool &operator=(const ConnectionPool &) = delete;

    void enqueue(std::function<void()> connection) override;
    void shutdown() override;

private:
    void work();

    std::size_t m_size;
    std::size_t m_busy = 0;
    bool m_ending = false;
    std::deque<std::function<void()>> m_connections;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::thread> m_workers;
};

} // namespace qlon::web
