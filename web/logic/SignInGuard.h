#pragma once

#include "web/logic/Sessions.h"

#include <QHash>
#include <QString>

#include <mutex>

namespace qlon::web {

// Locks out a name or an address after five failed sign-ins in a row: for a minute, then for
// twice as long after each further five, up to a day. A success for the name clears the name's
// count and the address's.
class SignInGuard
{
public:
    static constexpr int failuresBeforeLock = 5;

    // True while the name or the address is locked out.
    bool locked(const QString &name, const QString &address, Moment now);
    void failed(const QString &name, const QString &address, Moment now);
    void succeeded(const QString &name, const QString &address);

    struct Record
    {
        int failures = 0;
        int locks = 0; // how many times the record has been locked: each lock lasts twice the last
        Moment lockedUntil;
    };

private:
    void failedOn(Record &record, Moment now);

    std::mutex m_mutex;
    QHash<QString, Record> m_names;
    QHash<QString, Record> m_addresses;
};

} // namespace qlon::web
