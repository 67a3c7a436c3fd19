#pragma once

#include <QString>
#include <QTextStream>

#include <deque>

class QWidget;

namespace qlon {

enum class MessageButtons { Ok, YesNo, OkCancel, YesNoCancel };
enum class MessageAnswer { Ok, Yes, No, Cancel };

// The program's message boxes and file dialogs. On a screen they are Qt's dialogs; when a
// script drives the program, each one prints what it showed and takes the answer the script
// gave beforehand, so that no run ever waits for a person.
class Dialogs
{
public:
    // From here on the dialogs are scripted; their lines go to `out`.
    static void useScriptedAnswers(QTextStream *out);
    // Scripted answers to `out` (or none), with no answer waiting.
    static void resetScript(QTextStream *out);
    static bool scripted() { return s_out != nullptr; }

    static void queueAnswer(MessageAnswer answer) { s_answers.push_back(answer); }
    // A host path, or an empty text for a cancelled dialog.
    static void queueSaveAs(const QString &hostPath) { s_saveAs.push_back(hostPath); }
    // A host folder, or an empty text for a cancelled dialog.
    static void queueFolder(const QString &hostPath) { s_folders.push_back(hostPath); }

    // `details`, such as the file concerned, go to the box's details, or in a script to standard
    // error: the box's own text stays as the system has it.
    static MessageAnswer showMessage(QWidget *parent, const QString &title, const QString &text,
        MessageButtons buttons = MessageButtons::Ok, const QString &details = {});
    // A note of the program's own making, not one of the screens' messages, such as where a PDF
    // went: a message box on a screen, a line on standard error in a script.
    static void showNote(QWidget *parent, const QString &title, const QString &text);
    // A note for whoever runs a script, such as a nightly job's log: standard error, and nothing
    // on a screen.
    static void noteForScript(const QString &text);
    // The platform's error ending: its text, with where it happened (the file concerned) as the
    // box's details. A script sees the text alone; the details go to standard error.
    static void showError(const QString &title, const QString &text, const QString &details);
    // The chosen host path, or an empty text when the user cancels.
    static QString askSaveFileName(QWidget *parent, const QString &suggestedName, const QString &filter);
    // The chosen host folder, or an empty text when the user cancels.
    static QString askFolder(QWidget *parent, const QString &caption);

private:
    static MessageAnswer scriptedMessage(const QString &title, const QString &text, MessageButtons buttons);

    static inline QTextStream *s_out = nullptr;
    static inline std::deque<MessageAnswer> s_answers;
    static inline std::deque<QString> s_saveAs;
    static inline std::deque<QString> s_folders;
};

} // namespace qlon
