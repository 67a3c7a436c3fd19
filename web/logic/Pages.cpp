#include "web/logic/Pages.h"

#include "web/logic/ReportView.h"

namespace qlon::web {

namespace {

QString reportTitle(const QString &report)
{
    if (report == QLatin1String("items-sold"))
        return QStringLiteral("Items Sold");
    if (report == QLatin1String("server"))
        return QStringLiteral("Server's sales");
    return QStringLiteral("Items and departments");
}

QString options(const QStringList &values, const QStringList &labels, const QString &chosen)
{
    QString html;
    for (qsizetype index = 0; index < values.size(); ++index) {
        html += QStringLiteral("<option value=\"%1\"%2>%3</option>")
                    .arg(Escaped(values[index]), values[index] == chosen ? QStringLiteral(" selected") : QString(), Escaped(labels[index]));
    }
    return html;
}

QString inputField(const QString &label, const QString &type, const QString &name, const FormFields &fields)
{
    return QStringLiteral("<label>%1<input type=\"%2\" name=\"%3\" id=\"%3\" value=\"%4\"></label>")
        .arg(label, type, name, Escaped(fields.value(name)));
}

QString dateField(const QString &label, const QString &name, const FormFields &fields)
{
    QStringList words = FormDateWords();
    words.prepend(QString());
    QStringList labels = words;
    labels[0] = QStringLiteral("(the date above)");
    const QString word = name + QStringLiteral("Word");
    return inputField(label, QStringLiteral("date"), name, fields) +
        QStringLiteral("<label>%1 as a word<select name=\"%2\" id=\"%2\">%3</select></label>")
            .arg(label, word, options(words, labels, fields.value(word)));
}

QString downloadLinks(const QString &report, const QString &pageQuery)
{
    QString html = QStringLiteral("<p class=\"downloads\">Download: ");
    QStringList kinds = {QStringLiteral("pdf"), QStringLiteral("xlsx")};
    // Export Sales is a button of the main screen alone.
    if (report == QLatin1String("main"))
        kinds.prepend(QStringLiteral("csv"));
    for (const QString &kind : kinds) {
        html += QStringLiteral("<a id=\"download-%1\" href=\"/download/%1?%2\">%3</a>").arg(kind, Escaped(pageQuery), kind.toUpper());
    }
    return html + QStringLiteral("</p>");
}

} // namespace

QString SignInPage(const QString &note, const QString &csrfToken)
{
    QString body;
    if (!note.isEmpty())
        body += QStringLiteral("<p class=\"error\" id=\"note\">%1</p>").arg(Escaped(note));
    body += QStringLiteral("<form method=\"post\" action=\"/signin\" class=\"report\"><input type=\"hidden\" name=\"csrf\" value=\"%1\">"
                           "<label>Name<input name=\"name\" id=\"name\" autocomplete=\"username\" required></label>"
                           "<label>Password<input type=\"password\" name=\"password\" id=\"password\" autocomplete=\"current-password\" "
                           "required></label><button id=\"signin\">Sign in</button></form>")
                .arg(Escaped(csrfToken));
    return HtmlPage(QStringLiteral("Sign in"), body, {});
}

QString ReportFormHtml(const FormFields &fields, const QString &ticket, const QStringList &departments)
{
    const QStringList reports = {QStringLiteral("main"), QStringLiteral("items-sold"), QStringLiteral("server")};
    const QStringList categories = {
        QString(), QStringLiteral("food"), QStringLiteral("bar"), QStringLiteral("both"), QStringLiteral("retail"), QStringLiteral("all")};
    QStringList categoryLabels = categories;
    categoryLabels[0] = QStringLiteral("(all)");
    QStringList reportLabels;
    for (const QString &report : reports)
        reportLabels.append(reportTitle(report));
    QStringList departmentValues = departments;
    departmentValues.prepend(QString());
    QStringList departmentLabels = departmentValues;
    departmentLabels[0] = QStringLiteral("(none)");
    return QStringLiteral("<form method=\"get\" action=\"/report\" class=\"report\"><input type=\"hidden\" name=\"ticket\" value=\"%1\">"
                          "<label>Report<select name=\"report\" id=\"report\">%2</select></label>")
               .arg(Escaped(ticket), options(reports, reportLabels, fields.value(QStringLiteral("report")))) +
        dateField(QStringLiteral("From"), QStringLiteral("from"), fields) + dateField(QStringLiteral("To"), QStringLiteral("to"), fields) +
        inputField(QStringLiteral("From the hour"), QStringLiteral("time"), QStringLiteral("start"), fields) +
        inputField(QStringLiteral("To the hour"), QStringLiteral("time"), QStringLiteral("end"), fields) +
        QStringLiteral("<label>Category<select name=\"category\" id=\"category\">%1</select></label>")
            .arg(options(categories, categoryLabels, fields.value(QStringLiteral("category")))) +
        QStringLiteral("<label>Department<select name=\"department\" id=\"department\">%1</select></label>")
            .arg(options(departmentValues, departmentLabels, fields.value(QStringLiteral("department")))) +
        inputField(QStringLiteral("Server's number (server report)"), QStringLiteral("text"), QStringLiteral("server"), fields) +
        QStringLiteral("<button id=\"run\">Run</button></form>");
}

QString WaitingPage(const QString &formHtml, int ahead, const PageUser &user)
{
    const QString place = ahead == 0 ? QStringLiteral("The report is running.")
        : ahead == 1                 ? QStringLiteral("One report runs before this one.")
                                     : QStringLiteral("%1 reports run before this one.").arg(ahead);
    return HtmlPage(
        QStringLiteral("Waiting"), formHtml + QStringLiteral("<p id=\"waiting\">%1 This page reloads itself.</p>").arg(place), user, 2);
}

QString ResultPage(
    const QString &formHtml, const QJsonObject &report, const FormFields &fields, const QString &pageQuery, const PageUser &user)
{
    const QString name = report.value(QStringLiteral("report")).toString();
    const QString body = formHtml + downloadLinks(name, pageQuery) + ReportBody(report, ReadSort(fields), pageQuery);
    return HtmlPage(reportTitle(name), body, user);
}

QString FailurePage(const QString &formHtml, const QString &reason, const PageUser &user)
{
    return HtmlPage(
        QStringLiteral("Not run"), formHtml + QStringLiteral("<p class=\"error\" id=\"failure\">%1</p>").arg(Escaped(reason)), user);
}

} // namespace qlon::web
