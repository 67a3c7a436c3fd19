#pragma once

#include <QString>

namespace qlon {

// What moves when a file is written, read without opening it: closing a file that SQLite has open
// would drop the process's locks on it.
struct FileStamp
{
    qint64 size = -1; // -1 for a file that isn't there
    qint64 modified = 0; // nanoseconds where the platform tells them

    bool operator==(const FileStamp &) const = default;
};

FileStamp StampOf(const QString &hostPath);

} // namespace qlon
