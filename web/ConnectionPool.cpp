#include "web/ConnectionPool.h"

namespace qlon::web {

ConnectionPool::ConnectionPool(std::size_t workers)
    : m_size(workers)
{
    m_workers.reserve(workers);
    for (std::size_t index = 0; index < workers; ++index)
        m_workers.emplace_back([this] { work(); });
}

ConnectionPool::~ConnectionPool()
{
    shutdown();
}

void ConnectionPool::enqueue(std::function<void()> connection)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_busy < m_size; });
    ++m_busy;
    m_connections.push_back(std::move(connection));
    m_changed.notify_all();
}

void ConnectionPool::shutdown()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_all();
    for (std::thread &worker : m_workers) {
        if (worker.joinable())
            worker.join();
    }
}

void ConnectionPool::work()
{
    for (;;) {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_ending || !m_connections.empty(); });
        if (m_connections.empty())
            return;
        std::function<void()> connection = std::move(m_connections.front());
        m_connections.pop_front();
        lock.unlock();
        connection();
        lock.lock();
        --m_busy;
        m_changed.notify_all();
    }
}

} // namespace qlon::web
