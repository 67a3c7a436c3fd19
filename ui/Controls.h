#pragma once

#include <QLabel>
#include <QLineEdit>
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

} // namespace qlon
