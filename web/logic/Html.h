#pragma once

#include <QString>

namespace qlon::web {

// Text made safe inside HTML elements and quoted attributes.
QString Escaped(const QString &text);

// An amount as the screens show it, $1,234.50, and a count without needless decimals.
QString MoneyText(double amount);
QString NumberText(double number);

// Who is signed in, for the page's bar and its sign-out form.
struct PageUser
{
    QString name; // empty: nobody, as on the sign-in page
    QString csrfToken;
};

// A whole page: the bar with the sign-out form, then the body, which is HTML already.
// `refreshSeconds` above zero reloads the page, as the queue's waiting page does without a script.
QString HtmlPage(const QString &title, const QString &body, const PageUser &user, int refreshSeconds = 0);

// The one style sheet: a column per screen under 600 px, and no form or bar on paper.
QByteArray StyleSheet();

} // namespace qlon::web
