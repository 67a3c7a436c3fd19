#pragma once

#include <QByteArrayView>
#include <QString>

namespace qlon {

// The host path of a site path such as "c:\Quillon\data\Departments.dat", through the
// program's drive mapping.
QString HostPath(QByteArrayView sitePath);

} // namespace qlon
