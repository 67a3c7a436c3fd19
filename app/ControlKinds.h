#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace qlon {

// What a command can't do with a control; the script runner reports it with the line.
struct ControlError
{
    QString text;
};

// One kind of control the screens use, and what each script command means for it. A command
// a kind doesn't take is left empty.
struct ControlKind
{
    QString name;
    bool (*is)(QWidget *control);
    QString (*text)(QWidget *control) = nullptr; // get: the caption or text
    void (*setText)(QWidget *control, const QString &text) = nullptr; // set
    void (*click)(QWidget *control) = nullptr; // click, start
    void (*pick)(QWidget *control, const QString &entry) = nullptr; // pick
    int (*count)(QWidget *control) = nullptr; // get count, and with row: rows
    QString (*row)(QWidget *control, int index) = nullptr; // get row N
    QString (*tag)(QWidget *control, int index) = nullptr; // get tag N
    bool (*checked)(QWidget *control) = nullptr; // get checked
    QStringList ownCommands = {}; // commands of this kind alone, such as a screen's show

    // The script commands a control of this kind takes beside those every control takes
    // (focus, get enabled, get visible, get focus, wait-until).
    QStringList commands() const;
};

// The kind of a control; every widget has one, the last being a plain container.
const ControlKind &KindOf(QWidget *control);

// The control's caption or text; empty when its kind has none.
QString CaptionOf(QWidget *control);

} // namespace qlon
