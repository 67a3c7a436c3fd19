#include "store/StationFileCopy.h"

#include "platform/FileLock.h"
#include "store/SalesStore.h"

#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cstring>
#include <optional>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#endif

namespace qlon {
namespace {

constexpr qint64 compareChunk = 1 << 20;
constexpr unsigned long settleMilliseconds = 50;

// What moves when a file is written, read without opening it.
struct FileStamp
{
    qint64 size = -1;
    qint64 modified = 0; // nanoseconds where the platform tells them

    bool operator==(const FileStamp &) const = default;
};

FileStamp stampOf(const QString &hostPath)
{
#ifdef Q_OS_WIN
    const QFileInfo info(hostPath);
    return {info.size(), info.lastModified().toMSecsSinceEpoch() * 1000000};
#else
    struct stat status = {};
    if (stat(QFile::encodeName(hostPath).constData(), &status) != 0)
        return {};
    return {qint64(status.st_size), qint64(status.st_mtim.tv_sec) * 1000000000 + status.st_mtim.tv_nsec};
#endif
}

bool sameBytes(QFile &file, const QByteArray &copy)
{
    if (!file.seek(0))
        return false;
    QByteArray chunk;
    for (qint64 at = 0; at < copy.size(); at += chunk.size()) {
        chunk = file.read(compareChunk);
        if (chunk.isEmpty() || std::memcmp(chunk.constData(), copy.constData() + at, std::size_t(chunk.size())) != 0)
            return false;
    }
    return file.atEnd();
}

enum class Attempt { Unopened, Changed };

std::optional<QByteArray> settledCopy(const QString &hostPath, Attempt &outcome)
{
    QFile file(hostPath);
    outcome = Attempt::Unopened;
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    outcome = Attempt::Changed;
    const FileStamp before = stampOf(hostPath);
    QByteArray copy = file.readAll();
    // A station that was held up in the middle of writing a commit goes on within a moment.
    QThread::msleep(settleMilliseconds);
    if (copy.size() != before.size || !sameBytes(file, copy) || !(stampOf(hostPath) == before))
        return std::nullopt;
    return copy;
}

} // namespace

QByteArray StationFileCopy(const QString &hostPath)
{
    QByteArray copy;
    Attempt outcome = Attempt::Unopened;
    const bool copied = RetryForStationWait([&] {
        std::optional<QByteArray> attempt = settledCopy(hostPath, outcome);
        if (attempt)
            copy = std::move(*attempt);
        return attempt.has_value();
    });
    if (copied)
        return copy;
    if (outcome == Attempt::Unopened)
        throw ExclusivelyOpenedError(hostPath, hostPath);
    throw ChangedWhileReadError(hostPath);
}

} // namespace qlon
