#include "web/logic/ReportForm.h"

#include "core/DateWords.h"

#include <QRegularExpression>
#include <QTime>
#include <QUrl>

namespace qlon::web {

namespace {

const QStringList reports = {QStringLiteral("main"), QStringLiteral("items-sold"), QStringLiteral("server")};
const QStringList categories = {
    QStringLiteral("all"), QStringLiteral("food"), QStringLiteral("bar"), QStringLiteral("both"), QStringLiteral("retail")};
// The order of the canonical query; every other field is left out of it.
const QStringList formOrder = {QStringLiteral("report"), QStringLiteral("from"), QStringLiteral("fromWord"), QStringLiteral("to"),
    QStringLiteral("toWord"), QStringLiteral("start"), QStringLiteral("end"), QStringLiteral("category"), QStringLiteral("department"),
    QStringLiteral("server")};
constexpr int longestSpanYears = 10;

struct DateField
{
    QString word; // as the child takes it
    QDate day; // invalid when the field is empty
};

// A date of the form; an error text when it is neither a picker's date nor a date word.
QString readDate(const FormFields &fields, const QString &name, QDate today, DateField &date)
{
    const QString word = fields.value(name + QStringLiteral("Word"));
    if (!word.isEmpty()) {
        date = {word, DateFromWord(word, today)};
        return date.day.isValid() && FormDateWords().contains(word) ? QString() : QStringLiteral("unknown date word");
    }
    const QString text = fields.value(name);
    if (text.isEmpty())
        return {};
    date = {text, QDate::fromString(text, Qt::ISODate)};
    static const QRegularExpression iso(QStringLiteral("^\\d{4}-\\d{2}-\\d{2}$"));
    return date.day.isValid() && iso.match(text).hasMatch() ? QString() : QStringLiteral("a date is YYYY-MM-DD");
}

// A time picker's HH:MM as the screens' pickers write it, 6:30 pm; empty for an empty field.
QString pickerTime(const QString &text, bool &valid)
{
    valid = true;
    if (text.isEmpty())
        return {};
    const QTime time = QTime::fromString(text, QStringLiteral("HH:mm"));
    valid = time.isValid();
    return time.toString(QStringLiteral("h:mm ap"));
}

QString readSpan(const FormFields &fields, QDate today, QStringList &arguments)
{
    DateField from;
    DateField to;
    for (const auto &[name, date] : {std::pair{QStringLiteral("from"), &from}, std::pair{QStringLiteral("to"), &to}}) {
        if (const QString error = readDate(fields, name, today, *date); !error.isEmpty())
            return error;
        if (date->day.isValid())
            arguments.append(QStringLiteral("--%1=%2").arg(name, date->word));
    }
    if (from.day.isValid() && to.day.isValid() && (to.day < from.day || from.day.addYears(longestSpanYears) < to.day))
        return QStringLiteral("the span runs from the first day to the last, ten years at most");
    for (const auto &[field, option] : {std::pair{"start", "--start-time"}, std::pair{"end", "--end-time"}}) {
        bool valid = false;
        const QString time = pickerTime(fields.value(QLatin1String(field)), valid);
        if (!valid)
            return QStringLiteral("a time is HH:MM");
        if (!time.isEmpty())
            arguments.append(QLatin1String(option) + QLatin1Char('=') + time);
    }
    return {};
}

// The category, the department or the server, as the report takes them.
QString readChoice(const FormFields &fields, const QString &report, QStringList &arguments)
{
    const QString category = fields.value(QStringLiteral("category"));
    const QString department = fields.value(QStringLiteral("department")).trimmed();
    const QString server = fields.value(QStringLiteral("server")).trimmed();
    static const QRegularExpression departmentName(QStringLiteral("^[\\w .&'/-]{1,40}$"), QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression serverNumber(QStringLiteral("^\\d{1,6}$"));
    if (report == QLatin1String("server")) {
        if (!serverNumber.match(server).hasMatch())
            return QStringLiteral("the server report needs the server's number");
        arguments.append(QStringLiteral("--server=") + server);
        return {};
    }
    if (!department.isEmpty()) {
        if (!departmentName.match(department).hasMatch())
            return QStringLiteral("unknown department");
        arguments.append(QStringLiteral("--department=") + department);
        return {};
    }
    if (!category.isEmpty() && !categories.contains(category))
        return QStringLiteral("unknown category");
    if (!category.isEmpty())
        arguments.append(QStringLiteral("--category=") + category);
    return {};
}

QString canonicalQuery(const FormFields &fields)
{
    QStringList pairs;
    for (const QString &name : formOrder) {
        if (const QString value = fields.value(name); !value.isEmpty())
            pairs.append(name + QLatin1Char('=') + QString::fromLatin1(QUrl::toPercentEncoding(value)));
    }
    return pairs.join(QLatin1Char('&'));
}

} // namespace

QStringList FormDateWords()
{
    return {QStringLiteral("today"), QStringLiteral("yesterday"), QStringLiteral("monday"), QStringLiteral("last-monday"),
        QStringLiteral("first-of-month"), QStringLiteral("first-of-last-month"), QStringLiteral("last-of-last-month")};
}

ReportChoice ReadReportForm(const FormFields &fields, QDate today)
{
    ReportChoice choice;
    choice.report = fields.value(QStringLiteral("report"));
    if (!reports.contains(choice.report)) {
        choice.error = QStringLiteral("unknown report");
        return choice;
    }
    choice.arguments = {QStringLiteral("report"), choice.report, QStringLiteral("--format=json")};
    choice.error = readSpan(fields, today, choice.arguments);
    if (choice.error.isEmpty())
        choice.error = readChoice(fields, choice.report, choice.arguments);
    choice.query = canonicalQuery(fields);
    return choice;
}

} // namespace qlon::web
