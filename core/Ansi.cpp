#include "core/Ansi.h"

#include <array>

namespace qlon {

namespace {

// Unicode of the bytes 0x80 to 0x9F; the rest of the code page equals Latin-1.
constexpr std::array<char16_t, 32> upperControlRange = {
    0x20AC,
    0x0081,
    0x201A,
    0x0192,
    0x201E,
    0x2026,
    0x2020,
    0x2021,
    0x02C6,
    0x2030,
    0x0160,
    0x2039,
    0x0152,
    0x008D,
    0x017D,
    0x008F,
    0x0090,
    0x2018,
    0x2019,
    0x201C,
    0x201D,
    0x2022,
    0x2013,
    0x2014,
    0x02DC,
    0x2122,
    0x0161,
    0x203A,
    0x0153,
    0x009D,
    0x017E,
    0x0178,
};

char16_t unicodeOf(unsigned char byte)
{
    if (byte >= 0x80 && byte <= 0x9F)
        return upperControlRange[byte - 0x80];
    return byte;
}

char byteOf(char16_t unicode)
{
    if (unicode < 0x80 || (unicode >= 0xA0 && unicode <= 0xFF))
        return static_cast<char>(unicode);
    for (std::size_t index = 0; index < upperControlRange.size(); ++index) {
        if (upperControlRange[index] == unicode)
            return static_cast<char>(0x80 + index);
    }
    return '?';
}

} // namespace

QString FromAnsi(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype index = 0; index < bytes.size(); ++index)
        text[index] = QChar(unicodeOf(static_cast<unsigned char>(bytes[index])));
    return text;
}

QByteArray ToAnsi(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    for (qsizetype index = 0; index < text.size(); ++index)
        bytes[index] = byteOf(text[index].unicode());
    return bytes;
}

} // namespace qlon

namespace qlon {

namespace {
char upperOf(unsigned char byte)
{
    if ((byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7))
        return static_cast<char>(byte - 0x20);
    switch (byte) {
    case 0x9A: return char(0x8A); // š
    case 0x9C: return char(0x8C); // œ
    case 0x9E: return char(0x8E); // ž
    case 0xFF: return char(0x9F); // ÿ
    default: return static_cast<char>(byte);
    }
}
} // namespace

QByteArray UpperAnsi(QByteArrayView bytes)
{
    QByteArray upper(bytes.size(), Qt::Uninitialized);
    for (qsizetype index = 0; index < bytes.size(); ++index)
        upper[index] = UpperAnsi(bytes[index]);
    return upper;
}

char UpperAnsi(char byte)
{
    return upperOf(static_cast<unsigned char>(byte));
}

} // namespace qlon
