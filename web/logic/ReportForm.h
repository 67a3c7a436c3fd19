#pragma once

#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>

namespace qlon::web {

// The fields of the report form, as the browser sent them.
using FormFields = QHash<QString, QString>;

// A report the form asks for, checked field by field: the child's words and the form's canonical
// query, which names the same report in links and in the queue.
struct ReportChoice
{
    QString report; // main, items-sold or server
    QStringList arguments; // `report NAME --format=json --from=...`, every value joined to its option
    QString query; // the checked fields, in a fixed order, percent-encoded
    QString error; // not empty when the form can't be run; safe to show
};

// The form's fields: report; from and to (a date picker's YYYY-MM-DD, or a date word in fromWord
// and toWord, which wins); start and end (a time picker's HH:MM); category; department; server.
// A span longer than ten years and a value of the wrong shape are refused; a department wins
// over a category, and the server report leaves both.
ReportChoice ReadReportForm(const FormFields &fields, QDate today);

// The date words the form offers, as `qlon report` takes them.
QStringList FormDateWords();

} // namespace qlon::web
