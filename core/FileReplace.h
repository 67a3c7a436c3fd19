#pragma once

#include <QByteArrayView>
#include <QString>

namespace qlon {

// Whole-file saves of the stations' files. A crash or a power cut in the middle leaves the old
// file or the new one, never a mixture or an empty file: the bytes go to a temporary file in the
// same folder, are synced to disk and renamed over the file. Where the share refuses the rename,
// the file is written in place while a whole copy of the old file stands beside it.
// A file a station holds, or one that may not be written, fails with "Permission denied" and is
// left as it was; a missing folder fails with "Path not found".
void ReplaceFile(const QString &hostPath, QByteArrayView bytes);

// Where the rename is refused: the old file is first copied whole to CopyBesideOf(hostPath),
// then overwritten in place and synced, and the copy removed. A copy already there is what an
// interrupted save left, and it is kept as it is until a save completes.
void ReplaceInPlaceKeepingCopy(const QString &hostPath, QByteArrayView bytes);
QString CopyBesideOf(const QString &hostPath);

} // namespace qlon
