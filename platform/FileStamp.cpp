#include "platform/FileStamp.h"

#include <QFile>
#include <QFileInfo>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#endif

namespace qlon {

FileStamp StampOf(const QString &hostPath)
{
#ifdef Q_OS_WIN
    const QFileInfo info(hostPath);
    if (!info.exists())
        return {};
    return {info.size(), info.lastModified().toMSecsSinceEpoch() * 1000000};
#else
    struct stat status = {};
    if (stat(QFile::encodeName(hostPath).constData(), &status) != 0)
        return {};
    return {qint64(status.st_size), qint64(status.st_mtim.tv_sec) * 1000000000 + status.st_mtim.tv_nsec};
#endif
}

} // namespace qlon
