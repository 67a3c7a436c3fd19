#include "app/ScriptRunner.h"

#include "core/Ansi.h"
#include "core/Clock.h"
#include "core/DateWords.h"
#include "core/RuntimeError.h"
#include "ui/DataControl.h"
#include "ui/Dialogs.h"
#include "ui/MList.h"
#include "ui/Program.h"
#include "ui/Report.h"
#include "ui/ScreenRegistry.h"
#include "ui/VbComboBox.h"
#include "ui/VbTextBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>

#include <optional>

namespace qlon {

namespace {

const QString scriptDateForm = QStringLiteral("MM/dd/yyyy");

// What a command can't do with a control; the runner reports it with the line.
struct ControlError
{
    QString text;
};

QString ownText(QWidget *control)
{
    if (auto *button = qobject_cast<QAbstractButton *>(control))
        return button->text();
    if (auto *label = qobject_cast<QLabel *>(control))
        return label->text();
    if (auto *box = qobject_cast<VbComboBox *>(control))
        return FromAnsi(box->text());
    if (auto *edit = qobject_cast<QLineEdit *>(control))
        return edit->text();
    if (auto *box = qobject_cast<QComboBox *>(control))
        return box->currentText();
    if (auto *frame = qobject_cast<QGroupBox *>(control))
        return frame->title();
    if (auto *calendar = qobject_cast<QCalendarWidget *>(control))
        return calendar->selectedDate().toString(scriptDateForm);
    if (auto *data = qobject_cast<DataControl *>(control))
        return data->caption();
    if (control->isWindow())
        return control->windowTitle();
    throw ControlError{QStringLiteral("has no caption or text")};
}

QDate scriptDate(const QString &text)
{
    const QDate named = DateFromWord(text, Today());
    return named.isValid() ? named : QDate::fromString(text, scriptDateForm);
}

void setOwnText(QWidget *control, const QString &text)
{
    if (auto *box = qobject_cast<VbComboBox *>(control))
        return box->setText(ToAnsi(text));
    if (auto *edit = qobject_cast<QLineEdit *>(control))
        return edit->setText(text);
    if (auto *label = qobject_cast<QLabel *>(control))
        return label->setText(text);
    if (auto *calendar = qobject_cast<QCalendarWidget *>(control)) {
        const QDate date = scriptDate(text);
        if (!date.isValid())
            throw ControlError{QStringLiteral("takes a date as MM/DD/YYYY or a word such as today-1")};
        calendar->setSelectedDate(date);
        emit calendar->clicked(date);
        return;
    }
    throw ControlError{QStringLiteral("takes no text")};
}

void click(QWidget *control)
{
    if (auto *box = qobject_cast<VbTextBox *>(control))
        return box->click();
    auto *button = qobject_cast<QAbstractButton *>(control);
    if (!button)
        throw ControlError{QStringLiteral("can't be clicked")};
    button->click();
}

void pick(QWidget *control, const QString &text)
{
    if (auto *box = qobject_cast<VbComboBox *>(control)) {
        if (!box->pickText(ToAnsi(text)))
            throw ControlError{QStringLiteral("has no entry ") + text};
        return;
    }
    if (auto *list = qobject_cast<MList *>(control)) {
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
    if (auto *box = qobject_cast<QComboBox *>(control)) {
        const int index = box->findText(text);
        if (index < 0)
            throw ControlError{QStringLiteral("has no entry ") + text};
        box->setCurrentIndex(index);
        emit box->activated(index);
        return;
    }
    if (auto *list = qobject_cast<QListWidget *>(control)) {
        const QList<QListWidgetItem *> found = list->findItems(text, Qt::MatchExactly);
        if (found.isEmpty())
            throw ControlError{QStringLiteral("has no row ") + text};
        list->setCurrentItem(found.first());
        emit list->itemClicked(found.first());
        return;
    }
    throw ControlError{QStringLiteral("has no entries to pick")};
}

int count(QWidget *control)
{
    if (auto *box = qobject_cast<VbComboBox *>(control))
        return box->entryCount();
    if (auto *list = qobject_cast<MList *>(control))
        return list->rowCount();
    if (auto *box = qobject_cast<QComboBox *>(control))
        return box->count();
    if (auto *list = qobject_cast<QListWidget *>(control))
        return list->count();
    throw ControlError{QStringLiteral("has no count")};
}

int rowIndex(QWidget *control, const QString &number)
{
    bool isNumber = false;
    const int row = number.toInt(&isNumber);
    if (!isNumber || row < 0 || row >= count(control))
        throw ControlError{QStringLiteral("has no row ") + number};
    return row;
}

QString row(QWidget *control, const QString &number)
{
    const int index = rowIndex(control, number);
    if (auto *box = qobject_cast<VbComboBox *>(control))
        return FromAnsi(box->entryText(index));
    if (auto *box = qobject_cast<QComboBox *>(control))
        return box->itemText(index);
    if (auto *list = qobject_cast<QListWidget *>(control))
        return list->item(index)->text();
    return FromAnsi(qobject_cast<MList *>(control)->rowText(index));
}

MList *listOf(QWidget *control)
{
    auto *list = qobject_cast<MList *>(control);
    if (!list)
        throw ControlError{QStringLiteral("is no list")};
    return list;
}

QString tag(QWidget *control, const QString &number)
{
    MList *list = listOf(control);
    return FromAnsi(list->rowTag(rowIndex(control, number)));
}

QString truth(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

// The control's own Enabled and Visible properties, whatever its container or window does.
bool ownEnabled(QWidget *control)
{
    return !control->testAttribute(Qt::WA_Disabled);
}

bool ownVisible(QWidget *control)
{
    if (control->isWindow())
        return control->isVisible();
    return !(control->testAttribute(Qt::WA_WState_ExplicitShowHide) && control->testAttribute(Qt::WA_WState_Hidden));
}

bool checked(QWidget *control)
{
    auto *button = qobject_cast<QAbstractButton *>(control);
    if (!button || !button->isCheckable())
        throw ControlError{QStringLiteral("has no checked state")};
    return button->isChecked();
}

QString property(QWidget *control, const QString &property)
{
    const QStringList words = property.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return ownText(control);
    if (words.size() == 1 && words[0] == QLatin1String("enabled"))
        return truth(ownEnabled(control));
    if (words.size() == 1 && words[0] == QLatin1String("visible"))
        return truth(ownVisible(control));
    if (words.size() == 1 && words[0] == QLatin1String("checked"))
        return truth(checked(control));
    if (words.size() == 1 && words[0] == QLatin1String("count"))
        return QString::number(count(control));
    if (words.size() == 2 && words[0] == QLatin1String("row"))
        return row(control, words[1]);
    if (words.size() == 2 && words[0] == QLatin1String("tag"))
        return tag(control, words[1]);
    throw ControlError{QStringLiteral("has no property ") + property};
}

std::optional<MessageAnswer> answerNamed(const QString &name)
{
    const QString folded = name.trimmed().toLower();
    if (folded == QLatin1String("ok"))
        return MessageAnswer::Ok;
    if (folded == QLatin1String("yes"))
        return MessageAnswer::Yes;
    if (folded == QLatin1String("no"))
        return MessageAnswer::No;
    if (folded == QLatin1String("cancel"))
        return MessageAnswer::Cancel;
    return std::nullopt;
}

void waitUntilIdle()
{
    while (RunningHandlers() > 0 || PendingTimers() > 0)
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    QApplication::processEvents();
}

} // namespace

ScriptRunner::ScriptRunner(QTextStream &out, QTextStream &err)
    : m_out(out)
    , m_err(err)
{
}

ScriptRunner::Status ScriptRunner::run(QIODevice &script)
{
    Dialogs::useScriptedAnswers(&m_out);
    int number = 0;
    // Read until the end, waiting for each line: a script may come through a pipe.
    for (QByteArray text = script.readLine(); !text.isEmpty(); text = script.readLine()) {
        const QString line = QString::fromUtf8(text).trimmed();
        ++number;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QString problem = execute(line);
        // Between two commands, as between two clicks of a user, a screen closed for good goes.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (!problem.isEmpty()) {
            m_out.flush();
            m_err << "qlon: script line " << number << ": " << problem << " (" << line << ")" << Qt::endl;
            return BadLine;
        }
        m_out.flush();
    }
    return Completed;
}

QString ScriptRunner::execute(const QString &line)
{
    static const QRegularExpression form(QStringLiteral("^(\\S+)(?:\\s+(\\S+))?(?:\\s(.*))?$"));
    const QRegularExpressionMatch parts = form.match(line);
    const QString command = parts.captured(1);
    const QString target = parts.captured(2);
    const QString rest = parts.captured(3);

    if (command == QLatin1String("wait") && target.isEmpty()) {
        waitUntilIdle();
        return {};
    }
    if (command == QLatin1String("answer")) {
        const std::optional<MessageAnswer> answer = answerNamed(target);
        if (!answer)
            return QStringLiteral("unknown answer ") + target;
        Dialogs::queueAnswer(*answer);
        return {};
    }
    if (command == QLatin1String("print-to-pdf") && !target.isEmpty()) {
        SetReportPdfPath((target + QLatin1Char(' ') + rest).trimmed());
        return {};
    }
    if (command == QLatin1String("save-as") && !target.isEmpty()) {
        const QString path = (target + QLatin1Char(' ') + rest).trimmed();
        Dialogs::queueSaveAs(path == QLatin1String("cancel") ? QString() : path);
        return {};
    }
    return executeOnControl(command, target, rest);
}

QString ScriptRunner::executeOnControl(const QString &command, const QString &target, const QString &rest)
{
    static const QStringList commands = {QStringLiteral("click"), QStringLiteral("set"), QStringLiteral("pick"), QStringLiteral("get"),
        QStringLiteral("rows"), QStringLiteral("show"), QStringLiteral("screenshot"), QStringLiteral("focus")};
    if (!commands.contains(command) || target.isEmpty())
        return QStringLiteral("unknown command");

    const QString screenName = target.section(QLatin1Char('.'), 0, 0);
    const QString controlName = target.section(QLatin1Char('.'), 1);
    if (!Screens().knows(screenName))
        return QStringLiteral("unknown screen ") + screenName;
    QWidget *screen = TouchScreen(screenName);

    if (command == QLatin1String("show")) {
        screen->show();
        return {};
    }
    if (command == QLatin1String("screenshot"))
        return saveScreenshot(screen, rest.trimmed()) ? QString() : QStringLiteral("can't write ") + rest.trimmed();

    QWidget *control = controlName.isEmpty() ? screen : screen->findChild<QWidget *>(controlName);
    if (!control)
        return QStringLiteral("unknown control ") + target;
    try {
        if (command == QLatin1String("click"))
            click(control);
        else if (command == QLatin1String("set"))
            setOwnText(control, rest);
        else if (command == QLatin1String("pick"))
            pick(control, rest);
        else if (command == QLatin1String("focus"))
            moveFocusTo(control);
        else if (command == QLatin1String("get") && rest.trimmed() == QLatin1String("focus"))
            m_out << truth(control == m_focused) << '\n';
        else if (command == QLatin1String("get"))
            m_out << property(control, rest) << '\n';
        else
            printRows(listOf(control));
    } catch (const ControlError &error) {
        return target + QLatin1Char(' ') + error.text;
    } catch (const RuntimeError &error) {
        // Handlers end the program on their own failures; what reaches here is the script's
        // own read of the control, such as a row past the end.
        return target + QLatin1Char(' ') + error.description();
    }
    return {};
}

// A screen run without a display never becomes the active window, so the focus moves by the
// events a user's Tab would send: the handlers of both controls run.
void ScriptRunner::moveFocusTo(QWidget *control)
{
    if (m_focused) {
        QFocusEvent leaving(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(m_focused, &leaving);
    }
    m_focused = control;
    QFocusEvent entering(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(control, &entering);
}

void ScriptRunner::printRows(const MList *list)
{
    for (int row = 0; row < list->rowCount(); ++row)
        m_out << FromAnsi(list->rowText(row)) << '\t' << FromAnsi(list->rowTag(row)) << '\n';
}

bool ScriptRunner::saveScreenshot(QWidget *screen, const QString &path)
{
    if (!screen->isVisible()) {
        if (screen->layout())
            screen->layout()->activate();
        screen->resize(screen->size().expandedTo(screen->sizeHint()));
    }
    return !path.isEmpty() && screen->grab().save(path, "PNG");
}

} // namespace qlon
