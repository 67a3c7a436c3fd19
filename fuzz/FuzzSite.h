#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

namespace qlon::fuzz {

// A site folder for the fuzz targets, drive C: mapped to it: the input becomes the file at the
// site path, such as "Quillon/QlonINI.dat", and its host path comes back.
QString WriteSiteFile(const QString &relative, const uint8_t *data, size_t size);

// Runs a reader on the input; a failure the program reports (RuntimeError) is an expected end.
template<typename Reader>
int Survive(Reader &&reader)
{
    try {
        reader();
    } catch (const std::exception &) {
    }
    return 0;
}

} // namespace qlon::fuzz
