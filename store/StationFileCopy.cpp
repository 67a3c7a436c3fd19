#include "store/StationFileCopy.h"

#include "platform/FileLock.h"
#include "platform/FileStamp.h"
#include "store/SalesStore.h"

#include <QFile>
#include <QThread>

#include <cstring>
#include <optional>

namespace qlon {
namespace {

constexpr qint64 compareChunk = 1 << 20;
constexpr unsigned long settleMilliseconds = 50;

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
    const FileStamp before = StampOf(hostPath);
    QByteArray copy = file.readAll();
    // A station that was held up in the middle of writing a commit goes on within a moment.
    QThread::msleep(settleMilliseconds);
    if (copy.size() != before.size || !sameBytes(file, copy) || !(StampOf(hostPath) == before))
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
