#include "core/FileReplace.h"

#include "core/RuntimeError.h"
#include "platform/FileLock.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace qlon {

namespace {

[[noreturn]] void failToWrite(const QString &hostPath)
{
    if (!QFileInfo(hostPath).dir().exists())
        throw RuntimeError(RuntimeError::PathNotFound, hostPath);
    throw RuntimeError(RuntimeError::PermissionDenied, hostPath);
}

// What writing in place would refuse, the rename must refuse too: a file that may not be written,
// or one a station holds.
void refuseUnlessWritable(const QString &hostPath)
{
    QFile target(hostPath);
    if (target.exists() && (!target.open(QIODevice::ReadWrite) || FileLock::isLockedElsewhere(target)))
        throw RuntimeError(RuntimeError::PermissionDenied, hostPath);
}

// False when the share refused the rename; the temporary file is gone then. In a folder where no
// new file may be made the file is written in place, as it always was.
bool writeThroughRename(const QString &hostPath, QByteArrayView bytes)
{
    QSaveFile file(hostPath);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        failToWrite(hostPath);
    file.write(bytes.data(), bytes.size());
    if (file.commit())
        return true;
    if (file.error() != QFileDevice::RenameError)
        failToWrite(hostPath);
    return false;
}

void writeInPlace(const QString &hostPath, QByteArrayView bytes)
{
    QFile file(hostPath);
    if (!file.open(QIODevice::ReadWrite) || file.write(bytes.data(), bytes.size()) != bytes.size() || !file.resize(bytes.size()) ||
        !file.flush())
        failToWrite(hostPath);
#ifdef Q_OS_WIN
    _commit(file.handle());
#else
    fsync(file.handle());
#endif
}

QByteArray contentsOf(const QString &hostPath)
{
    QFile file(hostPath);
    if (!file.open(QIODevice::ReadOnly))
        failToWrite(hostPath);
    return file.readAll();
}

} // namespace

QString CopyBesideOf(const QString &hostPath)
{
    return hostPath + QStringLiteral(".qlon-old");
}

void ReplaceFile(const QString &hostPath, QByteArrayView bytes)
{
    refuseUnlessWritable(hostPath);
    if (writeThroughRename(hostPath, bytes))
        QFile::remove(CopyBesideOf(hostPath)); // an interrupted save's copy is older than what now stands
    else
        ReplaceInPlaceKeepingCopy(hostPath, bytes);
}

void ReplaceInPlaceKeepingCopy(const QString &hostPath, QByteArrayView bytes)
{
    const QString copy = CopyBesideOf(hostPath);
    if (QFile::exists(hostPath) && !QFile::exists(copy)) {
        const QByteArray old = contentsOf(hostPath);
        if (!writeThroughRename(copy, old))
            writeInPlace(copy, old);
    }
    writeInPlace(hostPath, bytes);
    QFile::remove(copy);
}

} // namespace qlon
