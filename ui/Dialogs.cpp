#include "ui/Dialogs.h"

#include <QFileDialog>
#include <QMessageBox>

namespace qlon {

namespace {

QString shownOnOneLine(QString text)
{
    return text.replace(QLatin1Char('\r'), QLatin1String("\\r")).replace(QLatin1Char('\n'), QLatin1String("\\n"));
}

MessageAnswer defaultAnswer(MessageButtons buttons)
{
    return buttons == MessageButtons::YesNo || buttons == MessageButtons::YesNoCancel ? MessageAnswer::Yes : MessageAnswer::Ok;
}

QMessageBox::StandardButtons standardButtons(MessageButtons buttons)
{
    switch (buttons) {
    case MessageButtons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::Ok: break;
    }
    return QMessageBox::Ok;
}

MessageAnswer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes: return MessageAnswer::Yes;
    case QMessageBox::No: return MessageAnswer::No;
    case QMessageBox::Cancel: return MessageAnswer::Cancel;
    default: return MessageAnswer::Ok;
    }
}

} // namespace

void Dialogs::useScriptedAnswers(QTextStream *out)
{
    s_out = out;
}

void Dialogs::resetScript(QTextStream *out)
{
    s_out = out;
    s_answers.clear();
    s_saveAs.clear();
    s_folders.clear();
}

MessageAnswer Dialogs::scriptedMessage(const QString &title, const QString &text, MessageButtons buttons)
{
    *s_out << "message: " << shownOnOneLine(title) << " | " << shownOnOneLine(text) << Qt::endl;
    if (s_answers.empty())
        return defaultAnswer(buttons);
    const MessageAnswer answer = s_answers.front();
    s_answers.pop_front();
    return answer;
}

MessageAnswer Dialogs::showMessage(
    QWidget *parent, const QString &title, const QString &text, MessageButtons buttons, const QString &details)
{
    if (scripted()) {
        if (!details.isEmpty())
            QTextStream(stderr) << "qlon: " << shownOnOneLine(title) << ": " << details << Qt::endl;
        return scriptedMessage(title, text, buttons);
    }
    QMessageBox box(QMessageBox::Information, title, text, standardButtons(buttons), parent);
    box.setDetailedText(details);
    return answerOf(box.exec());
}

void Dialogs::showNote(QWidget *parent, const QString &title, const QString &text)
{
    if (scripted())
        noteForScript(text);
    else
        QMessageBox::information(parent, title, text);
}

void Dialogs::noteForScript(const QString &text)
{
    if (scripted())
        QTextStream(stderr) << "qlon: " << shownOnOneLine(text) << Qt::endl;
}

void Dialogs::showError(const QString &title, const QString &text, const QString &details)
{
    if (scripted()) {
        scriptedMessage(title, text, MessageButtons::Ok);
        return;
    }
    QMessageBox box(QMessageBox::Critical, title, text, QMessageBox::Ok);
    box.setDetailedText(details);
    box.exec();
}

namespace {

QString takeFirst(std::deque<QString> &answers)
{
    if (answers.empty())
        return {};
    QString answer = answers.front();
    answers.pop_front();
    return answer;
}

} // namespace

QString Dialogs::askSaveFileName(QWidget *parent, const QString &suggestedName, const QString &filter)
{
    if (!scripted())
        return QFileDialog::getSaveFileName(parent, QString(), suggestedName, filter);
    return takeFirst(s_saveAs);
}

QString Dialogs::askFolder(QWidget *parent, const QString &caption)
{
    if (!scripted())
        return QFileDialog::getExistingDirectory(parent, caption);
    *s_out << "folder: " << caption << Qt::endl;
    return takeFirst(s_folders);
}

} // namespace qlon
