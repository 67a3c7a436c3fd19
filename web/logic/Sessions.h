#pragma once

#include "web/logic/Accounts.h"

#include <QHash>
#include <QString>

#include <chrono>
#include <mutex>
#include <optional>

namespace qlon::web {

using Moment = std::chrono::steady_clock::time_point;

struct Session
{
    QString id; // 64 hex digits: 256 random bits
    QString csrfToken; // sent back by every form that changes something
    QString name;
    Role role = Role::Viewer;
    Moment lastSeen;
};

// The signed-in browsers. A session ends on sign-out or after twelve hours without a request.
// Safe to use from the server's workers at once.
class Sessions
{
public:
    static constexpr std::chrono::hours idleLimit{12};

    Session open(const QString &name, Role role, Moment now);
    // The live session of the id, its idle time restarted; none for an unknown or expired id.
    std::optional<Session> find(const QString &id, Moment now);
    void close(const QString &id);

    // 256 random bits as hex digits.
    static QString RandomToken();

private:
    std::mutex m_mutex;
    QHash<QString, Session> m_sessions;
};

} // namespace qlon::web
