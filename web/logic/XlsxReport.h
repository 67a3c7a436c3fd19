#pragma once

#include <QByteArray>
#include <QJsonObject>

namespace qlon::web {

// A report's rows as a workbook: a header row, the rows with numbers as numbers and dates as
// dates, and a total row of formulas (with their values, for readers that don't calculate).
// Empty when the workbook could not be written.
QByteArray XlsxReport(const QJsonObject &report);

} // namespace qlon::web
