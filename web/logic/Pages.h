#pragma once

#include "web/logic/Html.h"
#include "web/logic/ReportForm.h"

#include <QJsonObject>

namespace qlon::web {

// The sign-in form with its token, and a note such as "Wrong name or password" when there is one.
QString SignInPage(const QString &note, const QString &csrfToken);

// The report form, filled with the fields of the last run; `ticket` names this page's runs, so
// that the page found again after a wait, a sort or a download is the same run. The department
// is one of `departments`, the site's, or none.
QString ReportFormHtml(const FormFields &fields, const QString &ticket, const QStringList &departments);

// A run still waiting in the queue (`ahead` reports before it) or running: reloads itself.
QString WaitingPage(const QString &formHtml, int ahead, const PageUser &user);

// A finished run: the form, the downloads and the result.
QString ResultPage(
    const QString &formHtml, const QJsonObject &report, const FormFields &fields, const QString &pageQuery, const PageUser &user);

// A run that could not be done: the form and what to tell. `reason` is safe to show.
QString FailurePage(const QString &formHtml, const QString &reason, const PageUser &user);

} // namespace qlon::web
