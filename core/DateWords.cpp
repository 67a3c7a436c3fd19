#include "core/DateWords.h"

namespace qlon {

namespace {

QDate thisWeeksMonday(QDate today)
{
    return today.addDays(1 - today.dayOfWeek());
}

QDate firstOfMonth(QDate day)
{
    return QDate(day.year(), day.month(), 1);
}

QDate daysBack(const QString &word, QDate today)
{
    static const QString prefix = QStringLiteral("today-");
    if (!word.startsWith(prefix))
        return {};
    bool isNumber = false;
    const int days = word.mid(prefix.size()).toInt(&isNumber);
    return isNumber && days >= 0 ? today.addDays(-days) : QDate();
}

} // namespace

QDate DateFromWord(const QString &word, QDate today)
{
    const QString name = word.trimmed().toLower();
    if (name == QLatin1String("today"))
        return today;
    if (name == QLatin1String("yesterday"))
        return today.addDays(-1);
    if (name == QLatin1String("monday"))
        return thisWeeksMonday(today);
    if (name == QLatin1String("last-monday"))
        return thisWeeksMonday(today).addDays(-7);
    if (name == QLatin1String("first-of-month"))
        return firstOfMonth(today);
    if (name == QLatin1String("first-of-last-month"))
        return firstOfMonth(today).addMonths(-1);
    if (name == QLatin1String("last-of-last-month"))
        return firstOfMonth(today).addDays(-1);
    return daysBack(name, today);
}

} // namespace qlon
