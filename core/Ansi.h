#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace qlon {

// The site's files hold text as Windows-1252 bytes, one byte a character. The program keeps
// those bytes as they are and turns them into Unicode only where a person reads them.
// The five bytes that Windows-1252 leaves undefined map to the control characters of the same
// number, so that every byte survives the trip to a screen and back.
QString FromAnsi(QByteArrayView bytes);
// Characters that Windows-1252 can't hold become "?".
QByteArray ToAnsi(QStringView text);

} // namespace qlon

namespace qlon {

// Upper case as the stations' platform makes it, letter by letter within Windows-1252.
QByteArray UpperAnsi(QByteArrayView bytes);
char UpperAnsi(char byte);

} // namespace qlon
