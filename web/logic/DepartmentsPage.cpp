#include "web/logic/DepartmentsPage.h"

#include "web/logic/SiteDepartments.h"

#include "core/Ansi.h"
#include "core/FixedField.h"

namespace qlon::web {

namespace {

constexpr qsizetype longestName = 40;

QString rowField(int row)
{
    return QStringLiteral("row%1").arg(row);
}

// The name as the site's file holds it; an error text when it can't be held there, or read back.
QString readName(const QString &text, QByteArray &name)
{
    name = ToAnsi(text);
    if (text.size() > longestName)
        return QStringLiteral("a name has 40 characters at most");
    if (FromAnsi(name) != text)
        return QStringLiteral("a name holds the letters of Western European languages alone");
    for (const QChar character : text) {
        if (character == QLatin1Char('"') || character.category() == QChar::Other_Control)
            return QStringLiteral("a name holds no quote and no control character");
    }
    return {};
}

// The row the button names, such as 3 in "up:3"; -1 when it names none.
int buttonRow(const QString &action, const QString &verb)
{
    if (!action.startsWith(verb + QLatin1Char(':')))
        return -1;
    bool number = false;
    const int row = action.mid(verb.size() + 1).toInt(&number);
    return number && row >= 0 && row < DepartmentRows ? row : -1;
}

QString addName(const FormFields &fields, QByteArrayList &rows)
{
    QByteArray name;
    const QString text = fields.value(QStringLiteral("new")).trimmed();
    if (const QString error = readName(text, name); !error.isEmpty() || text.isEmpty())
        return text.isEmpty() ? QStringLiteral("give the new department's name") : error;
    for (QByteArray &row : rows) {
        if (TrimBlanks(row).isEmpty()) {
            row = name;
            return {};
        }
    }
    return QStringLiteral("the list holds fourteen departments at most: remove one first");
}

QString applyButton(const FormFields &fields, QByteArrayList &rows)
{
    const QString action = fields.value(QStringLiteral("action"));
    if (action == QLatin1String("save"))
        return {};
    if (action == QLatin1String("add"))
        return addName(fields, rows);
    if (const int row = buttonRow(action, QStringLiteral("up")); row > 0) {
        rows.swapItemsAt(row, row - 1);
    } else if (const int down = buttonRow(action, QStringLiteral("down")); down >= 0 && down + 1 < DepartmentRows) {
        rows.swapItemsAt(down, down + 1);
    } else if (const int removed = buttonRow(action, QStringLiteral("remove")); removed >= 0) {
        rows.removeAt(removed);
        rows.append(QByteArray());
    } else {
        return QStringLiteral("unknown button");
    }
    return {};
}

QString rowHtml(int row, const QByteArray &name)
{
    return QStringLiteral("<tr><td class=\"n\">%1</td><td><input name=\"%2\" id=\"%2\" value=\"%3\" maxlength=\"40\"></td>"
                          "<td><button name=\"action\" value=\"up:%1\">Up</button><button name=\"action\" value=\"down:%1\">Down</button>"
                          "<button name=\"action\" value=\"remove:%1\">Remove</button></td></tr>")
        .arg(QString::number(row), rowField(row), Escaped(FromAnsi(name)));
}

} // namespace

DepartmentsChange ChangeDepartments(const FormFields &fields)
{
    DepartmentsChange change;
    for (int row = 0; row < DepartmentRows; ++row) {
        // A form without all its rows would empty the ones it lacks.
        if (!fields.contains(rowField(row))) {
            change.error = QStringLiteral("the form lacks a row: load the page again");
            return change;
        }
        QByteArray name;
        if (const QString error = readName(fields.value(rowField(row)), name); !error.isEmpty()) {
            change.error = QStringLiteral("row %1: %2").arg(row).arg(error);
            return change;
        }
        change.rows.append(name);
    }
    change.error = applyButton(fields, change.rows);
    return change;
}

QString DepartmentsPage(const QByteArrayList &rows, const QString &note, const PageUser &user)
{
    // The first button of the form is the one Enter presses: Save.
    QString body = QStringLiteral("<form method=\"post\" action=\"/departments\" class=\"departments\">"
                                  "<input type=\"hidden\" name=\"csrf\" value=\"%1\"><p><button name=\"action\" value=\"save\" id=\"save\">"
                                  "Save the list</button></p>")
                       .arg(Escaped(user.csrfToken));
    if (!note.isEmpty())
        body += QStringLiteral("<p class=\"error\" id=\"note\">%1</p>").arg(Escaped(note));
    body += QStringLiteral("<table id=\"departments\"><tbody>");
    for (int row = 0; row < rows.size(); ++row)
        body += rowHtml(row, rows[row]);
    body += QStringLiteral("</tbody></table><p><label>A new department<input name=\"new\" id=\"new\" maxlength=\"40\"></label>"
                           "<button name=\"action\" value=\"add\" id=\"add\">Add</button></p></form>");
    return HtmlPage(QStringLiteral("Departments"), body, user);
}

} // namespace qlon::web
