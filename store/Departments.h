#pragma once

#include <QByteArrayList>
#include <QString>
#include <QStringList>

namespace qlon {

// data\Departments.dat: one department name a line, in double quotes.

// The names each screen writes when it finds the file missing; repeats are deliberate.
QByteArrayList MainScreenDepartments();
QByteArrayList ItemEditorDepartments();
QByteArrayList ItemsSoldDepartments();
QByteArrayList DepartmentsEditorDepartments();

// Creates the file with the caller's names when it is missing; true when it was created.
bool EnsureDepartmentsFile(const QString &hostPath, const QByteArrayList &defaults);

// The names in file order as they stand, blank ones included, at most `limit` of them.
// Each read takes one quoted token, so a name holding a comma stays whole.
QByteArrayList ReadDepartmentNames(const QString &hostPath, qsizetype limit = -1);

// The departments a report's screen lists, trimmed, each once, in file order: the site's file,
// or the names the screen writes into it when it is missing, the main screen's or Items Sold's.
// The site's configuration is read already.
QStringList ReportDepartments(bool mainScreen);

// Replaces the whole file with the rows, an empty row as a line of two quotes.
void WriteDepartmentNames(const QString &hostPath, const QByteArrayList &rows);

} // namespace qlon
