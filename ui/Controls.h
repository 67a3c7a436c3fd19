#pragma once

#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QString>

namespace qlon {

// The forms' unit, the twip, on a screen of 96 dots per inch.
inline constexpr int TwipsPerPixel = 15;

constexpr int Pixels(int twips)
{
    return twips / TwipsPerPixel;
}

// Controls carry the names by which the program and its scripts find them.
template<typename Control>
Control *Named(Control *control, const QString &name)
{
    control->setObjectName(name);
    return control;
}

// The name of a control of an array: "SSOption4(2)".
inline QString ArrayName(const char *name, int index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

inline QPushButton *MakeButton(QWidget *parent, const QString &name, const QString &caption, const QString &toolTip = {})
{
    auto *button = Named(new QPushButton(caption, parent), name);
    button->setToolTip(toolTip);
    return button;
}

inline QLineEdit *MakeTextBox(QWidget *parent, const QString &name, const QString &text = {})
{
    return Named(new QLineEdit(text, parent), name);
}

inline QLabel *MakeLabel(QWidget *parent, const QString &name, const QString &caption = {})
{
    return Named(new QLabel(caption, parent), name);
}

// A control that a run shows and hides keeps its place in the layout while hidden, so that no
// other control moves under the pointer.
inline void KeepPlaceWhenHidden(QWidget *control)
{
    QSizePolicy policy = control->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control->setSizePolicy(policy);
}

// A month calendar as the site's machines show it, whatever this machine's locale: English
// names, days by their first letter, Sunday first, no week numbers.
inline QCalendarWidget *MakeCalendar(QWidget *parent, const QString &name)
{
    auto *calendar = Named(new QCalendarWidget(parent), name);
    calendar->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    calendar->setFirstDayOfWeek(Qt::Sunday);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    return calendar;
}

} // namespace qlon
