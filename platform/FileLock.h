#pragma once

#include <QFile>

#include <chrono>
#include <functional>

namespace qlon {

// A lock on a whole open file, seen by every other process that locks the file, the
// point-of-sale stations' file server among them. It is tied to the open file: closing the
// file releases it.
class FileLock
{
public:
    // False when another holder has the file.
    static bool lockWhole(QFile &file);
    static void unlockWhole(QFile &file);
    // True when some other open of the file holds a lock on it.
    static bool isLockedElsewhere(QFile &file);
    // Tries again while the file is held, for as long as the program waits for a station.
    static bool lockWholeWaiting(QFile &file);
};

// How long the program waits for a file that a station holds, as a station's write takes a
// moment: a few seconds, after which the program gives up with the platform's error.
std::chrono::milliseconds StationWait();
// For tests that hold a file on purpose.
void SetStationWait(std::chrono::milliseconds wait);

// Calls the attempt until it succeeds or the station's wait has passed, with short pauses
// between: false when it never succeeded.
bool RetryForStationWait(const std::function<bool()> &attempt);

} // namespace qlon
