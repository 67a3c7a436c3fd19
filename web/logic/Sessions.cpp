#include "web/logic/Sessions.h"

#include <sodium.h>

namespace qlon::web {

QString Sessions::RandomToken()
{
    unsigned char bytes[32];
    // randombytes_buf needs no sodium_init: it reads the kernel's source directly.
    randombytes_buf(bytes, sizeof bytes);
    return QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(bytes), sizeof bytes).toHex());
}

Session Sessions::open(const QString &name, Role role, Moment now)
{
    const Session session{RandomToken(), RandomToken(), name, role, now};
    const std::lock_guard lock(m_mutex);
    // Expired sessions go when a new one comes, so that the table never grows without bound.
    m_sessions.removeIf([now](const auto &entry) { return now - entry.value().lastSeen > idleLimit; });
    m_sessions.insert(session.id, session);
    return session;
}

std::optional<Session> Sessions::find(const QString &id, Moment now)
{
    const std::lock_guard lock(m_mutex);
    const auto session = m_sessions.find(id);
    if (session == m_sessions.end())
        return std::nullopt;
    if (now - session->lastSeen > idleLimit) {
        m_sessions.erase(session);
        return std::nullopt;
    }
    session->lastSeen = now;
    return *session;
}

void Sessions::close(const QString &id)
{
    const std::lock_guard lock(m_mutex);
    m_sessions.remove(id);
}

} // namespace qlon::web
