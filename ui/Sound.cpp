#include "ui/Sound.h"

#include "core/HostPath.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

namespace qlon {

namespace {

std::function<void(const QString &)> &soundPlayer()
{
    static std::function<void(const QString &)> player;
    return player;
}

void playThroughTheSystem(const QString &hostPath)
{
#ifdef Q_OS_WIN
    QProcess::startDetached(QStringLiteral("powershell"),
        {QStringLiteral("-NoProfile"), QStringLiteral("-Command"),
            QStringLiteral("(New-Object Media.SoundPlayer '%1').PlaySync()").arg(hostPath)});
#else
    for (const QString &player : {QStringLiteral("paplay"), QStringLiteral("pw-play"), QStringLiteral("aplay")}) {
        if (!QStandardPaths::findExecutable(player).isEmpty()) {
            QProcess::startDetached(
                player, player == QLatin1String("aplay") ? QStringList{QStringLiteral("-q"), hostPath} : QStringList{hostPath});
            return;
        }
    }
#endif
}

} // namespace

void PlaySound(const QString &hostPath)
{
    if (!FileExists(hostPath))
        return;
    if (soundPlayer())
        soundPlayer()(hostPath);
    else
        playThroughTheSystem(hostPath);
}

void SetSoundPlayer(std::function<void(const QString &hostPath)> player)
{
    soundPlayer() = std::move(player);
}

} // namespace qlon
