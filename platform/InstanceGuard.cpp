#include "platform/InstanceGuard.h"

#include "platform/FileLock.h"
#include "platform/PathMap.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace qlon {

namespace {

// The test comes before the configuration is read, so the site's data root isn't known yet: the
// lock lies beside the configuration, in the folder every site has on the share.
const QString siteLockPath = QStringLiteral("C:\\Quillon\\Temp\\qlon.lock");

// Where a site's Temp folder can't be written: a lock of this machine's, keyed on the site's real
// folder, so that a link to it or another temp folder names the same lock.
QString machineLockPath(const PathMap &sitePaths)
{
    const QFileInfo site(sitePaths.folderOf(QLatin1Char('C')));
    const QString realSite = site.exists() ? site.canonicalFilePath() : QDir::cleanPath(site.absoluteFilePath());
    const QByteArray key = QCryptographicHash::hash(realSite.toUtf8(), QCryptographicHash::Sha1).toHex();
    return QDir::temp().filePath(QStringLiteral("qlon-listbuilder-") + QString::fromLatin1(key.left(16)) + QStringLiteral(".lock"));
}

} // namespace

InstanceGuard::InstanceGuard(const PathMap &sitePaths)
    : m_lock(sitePaths.toHost(siteLockPath))
{
    if (!m_lock.open(QIODevice::ReadWrite)) {
        m_lock.setFileName(machineLockPath(sitePaths));
        m_lock.open(QIODevice::ReadWrite);
    }
    // A lock that can't be made anywhere never keeps the program from starting.
    m_claimed = !m_lock.isOpen() || FileLock::lockWhole(m_lock);
}

} // namespace qlon

namespace qlon {

bool AnotherInstanceRuns()
{
    static const InstanceGuard guard(SitePaths());
    return guard.anotherInstanceRuns();
}

} // namespace qlon
