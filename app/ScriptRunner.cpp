#include "app/ScriptRunner.h"

#include "app/ControlKinds.h"

#include "core/RuntimeError.h"
#include "ui/Dialogs.h"
#include "ui/Program.h"
#include "ui/Report.h"
#include "ui/ScreenRegistry.h"
#include "ui/ScreenTimer.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFocusEvent>
#include <QLayout>
#include <QProgressBar>
#include <QRegularExpression>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace qlon {

namespace {

// The operation a control's kind has for a command; a kind without it is a script error.
template<typename Operation>
Operation operationOf(Operation operation, const char *missing)
{
    if (!operation)
        throw ControlError{QLatin1String(missing)};
    return operation;
}

int rowIndex(QWidget *control, const QString &number)
{
    bool isNumber = false;
    const int row = number.toInt(&isNumber);
    if (!isNumber || row < 0 || row >= operationOf(KindOf(control).count, "has no rows")(control))
        throw ControlError{QStringLiteral("has no row ") + number};
    return row;
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

QString property(QWidget *control, const QString &property)
{
    const ControlKind &kind = KindOf(control);
    const QStringList words = property.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return operationOf(kind.text, "has no caption or text")(control);
    if (words.size() == 1 && words[0] == QLatin1String("enabled"))
        return truth(ownEnabled(control));
    if (words.size() == 1 && words[0] == QLatin1String("visible"))
        return truth(ownVisible(control));
    if (words.size() == 1 && words[0] == QLatin1String("checked"))
        return truth(operationOf(kind.checked, "has no checked state")(control));
    if (words.size() == 1 && words[0] == QLatin1String("count"))
        return QString::number(operationOf(kind.count, "has no count")(control));
    if (words.size() == 2 && words[0] == QLatin1String("row"))
        return operationOf(kind.row, "has no rows")(control, rowIndex(control, words[1]));
    if (words.size() == 2 && words[0] == QLatin1String("tag"))
        return operationOf(kind.tag, "has no tags")(control, rowIndex(control, words[1]));
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

// Lets the screens' timers run as if the seconds had passed; what they post is then handled.
QString advance(const QString &seconds)
{
    bool isNumber = false;
    const double length = seconds.toDouble(&isNumber);
    // Written so that "nan" fails too.
    if (!isNumber || !(length >= 0 && length <= 86400))
        return QStringLiteral("advance takes seconds, from 0 to 86400");
    AdvanceClock(qRound64(length * 1000));
    QApplication::processEvents();
    return {};
}

bool idle()
{
    return RunningHandlers() == 0 && PendingTimers() == 0;
}

// A progress bar may step over a value: its value is reached once it is there or past it.
bool reaches(QWidget *control, const QString &now, const QString &wanted)
{
    bool isNumber = false;
    const int target = wanted.toInt(&isNumber);
    if (qobject_cast<QProgressBar *>(control) && isNumber)
        return now.toInt() >= target;
    return now == wanted;
}

// How often a script that waits looks again.
constexpr int beatMilliseconds = 5;
constexpr double defaultWaitSeconds = 60;

} // namespace

// What the script waits for before its next line: a condition, and what to say if it never holds.
struct ScriptRunner::Waiting
{
    std::function<bool()> isOver;
    QDeadlineTimer deadline = QDeadlineTimer(QDeadlineTimer::Forever);
    std::function<QString()> inVain = {}; // the line's problem once the deadline passes
};

ScriptRunner::ScriptRunner(QTextStream &out, QTextStream &err)
    : m_out(out)
    , m_err(err)
{
}

ScriptRunner::~ScriptRunner() = default;

// Lines run from a beat of the event loop, not from a loop of their own: after `start`, the line
// that follows runs while the started command's long run yields, as a user's next click would.
// A plain `click` runs its handler to the end first, its yields passing the beat by.
ScriptRunner::Status ScriptRunner::run(QIODevice &script)
{
    Dialogs::useScriptedAnswers(&m_out);
    m_script = &script;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [this] { step(); });
    beat.start(beatMilliseconds);
    step();
    // A script that ends while a started run goes on ends with that run.
    if (!m_status)
        m_loop.exec();
    return *m_status;
}

void ScriptRunner::step()
{
    if (m_stepping || m_status || (m_waiting && !waitIsOver()))
        return;
    m_stepping = true;
    // Read until the end, waiting for each line: a script may come through a pipe.
    while (!m_waiting && !m_status) {
        const QByteArray text = m_script->readLine();
        if (text.isEmpty()) {
            end(Completed);
            break;
        }
        const QString line = QString::fromUtf8(text).trimmed();
        ++m_lineNumber;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        m_line = line;
        const QString problem = execute(line);
        // Between two commands, as between two clicks of a user, a screen closed for good goes.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_out.flush();
        if (!problem.isEmpty())
            fail(BadLine, problem);
    }
    m_stepping = false;
}

bool ScriptRunner::waitIsOver()
{
    if (m_waiting->isOver()) {
        m_waiting.reset();
        // What the run posted as it ended is handled before the next line, as a user's next click
        // comes after it.
        QApplication::processEvents();
        return true;
    }
    if (!m_waiting->deadline.hasExpired())
        return false;
    const QString problem = m_waiting->inVain();
    m_waiting.reset();
    fail(WaitedInVain, problem);
    return false;
}

void ScriptRunner::fail(Status status, const QString &problem)
{
    m_out.flush();
    m_err << "qlon: script line " << m_lineNumber << ": " << problem << " (" << m_line << ")" << Qt::endl;
    end(status);
}

void ScriptRunner::end(Status status)
{
    m_status = status;
    m_loop.exit();
}

QString ScriptRunner::execute(const QString &line)
{
    static const QRegularExpression form(QStringLiteral("^(\\S+)(?:\\s+(\\S+))?(?:\\s(.*))?$"));
    const QRegularExpressionMatch parts = form.match(line);
    const QString command = parts.captured(1);
    const QString target = parts.captured(2);
    const QString rest = parts.captured(3);

    if (command == QLatin1String("wait") && target.isEmpty()) {
        m_waiting = std::make_unique<Waiting>(Waiting{idle});
        return {};
    }
    if (command == QLatin1String("wait-until") && !target.isEmpty())
        return waitUntil(target, rest);
    if (command == QLatin1String("advance") && rest.isEmpty())
        return advance(target);
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
    static const QStringList commands = {QStringLiteral("click"), QStringLiteral("start"), QStringLiteral("set"), QStringLiteral("pick"),
        QStringLiteral("get"), QStringLiteral("rows"), QStringLiteral("show"), QStringLiteral("screenshot"), QStringLiteral("focus")};
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
        const ControlKind &kind = KindOf(control);
        if (command == QLatin1String("click"))
            operationOf(kind.click, "can't be clicked")(control);
        else if (command == QLatin1String("start"))
            start(control, operationOf(kind.click, "can't be clicked"));
        else if (command == QLatin1String("set"))
            operationOf(kind.setText, "takes no text")(control, rest);
        else if (command == QLatin1String("pick"))
            operationOf(kind.pick, "has no entries to pick")(control, rest);
        else if (command == QLatin1String("focus"))
            moveFocusTo(control);
        else if (command == QLatin1String("get") && rest.trimmed() == QLatin1String("focus"))
            m_out << truth(control == m_focused) << '\n';
        else if (command == QLatin1String("get"))
            m_out << property(control, rest) << '\n';
        else
            printRows(control);
    } catch (const ControlError &error) {
        return target + QLatin1Char(' ') + error.text;
    } catch (const RuntimeError &error) {
        // Handlers end the program on their own failures; what reaches here is the script's
        // own read of the control, such as a row past the end.
        return target + QLatin1Char(' ') + error.description();
    }
    return {};
}

// The click is posted, and the script waits only until it has begun: the next line runs at the
// started run's first yield, or after it if it never yields.
void ScriptRunner::start(QWidget *control, void (*click)(QWidget *))
{
    auto begun = std::make_shared<bool>(false);
    QTimer::singleShot(0, control, [control, click, begun] {
        *begun = true;
        click(control);
    });
    const QPointer<QWidget> started(control);
    m_waiting = std::make_unique<Waiting>(Waiting{[begun, started] { return *begun || !started; }});
}

// wait-until SCREEN.CONTROL PROPERTY VALUE [SECONDS]: VALUE is one word or "a quoted text".
QString ScriptRunner::waitUntil(const QString &target, const QString &rest)
{
    static const QRegularExpression form(QStringLiteral("^(\\S+)\\s+(?:\"([^\"]*)\"|([^\"\\s]\\S*))(?:\\s+(\\S+))?$"));
    static const QStringList properties = {
        QStringLiteral("text"), QStringLiteral("enabled"), QStringLiteral("visible"), QStringLiteral("checked"), QStringLiteral("count")};
    const QRegularExpressionMatch parts = form.match(rest.trimmed());
    const QString name = parts.captured(1);
    bool isNumber = true;
    const double seconds = parts.captured(4).isEmpty() ? defaultWaitSeconds : parts.captured(4).toDouble(&isNumber);
    if (!parts.hasMatch() || !properties.contains(name) || !isNumber || !(seconds > 0 && seconds <= 86400))
        return QStringLiteral("wait-until takes a control, text|enabled|visible|checked|count, a value and seconds up to 86400");
    const QString wanted = parts.captured(2).isEmpty() ? parts.captured(3) : parts.captured(2);
    const QString screenName = target.section(QLatin1Char('.'), 0, 0);
    const QString controlName = target.section(QLatin1Char('.'), 1);
    const QString asked = name == QLatin1String("text") ? QString() : name;
    const auto current = [screenName, controlName, asked]() -> std::optional<std::pair<QWidget *, QString>> {
        QWidget *screen = Screens().existing(screenName);
        QWidget *control = screen && !controlName.isEmpty() ? screen->findChild<QWidget *>(controlName) : screen;
        if (!control)
            return std::nullopt;
        return std::pair{control, property(control, asked)};
    };
    try {
        if (!current())
            return QStringLiteral("unknown control ") + target;
    } catch (const ControlError &error) {
        return target + QLatin1Char(' ') + error.text;
    }
    const auto inVain = [current, target, name, wanted, seconds] {
        const auto now = current();
        return QStringLiteral("waited %1 s for %2 %3 to be %4; it is %5")
            .arg(seconds)
            .arg(target, name, wanted, now ? now->second : QStringLiteral("gone"));
    };
    const auto isOver = [current, wanted] {
        const auto now = current();
        return now && reaches(now->first, now->second, wanted);
    };
    m_waiting = std::make_unique<Waiting>(Waiting{isOver, QDeadlineTimer(qint64(seconds * 1000)), inVain});
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

// Every row: its text, a tab and its tag, empty for the kinds that keep none.
void ScriptRunner::printRows(QWidget *control)
{
    const ControlKind &kind = KindOf(control);
    const int rows = operationOf(kind.count, "is no list")(control);
    for (int row = 0; row < rows; ++row)
        m_out << kind.row(control, row) << '\t' << (kind.tag ? kind.tag(control, row) : QString()) << '\n';
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
