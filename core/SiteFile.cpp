#include "core/SiteFile.h"

#include "core/FileReplace.h"
#include "platform/FileLock.h"

#include <QDir>
#include <QFileInfo>

namespace qlon {

SiteFile::SiteFile(const QString &hostPath, QIODevice::OpenMode mode)
    : m_file(hostPath)
{
    if (!m_file.open(mode))
        failToOpen(mode);
}

SiteFile::SiteFile(const QString &hostPath)
    : m_file(hostPath)
{
    if (m_file.open(QIODevice::ReadWrite))
        return;
    if (!m_file.exists() || !m_file.open(QIODevice::ReadOnly))
        failToOpen(QIODevice::ReadWrite);
}

void SiteFile::failToOpen(QIODevice::OpenMode mode) const
{
    const QFileInfo info(m_file.fileName());
    if (!info.dir().exists())
        throw RuntimeError(RuntimeError::PathNotFound, info.filePath());
    if (!info.exists() && !mode.testFlag(QIODevice::WriteOnly))
        throw RuntimeError(RuntimeError::FileNotFound, info.filePath());
    if (m_file.error() == QFileDevice::OpenError && info.isDir())
        throw RuntimeError(RuntimeError::PathFileAccessError, info.filePath());
    throw RuntimeError(RuntimeError::PermissionDenied, info.filePath());
}

void SiteFile::LockAll()
{
    if (!FileLock::lockWholeWaiting(m_file))
        throw RuntimeError(RuntimeError::PermissionDenied, m_file.fileName()).heldElsewhere();
}

void SiteFile::UnlockAll()
{
    FileLock::unlockWhole(m_file);
}

void SiteFile::RefuseIfHeldElsewhere()
{
    if (FileLock::isLockedElsewhere(m_file))
        throw RuntimeError(RuntimeError::PermissionDenied, m_file.fileName());
}

} // namespace qlon

namespace qlon {

void FileCopy(const QString &fromHostPath, const QString &toHostPath)
{
    QFile source(fromHostPath);
    if (!source.open(QIODevice::ReadOnly))
        throw RuntimeError(RuntimeError::FileNotFound, fromHostPath);
    ReplaceFile(toHostPath, source.readAll());
}

} // namespace qlon
