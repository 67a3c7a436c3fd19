#pragma once

#include "platform/FileStamp.h"
#include "store/SqliteSalesStore.h"

#include <QByteArray>
#include <QString>

namespace qlon {

// The stations' SQLite file, read the way that leaves them undisturbed and sees one committed state
// of it. A connection reads through SQLite's own locks, read-only, waiting a station's moment while
// one commits and never checkpointing into the file: each statement is one read transaction. A
// database in WAL mode is read through the -wal and -shm files that the stations keep beside it
// while one has it open. When none has it open, those files are missing and a locking read would
// create them: the file is then read as immutable, creating nothing, and each read is checked
// afterwards against the state the file had before it.
class SqliteStationFile
{
public:
    explicit SqliteStationFile(const QString &hostPath);

    // A new connection in the way the file's state asks for now.
    SqliteDatabase open();
    // Whether the file's state has changed so that the connection open() gave no longer serves:
    // an immutable connection keeps what it read of the file, and serves only the state it was
    // opened on.
    bool needsReopening() const;
    // After a read: an immutable read of a file that changed meanwhile raises an error, which names
    // the file and which no region passing over failures passes over; trying again reads the new state.
    void checkRead() const;

private:
    // What tells one state of the file from another, without a lock.
    struct Stamp
    {
        FileStamp file;
        bool walBeside = false;
        bool shmBeside = false;

        bool operator==(const Stamp &) const = default;
    };
    enum class Access { Locking, Immutable };

    Stamp stamp() const;
    Access accessFor(const Stamp &state) const;

    QString m_hostPath;
    bool m_walMode = false;
    Access m_access = Access::Locking;
    Stamp m_atOpen;
};

} // namespace qlon
