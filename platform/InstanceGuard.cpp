#include "platform/InstanceGuard.h"

#include <QCryptographicHash>
#include <QDir>

namespace qlon {

namespace {
QString lockPathFor(const QString &siteFolder)
{
    const QByteArray key = QCryptographicHash::hash(QDir::cleanPath(siteFolder).toUtf8(), QCryptographicHash::Sha1).toHex();
    return QDir::temp().filePath(QStringLiteral("qlon-listbuilder-") + QString::fromLatin1(key.left(16)) + QStringLiteral(".lock"));
}
} // namespace

InstanceGuard::InstanceGuard(const QString &siteFolder)
    : m_lock(lockPathFor(siteFolder))
{
    m_lock.setStaleLockTime(0);
    m_claimed = m_lock.tryLock(0);
}

} // namespace qlon

#include "platform/PathMap.h"

namespace qlon {

bool AnotherInstanceRuns()
{
    static const InstanceGuard guard(SitePaths().folderOf(QLatin1Char('C')));
    return guard.anotherInstanceRuns();
}

} // namespace qlon
