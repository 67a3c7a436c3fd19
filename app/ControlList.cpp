#include "app/ControlList.h"

#include "app/ControlKinds.h"
#include "ui/ScreenRegistry.h"

#include <QWidget>

#include <memory>

namespace qlon {

namespace {

// A caption kept on its line.
QString oneLine(const QString &caption)
{
    QString line = caption;
    return line.replace(QLatin1Char('\r'), QLatin1String("\\r"))
        .replace(QLatin1Char('\n'), QLatin1String("\\n"))
        .replace(QLatin1Char('\t'), QLatin1Char(' '));
}

void printControl(QWidget *control, const QString &name, QTextStream &out)
{
    const ControlKind &kind = KindOf(control);
    out << name << '\t' << kind.name << '\t' << oneLine(CaptionOf(control)) << '\t' << kind.commands().join(QStringLiteral(", ")) << '\n';
}

} // namespace

int ListControls(const QString &screenName, QTextStream &out, QTextStream &err)
{
    const std::unique_ptr<QWidget> screen(Screens().make(screenName));
    if (!screen) {
        err << "qlon: there is no screen " << screenName << "; the screens are " << Screens().names().join(QStringLiteral(", "))
            << Qt::endl;
        return 2;
    }
    printControl(screen.get(), screenName, out);
    const QList<QWidget *> controls = screen->findChildren<QWidget *>();
    for (QWidget *control : controls) {
        if (!control->objectName().isEmpty() && !control->objectName().startsWith(QLatin1String("qt_")))
            printControl(control, control->objectName(), out);
    }
    out.flush();
    return 0;
}

} // namespace qlon
