#include "app/ControlKinds.h"

#include "core/Ansi.h"
#include "core/Clock.h"
#include "core/DateText.h"
#include "core/DateWords.h"
#include "ui/DataControl.h"
#include "ui/MList.h"
#include "ui/VbComboBox.h"
#include "ui/VbTextBox.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTableView>

#include <array>

namespace qlon {

namespace {

const QString scriptDateForm = QStringLiteral("MM/dd/yyyy");

template<typename Control>
bool is(QWidget *control)
{
    return qobject_cast<Control *>(control) != nullptr;
}

template<typename Control>
Control *as(QWidget *control)
{
    return static_cast<Control *>(control);
}

// isSignalConnected is protected; a pointer to it taken through a public using-declaration
// calls it on any object.
struct SignalProbe : QObject
{
    using QObject::isSignalConnected;
};

// Whether the screen acts on a control's signal: a command that only sends a signal nothing
// receives would do nothing, and the script is told so instead.
template<typename Control, typename Signal>
bool heard(QWidget *control, Signal signal)
{
    constexpr auto isConnected = &SignalProbe::isSignalConnected;
    return is<Control>(control) && (control->*isConnected)(QMetaMethod::fromSignal(signal));
}

QDate scriptDate(const QString &text)
{
    const QDate named = DateFromWord(text, Today());
    return named.isValid() ? named : QDate::fromString(text, scriptDateForm);
}

void setCalendarDate(QWidget *control, const QString &text)
{
    const QDate date = scriptDate(text);
    if (!date.isValid())
        throw ControlError{QStringLiteral("takes a date as MM/DD/YYYY or a word such as today-1")};
    auto *calendar = as<QCalendarWidget>(control);
    calendar->setSelectedDate(date);
    emit calendar->clicked(date);
}

// The data control's entries are its four moves.
void moveDataControl(QWidget *control, const QString &move)
{
    auto *data = as<DataControl>(control);
    const QString word = move.trimmed().toLower();
    if (word == QLatin1String("first"))
        emit data->moveFirst();
    else if (word == QLatin1String("previous"))
        emit data->movePrevious();
    else if (word == QLatin1String("next"))
        emit data->moveNext();
    else if (word == QLatin1String("last"))
        emit data->moveLast();
    else
        throw ControlError{QStringLiteral("has no move ") + move + QStringLiteral(" (first, previous, next, last)")};
}

QString dataControlCaption(QWidget *control)
{
    return as<DataControl>(control)->caption();
}

QString selectedListRow(QWidget *control)
{
    auto *list = as<MList>(control);
    for (int row = 0; row < list->rowCount(); ++row) {
        if (list->isRowSelected(row))
            return FromAnsi(list->rowText(row));
    }
    return {};
}

void pickListRow(QWidget *control, const QString &text)
{
    auto *list = as<MList>(control);
    const QByteArray wanted = ToAnsi(text);
    for (int row = 0; row < list->rowCount(); ++row) {
        if (list->rowText(row) == wanted) {
            list->setRowSelected(row, true);
            emit list->Click();
            return;
        }
    }
    throw ControlError{QStringLiteral("has no row ") + text};
}

void pickComboEntry(QWidget *control, const QString &text)
{
    if (!as<VbComboBox>(control)->pickText(ToAnsi(text)))
        throw ControlError{QStringLiteral("has no entry ") + text};
}

void pickPlainComboEntry(QWidget *control, const QString &text)
{
    auto *box = as<QComboBox>(control);
    const int index = box->findText(text);
    if (index < 0)
        throw ControlError{QStringLiteral("has no entry ") + text};
    box->setCurrentIndex(index);
    emit box->activated(index);
}

void pickPlainListRow(QWidget *control, const QString &text)
{
    auto *list = as<QListWidget>(control);
    const QList<QListWidgetItem *> found = list->findItems(text, Qt::MatchExactly);
    if (found.isEmpty())
        throw ControlError{QStringLiteral("has no row ") + text};
    list->setCurrentItem(found.first());
    emit list->itemClicked(found.first());
}

QString plainListCurrent(QWidget *control)
{
    const QListWidgetItem *item = as<QListWidget>(control)->currentItem();
    return item ? item->text() : QString();
}

int gridRowCount(QWidget *control)
{
    const QAbstractItemModel *model = as<QTableView>(control)->model();
    return model ? model->rowCount() : 0;
}

// A grid's row as a list's: its cells joined by "|".
QString gridRow(QWidget *control, int row)
{
    const QAbstractItemModel *model = as<QTableView>(control)->model();
    QStringList cells;
    for (int column = 0; column < model->columnCount(); ++column)
        cells.append(model->index(row, column).data().toString());
    return cells.join(QLatin1Char('|'));
}

QString gridCurrentCell(QWidget *control)
{
    return as<QTableView>(control)->currentIndex().data().toString();
}

// Makes current the first row whose first cell is the text, as a user's click on it would.
void pickGridRow(QWidget *control, const QString &text)
{
    auto *grid = as<QTableView>(control);
    for (int row = 0; row < gridRowCount(control); ++row) {
        const QModelIndex first = grid->model()->index(row, 0);
        if (first.data().toString() == text) {
            grid->setCurrentIndex(first);
            emit grid->clicked(first);
            return;
        }
    }
    throw ControlError{QStringLiteral("has no row ") + text};
}

QString buttonText(QWidget *control)
{
    return as<QAbstractButton>(control)->text();
}

void clickButton(QWidget *control)
{
    as<QAbstractButton>(control)->click();
}

bool buttonChecked(QWidget *control)
{
    return as<QAbstractButton>(control)->isChecked();
}

QString lineText(QWidget *control)
{
    return as<QLineEdit>(control)->text();
}

void setLineText(QWidget *control, const QString &text)
{
    as<QLineEdit>(control)->setText(text);
}

// A box that holds a date takes a date word too, written as the screen writes its dates.
void setTextBoxText(QWidget *control, const QString &text)
{
    const QDate named = DateFromWord(text, Today());
    const bool holdsNamedDate = named.isValid() && as<VbTextBox>(control)->holdsDate();
    setLineText(control, holdsNamedDate ? FromAnsi(ShortDate(named)) : text);
}

// The most particular kinds come first: a control is of the first kind it matches.
const std::array kinds = {
    ControlKind{.name = QStringLiteral("screen"),
        // A control may be a window of its own, as a calendar that pops up; a screen has no parent.
        .is = [](QWidget *control) { return control->isWindow() && !control->parentWidget(); },
        .text = [](QWidget *control) { return control->windowTitle(); },
        .ownCommands = {QStringLiteral("show"), QStringLiteral("screenshot")}},
    ControlKind{.name = QStringLiteral("calendar"),
        .is = is<QCalendarWidget>,
        .text = [](QWidget *control) { return as<QCalendarWidget>(control)->selectedDate().toString(scriptDateForm); },
        .setText = setCalendarDate},
    // A screen that moves its recordset acts on every move; one that holds no recordset on none.
    ControlKind{.name = QStringLiteral("data control"),
        .is = [](QWidget *control) { return heard<DataControl>(control, &DataControl::moveFirst); },
        .text = dataControlCaption,
        .pick = moveDataControl},
    ControlKind{.name = QStringLiteral("data control"), .is = is<DataControl>, .text = dataControlCaption},
    ControlKind{.name = QStringLiteral("list"),
        .is = is<MList>,
        .text = selectedListRow,
        .pick = pickListRow,
        .count = [](QWidget *control) { return as<MList>(control)->rowCount(); },
        .row = [](QWidget *control, int index) { return FromAnsi(as<MList>(control)->rowText(index)); },
        .tag = [](QWidget *control, int index) { return FromAnsi(as<MList>(control)->rowTag(index)); }},
    ControlKind{.name = QStringLiteral("combo box"),
        .is = is<VbComboBox>,
        .text = [](QWidget *control) { return FromAnsi(as<VbComboBox>(control)->text()); },
        .setText = [](QWidget *control, const QString &text) { as<VbComboBox>(control)->setText(ToAnsi(text)); },
        .pick = pickComboEntry,
        .count = [](QWidget *control) { return as<VbComboBox>(control)->entryCount(); },
        .row = [](QWidget *control, int index) { return FromAnsi(as<VbComboBox>(control)->entryText(index)); }},
    ControlKind{.name = QStringLiteral("plain combo box"),
        .is = is<QComboBox>,
        .text = [](QWidget *control) { return as<QComboBox>(control)->currentText(); },
        .pick = pickPlainComboEntry,
        .count = [](QWidget *control) { return as<QComboBox>(control)->count(); },
        .row = [](QWidget *control, int index) { return as<QComboBox>(control)->itemText(index); }},
    ControlKind{.name = QStringLiteral("plain list"),
        .is = is<QListWidget>,
        .text = plainListCurrent,
        .pick = pickPlainListRow,
        .count = [](QWidget *control) { return as<QListWidget>(control)->count(); },
        .row = [](QWidget *control, int index) { return as<QListWidget>(control)->item(index)->text(); }},
    ControlKind{.name = QStringLiteral("grid"),
        .is = is<QTableView>,
        .text = gridCurrentCell,
        .pick = pickGridRow,
        .count = gridRowCount,
        .row = gridRow},
    // The text boxes whose clicks a screen acts on, such as the server screen's dates and times.
    ControlKind{.name = QStringLiteral("text box"),
        .is = [](QWidget *control) { return heard<VbTextBox>(control, &VbTextBox::Click); },
        .text = lineText,
        .setText = setTextBoxText,
        .click = [](QWidget *control) { as<VbTextBox>(control)->click(); }},
    ControlKind{.name = QStringLiteral("text box"), .is = is<VbTextBox>, .text = lineText, .setText = setTextBoxText},
    ControlKind{.name = QStringLiteral("plain text box"), .is = is<QLineEdit>, .text = lineText, .setText = setLineText},
    ControlKind{.name = QStringLiteral("text area"),
        .is = is<QPlainTextEdit>,
        .text = [](QWidget *control) { return as<QPlainTextEdit>(control)->toPlainText(); },
        .setText = [](QWidget *control, const QString &text) { as<QPlainTextEdit>(control)->setPlainText(text); }},
    ControlKind{
        .name = QStringLiteral("check box"), .is = is<QCheckBox>, .text = buttonText, .click = clickButton, .checked = buttonChecked},
    ControlKind{
        .name = QStringLiteral("option"), .is = is<QRadioButton>, .text = buttonText, .click = clickButton, .checked = buttonChecked},
    ControlKind{.name = QStringLiteral("button"), .is = is<QAbstractButton>, .text = buttonText, .click = clickButton},
    ControlKind{.name = QStringLiteral("label"),
        .is = is<QLabel>,
        .text = [](QWidget *control) { return as<QLabel>(control)->text(); },
        .setText = [](QWidget *control, const QString &text) { as<QLabel>(control)->setText(text); }},
    ControlKind{
        .name = QStringLiteral("frame"), .is = is<QGroupBox>, .text = [](QWidget *control) { return as<QGroupBox>(control)->title(); }},
    ControlKind{.name = QStringLiteral("progress bar"),
        .is = is<QProgressBar>,
        .text = [](QWidget *control) { return QString::number(as<QProgressBar>(control)->value()); }},
    ControlKind{.name = QStringLiteral("panel"), .is = [](QWidget *) { return true; }},
};

} // namespace

QStringList ControlKind::commands() const
{
    QStringList commands = ownCommands;
    if (click)
        commands += {QStringLiteral("click"), QStringLiteral("start")};
    if (setText)
        commands.append(QStringLiteral("set"));
    if (pick)
        commands.append(QStringLiteral("pick"));
    if (count)
        commands.append(QStringLiteral("rows"));
    if (text)
        commands.append(QStringLiteral("get"));
    if (checked)
        commands.append(QStringLiteral("get checked"));
    if (count)
        commands += {QStringLiteral("get count"), QStringLiteral("get row N")};
    if (tag)
        commands.append(QStringLiteral("get tag N"));
    return commands;
}

const ControlKind &KindOf(QWidget *control)
{
    for (const ControlKind &kind : kinds) {
        if (kind.is(control))
            return kind;
    }
    return kinds.back();
}

QString CaptionOf(QWidget *control)
{
    const ControlKind &kind = KindOf(control);
    return kind.text ? kind.text(control) : QString();
}

} // namespace qlon
