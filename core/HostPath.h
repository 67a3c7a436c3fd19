#pragma once

#include <QByteArrayView>
#include <QString>

namespace qlon {

// The host path of a site path such as "c:\Quillon\data\Departments.dat", through the
// program's drive mapping. A name holding a character that Windows refuses in file names (a
// NUL, a control character, < > " | ? * or a colon past the drive) raises "Bad file name or
// number": no file of another name is ever opened in its place.
QString HostPath(QByteArrayView sitePath);

// The site path that last gave this host path, so that an error can name the file as the site
// knows it; empty when no recent path gave it.
QByteArray SitePathOf(const QString &hostPath);

// Whether a file stands at the host path; a folder in its place counts as missing.
bool FileExists(const QString &hostPath);

} // namespace qlon
