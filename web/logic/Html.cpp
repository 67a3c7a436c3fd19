#include "web/logic/Html.h"

#include <QLocale>

namespace qlon::web {

QString Escaped(const QString &text)
{
    return text.toHtmlEscaped().replace(QLatin1Char('\''), QStringLiteral("&#39;"));
}

QString MoneyText(double amount)
{
    static const QLocale english(QLocale::English, QLocale::UnitedStates);
    const QString digits = english.toString(std::abs(amount), 'f', 2);
    return amount < 0 ? QStringLiteral("($%1)").arg(digits) : QStringLiteral("$") + digits;
}

QString NumberText(double number)
{
    return QString::number(number, 'g', 15);
}

QString HtmlPage(const QString &title, const QString &body, const PageUser &user, int refreshSeconds)
{
    QString page = QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
                                  "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">");
    if (refreshSeconds > 0)
        page += QStringLiteral("<meta http-equiv=\"refresh\" content=\"%1\">").arg(refreshSeconds);
    page += QStringLiteral("<title>%1 — Items Sold</title><link rel=\"stylesheet\" href=\"/style.css\"></head><body>").arg(Escaped(title));
    page += QStringLiteral("<header class=\"bar\"><a href=\"/\">Items Sold</a>");
    if (!user.name.isEmpty()) {
        page += QStringLiteral("<form method=\"post\" action=\"/signout\"><span>%1</span>"
                               "<input type=\"hidden\" name=\"csrf\" value=\"%2\"><button id=\"signout\">Sign out</button></form>")
                    .arg(Escaped(user.name), Escaped(user.csrfToken));
    }
    page += QStringLiteral("</header><main><h1>%1</h1>").arg(Escaped(title));
    return page + body + QStringLiteral("</main></body></html>\n");
}

QByteArray StyleSheet()
{
    return R"css(body{font-family:system-ui,sans-serif;margin:0;color:#222;background:#fff}
main{padding:0 1rem 2rem;max-width:72rem}
.bar{display:flex;justify-content:space-between;align-items:center;padding:.5rem 1rem;background:#234;color:#fff}
.bar a{color:#fff;font-weight:bold;text-decoration:none}.bar form{display:flex;gap:.5rem;align-items:center}
form.report{display:grid;grid-template-columns:repeat(auto-fill,minmax(14rem,1fr));gap:.5rem 1rem;margin-bottom:1rem}
label{display:flex;flex-direction:column;font-size:.9rem}
input,select,button{font:inherit;padding:.3rem;max-width:100%;box-sizing:border-box}
.result{display:flex;flex-wrap:wrap;gap:1rem;align-items:flex-start}.result>*{min-width:0;max-width:100%}
.table-box{overflow-x:auto;max-width:100%}
table{border-collapse:collapse;font-size:.9rem}th,td{padding:.2rem .5rem;border-bottom:1px solid #ddd;text-align:left}
td.n,th.n{text-align:right}tfoot td{font-weight:bold;border-top:2px solid #222}
th a{color:inherit}.charts{display:flex;flex-direction:column;gap:1rem}svg{max-width:100%;height:auto}
.error{color:#a00}dl.summary{display:grid;grid-template-columns:auto auto;justify-content:start;gap:.2rem 1rem}dd{margin:0}.downloads a{margin-right:1rem}
@media (max-width:600px){form.report{grid-template-columns:1fr}.result{flex-direction:column}main{padding:0 .5rem 1rem}}
@media print{.bar,form,.downloads,nav{display:none}main{max-width:none}th a{text-decoration:none}}
)css";
}

} // namespace qlon::web
