#pragma once

#include <QByteArray>
#include <QString>

namespace qlon {

// A station's file read whole into memory in one state, for a reader that takes no lock, as libmdb
// takes none on a Jet file: the copy is read, and after a moment in which a station part-way
// through a commit would go on writing, read once more and compared with the file; the file's size
// and modification time must not have moved in between. A station that writes without a pause
// leaves no such moment. A file that changed is
// read again until a copy holds, for as long as the program waits for a station; then the error
// names the file, and a later run can try again. A file that can't be opened (a station that holds
// it exclusively) is waited for the same way.
QByteArray StationFileCopy(const QString &hostPath);

} // namespace qlon
