#include "web/logic/SignInGuard.h"

#include <algorithm>

namespace qlon::web {

namespace {

constexpr std::chrono::seconds firstLock{60};
constexpr std::chrono::hours longestLock{24};
// Names and addresses tried at random can't grow the tables without bound: past this size, the
// records of those not locked out go.
constexpr qsizetype largestTable = 10000;

void prune(QHash<QString, SignInGuard::Record> &records, Moment now)
{
    if (records.size() > largestTable)
        records.removeIf([now](const auto &record) { return record.value().lockedUntil <= now; });
}

} // namespace

bool SignInGuard::locked(const QString &name, const QString &address, Moment now)
{
    const std::lock_guard lock(m_mutex);
    return m_names.value(name).lockedUntil > now || m_addresses.value(address).lockedUntil > now;
}

void SignInGuard::failed(const QString &name, const QString &address, Moment now)
{
    const std::lock_guard lock(m_mutex);
    prune(m_names, now);
    prune(m_addresses, now);
    failedOn(m_names[name], now);
    failedOn(m_addresses[address], now);
}

void SignInGuard::succeeded(const QString &name, const QString &address)
{
    const std::lock_guard lock(m_mutex);
    m_names.remove(name);
    m_addresses.remove(address);
}

void SignInGuard::failedOn(Record &record, Moment now)
{
    if (++record.failures < failuresBeforeLock)
        return;
    const auto length = std::min<std::chrono::seconds>(firstLock * (1LL << std::min(record.locks, 16)), longestLock);
    record.lockedUntil = now + length;
    record.failures = 0;
    ++record.locks;
}

} // namespace qlon::web
