#pragma once

#include "web/logic/Html.h"
#include "web/logic/ReportForm.h"

#include <QByteArrayList>

namespace qlon::web {

// The departments list a manager edits: the editor's rows, as Windows-1252 bytes, or why the
// form can't be taken.
struct DepartmentsChange
{
    QByteArrayList rows;
    QString error; // safe to show
};

// The rows the form sent (row0 to row13), changed by the button pressed: save, add (the name in
// `new` into the first blank row), up:N, down:N or remove:N (the rows below move up).
// A name Windows-1252 can't hold, with a quote or a control character, or past 40 characters
// is refused.
DepartmentsChange ChangeDepartments(const FormFields &fields);

// The list as a form of the editor's rows, each with its buttons, and the form's token.
QString DepartmentsPage(const QByteArrayList &rows, const QString &note, const PageUser &user);

} // namespace qlon::web
