#pragma once

#include <QString>

#include <functional>

namespace qlon {

// Plays a sound file in the background, through the desktop's sound server or ALSA: a file that
// isn't there, or a machine without a player, stays silent. Nothing waits for it.
void PlaySound(const QString &hostPath);

// Puts another player in the system's place, such as a test's; none gives the system's back.
void SetSoundPlayer(std::function<void(const QString &hostPath)> player);

} // namespace qlon
