#pragma once

#include <QFile>

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
};

} // namespace qlon
