#pragma once

#include "tests/support/Printers.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace qlon::test {

// A temporary folder that drive C: stands for while the object lives, with helpers to lay
// files into it by their site paths.
class TempSite
{
public:
    TempSite();
    ~TempSite();

    QString driveFolder() const { return m_folder.path(); }
    // The host path of a path below the drive folder, such as "Quillon/data/Departments.dat".
    QString hostPath(const QString &relative) const;
    // Writes the bytes, making the folders on the way.
    QString write(const QString &relative, const QByteArray &bytes) const;
    QByteArray read(const QString &relative) const;

private:
    QTemporaryDir m_folder;
};

// The paths of the files below the folder, relative to it, sorted.
QStringList FilesBelow(const QString &folder);

} // namespace qlon::test
