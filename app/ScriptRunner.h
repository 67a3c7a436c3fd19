#pragma once

#include <QEventLoop>
#include <QIODevice>
#include <QPointer>
#include <QString>
#include <QTextStream>

#include <memory>
#include <optional>

class QWidget;

namespace qlon {

// Drives the program from a script, one command a line, by the names of its screens and
// controls:
//   click SCREEN.CONTROL          set SCREEN.CONTROL TEXT       pick SCREEN.CONTROL TEXT
//   get SCREEN.CONTROL [enabled|visible|checked|focus|count|row N|tag N]
//   rows SCREEN.CONTROL
//   answer OK|Yes|No|Cancel       save-as PATH|cancel           wait
//   advance SECONDS               focus SCREEN.CONTROL
//   show SCREEN                   screenshot SCREEN PATH        print-to-pdf PATH
//   start SCREEN.CONTROL          wait-until SCREEN.CONTROL text|enabled|visible|checked|count VALUE [SECONDS]
//   # a comment
// Control arrays are named with their index: SSOption4(2). What each command means for each
// kind of control is in ControlKinds.
class ScriptRunner
{
public:
    enum Status { Completed = 0, WaitedInVain = 1, BadLine = 2 };

    ScriptRunner(QTextStream &out, QTextStream &err);
    ~ScriptRunner();
    ScriptRunner(const ScriptRunner &) = delete;
    ScriptRunner &operator=(const ScriptRunner &) = delete;

    Status run(QIODevice &script);

    // Saves a picture of the screen as a PNG; false when it can't be written.
    static bool saveScreenshot(QWidget *screen, const QString &path);

private:
    struct Waiting;

    // Runs lines until the script waits or ends.
    void step();
    bool waitIsOver();
    void fail(Status status, const QString &problem);
    void end(Status status);

    // An empty text when the line ran; otherwise what was wrong with it.
    QString execute(const QString &line);
    QString executeOnControl(const QString &command, const QString &target, const QString &rest);
    void start(QWidget *control, void (*click)(QWidget *));
    QString waitUntil(const QString &target, const QString &rest);

    void printRows(QWidget *control);
    void moveFocusTo(QWidget *control);

    QTextStream &m_out;
    QTextStream &m_err;
    QIODevice *m_script = nullptr;
    QEventLoop m_loop;
    std::unique_ptr<Waiting> m_waiting; // what the next line waits for
    std::optional<Status> m_status; // set when the script has ended
    bool m_stepping = false;
    int m_lineNumber = 0;
    QString m_line;
    QPointer<QWidget> m_focused; // the control a script last moved the focus to
};

} // namespace qlon
