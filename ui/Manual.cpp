#include "ui/Manual.h"

#include "ui/Dialogs.h"

#include <QCoreApplication>
#include <QFile>
#include <QPointer>
#include <QTextBrowser>

namespace qlon {

namespace {

// Installed beside the program's folder, or, for a program run from its build, in the sources.
QString manualText()
{
    for (const QString &path : {QCoreApplication::applicationDirPath() + QStringLiteral("/../share/doc/qlon/README.md"),
             QStringLiteral(QLON_SOURCE_DIR "/README.md")}) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            return QString::fromUtf8(file.readAll());
    }
    return {};
}

} // namespace

void ShowManual(QWidget *parent)
{
    static QPointer<QTextBrowser> manual;
    if (!manual) {
        const QString text = manualText();
        if (text.isEmpty()) {
            Dialogs::showNote(parent, QStringLiteral("Manual"), QStringLiteral("The manual is the README in /usr/share/doc/qlon/."));
            return;
        }
        manual = new QTextBrowser;
        manual->setObjectName(QStringLiteral("Manual"));
        manual->setAttribute(Qt::WA_DeleteOnClose);
        manual->setWindowTitle(QStringLiteral("Items Sold — Manual"));
        manual->setOpenExternalLinks(true);
        manual->setMarkdown(text);
        manual->resize(800, 700);
    }
    manual->show();
    manual->raise();
}

} // namespace qlon
