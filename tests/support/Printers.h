#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <ostream>

// Readable test failures for Qt's texts.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList &texts, std::ostream *out)
{
    *out << '[' << texts.join(QStringLiteral("\", \"")).prepend(QLatin1Char('"')).append(QLatin1Char('"')).toStdString() << ']';
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes.toStdString() << '"';
}
