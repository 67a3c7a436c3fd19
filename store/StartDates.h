#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace qlon {

// The two dates that the main screen starts with, as written in data\ListbuilderINI.dat:
// two fields of the comma form, on one line or on two.
struct StartDates
{
    std::optional<QByteArray> from;
    std::optional<QByteArray> to;
};

// A value that the file doesn't hold stays empty; a missing file raises "File not found".
StartDates ReadStartDates(const QString &hostPath);

} // namespace qlon
