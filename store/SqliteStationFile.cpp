#include "store/SqliteStationFile.h"

#include "platform/FileLock.h"
#include "platform/FileStamp.h"

#include <QFileInfo>
#include <QUrl>

#include <sqlite3.h>

namespace qlon {
namespace {

// Bytes 18 and 19 of the header, the file format's write and read versions, are 2 in WAL mode.
constexpr qint64 headerSize = 20;

bool isWalHeader(const QByteArray &header)
{
    return header.mid(18, 2) == QByteArrayView("\x02\x02", 2);
}

} // namespace

SqliteStationFile::SqliteStationFile(const QString &hostPath)
    : m_hostPath(hostPath)
{
}

// Read without opening the file, whose close would drop SQLite's locks on it.
SqliteStationFile::Stamp SqliteStationFile::stamp() const
{
    Stamp state;
    state.file = StampOf(m_hostPath);
    state.walBeside = QFileInfo::exists(m_hostPath + QStringLiteral("-wal"));
    state.shmBeside = QFileInfo::exists(m_hostPath + QStringLiteral("-shm"));
    return state;
}

// A locking read of a database in WAL mode creates the -wal and -shm files it lacks, and leaves
// them behind: only when both stand there does it read through them.
SqliteStationFile::Access SqliteStationFile::accessFor(const Stamp &state) const
{
    if (!m_walMode)
        return Access::Locking;
    if (state.walBeside && state.shmBeside)
        return Access::Locking;
    // A -wal file with commits in it but no -shm file is left by a station that ended without
    // closing the database: its next start folds them in, and until then they can't be read here.
    if (state.walBeside && QFileInfo(m_hostPath + QStringLiteral("-wal")).size() > 0)
        throw StationHeldError(QStringLiteral("The database's -wal file stands without its -shm file."), m_hostPath);
    return Access::Immutable;
}

SqliteDatabase SqliteStationFile::open()
{
    m_atOpen = stamp();
    m_walMode = isWalHeader(DatabaseHeader(m_hostPath, headerSize).value_or(QByteArray()));
    m_access = accessFor(m_atOpen);
    if (m_access == Access::Immutable) {
        const QString uri = QString::fromUtf8(QUrl::fromLocalFile(m_hostPath).toEncoded()) + QStringLiteral("?immutable=1");
        return OpenSqlite(uri, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_URI);
    }
    SqliteDatabase database = OpenSqlite(m_hostPath, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX);
    sqlite3_busy_timeout(database.get(), int(StationWait().count()));
    sqlite3_db_config(database.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    return database;
}

bool SqliteStationFile::needsReopening() const
{
    const Stamp now = stamp();
    if (m_access == Access::Immutable)
        return !(now == m_atOpen);
    return accessFor(now) != m_access;
}

void SqliteStationFile::checkRead() const
{
    if (m_access == Access::Immutable && !(stamp() == m_atOpen))
        throw ChangedWhileReadError(m_hostPath);
}

} // namespace qlon
