#pragma once

#include "core/RuntimeError.h"

#include <QFile>

namespace qlon {

// An open file of the site: the common ground of record files and text files.
class SiteFile
{
public:
    virtual ~SiteFile() = default;
    SiteFile(const SiteFile &) = delete;
    SiteFile &operator=(const SiteFile &) = delete;

    // A lock on the whole file against all other access. A file held elsewhere is waited for a
    // moment, then fails with "Permission denied", which no region passing over failures passes over.
    void LockAll();
    void UnlockAll();
    // The platform's error when another open of the file holds a lock on it.
    void RefuseIfHeldElsewhere();

    qint64 size() const { return m_file.size(); }
    QString hostPath() const { return m_file.fileName(); }
    void close() { m_file.close(); }

protected:
    SiteFile(const QString &hostPath, QIODevice::OpenMode mode);
    // A random file opens for reading and writing, or for reading alone when that is all the
    // file allows; a missing file is created.
    explicit SiteFile(const QString &hostPath);

    QFile &file() { return m_file; }

private:
    [[noreturn]] void failToOpen(QIODevice::OpenMode mode) const;

    QFile m_file;
};

} // namespace qlon

namespace qlon {

// Copies a file byte for byte over the target, as the platform's file copy does, saving it as
// ReplaceFile does: a missing source fails with "File not found", a target held elsewhere with
// "Permission denied".
void FileCopy(const QString &fromHostPath, const QString &toHostPath);

} // namespace qlon
