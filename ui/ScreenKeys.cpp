#include "ui/ScreenKeys.h"

#include "ui/Manual.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QTextEdit>

#include <functional>

namespace qlon {

namespace {

const char endsProgram[] = "qlonEndsProgram";

QString plainCaption(QString caption)
{
    return caption.remove(QLatin1Char('&')).trimmed();
}

// The last of the screen's own buttons, shown and enabled, with one of the captions: where a screen
// prints both a receipt slip and its report, the report's Print comes last.
QPushButton *buttonCaptioned(QWidget *screen, const QStringList &captions, bool skipProgramsEnd)
{
    const QList<QPushButton *> buttons = screen->findChildren<QPushButton *>();
    for (auto button = buttons.rbegin(); button != buttons.rend(); ++button) {
        QPushButton *candidate = *button;
        if (candidate->window() != screen || !candidate->isVisible() || !candidate->isEnabled())
            continue;
        if (skipProgramsEnd && candidate->property(endsProgram).toBool())
            continue;
        if (captions.contains(plainCaption(candidate->text()), Qt::CaseInsensitive))
            return candidate;
    }
    return nullptr;
}

void pressOnKey(QWidget *screen, const QKeySequence &key, const std::function<QPushButton *()> &button)
{
    auto *shortcut = new QShortcut(key, screen);
    QObject::connect(shortcut, &QShortcut::activated, screen, [button] {
        if (QPushButton *pressed = button())
            pressed->click();
    });
}

bool isInput(QWidget *widget)
{
    return qobject_cast<QLineEdit *>(widget) || qobject_cast<QTextEdit *>(widget) || qobject_cast<QPlainTextEdit *>(widget) ||
        qobject_cast<QComboBox *>(widget) || qobject_cast<QAbstractItemView *>(widget) || qobject_cast<QCalendarWidget *>(widget) ||
        qobject_cast<QAbstractSpinBox *>(widget);
}

// A control of the screen's own, not a part of another control.
bool isOwnControl(QWidget *widget, QWidget *screen)
{
    if (widget->objectName().isEmpty() || widget->objectName().startsWith(QLatin1String("qt_")))
        return false;
    for (QWidget *above = widget->parentWidget(); above && above != screen; above = above->parentWidget()) {
        if (isInput(above))
            return false;
    }
    return true;
}

QString labelText(QLayoutItem *item)
{
    const auto *label = item ? qobject_cast<QLabel *>(item->widget()) : nullptr;
    return label ? plainCaption(label->text()).remove(QRegularExpression(QStringLiteral(":$"))) : QString();
}

// The label before the control in its grid's row, else the one above it.
QString labelInGrid(const QGridLayout *grid, int index)
{
    int row = 0, column = 0, rowSpan = 0, columnSpan = 0;
    grid->getItemPosition(index, &row, &column, &rowSpan, &columnSpan);
    for (int before = column - 1; before >= 0; --before) {
        if (const QString text = labelText(grid->itemAtPosition(row, before)); !text.isEmpty())
            return text;
    }
    return row > 0 ? labelText(grid->itemAtPosition(row - 1, column)) : QString();
}

// The label beside the control in the layout that holds it.
QString labelInLayout(const QLayout *layout, QWidget *control)
{
    for (int index = 0; index < layout->count(); ++index) {
        QLayoutItem *item = layout->itemAt(index);
        if (item->layout()) {
            if (const QString text = labelInLayout(item->layout(), control); !text.isEmpty())
                return text;
        }
        if (item->widget() != control)
            continue;
        if (const auto *grid = qobject_cast<const QGridLayout *>(layout))
            return labelInGrid(grid, index);
        return index > 0 ? labelText(layout->itemAt(index - 1)) : QString();
    }
    return {};
}

QString labelOf(QWidget *control, QWidget *screen)
{
    for (const QLabel *label : screen->findChildren<QLabel *>()) {
        if (label->buddy() == control)
            return plainCaption(label->text());
    }
    for (QWidget *holder = control->parentWidget(); holder; holder = holder == screen ? nullptr : holder->parentWidget()) {
        if (holder->layout()) {
            if (const QString text = labelInLayout(holder->layout(), control); !text.isEmpty())
                return text;
        }
    }
    if (!control->toolTip().isEmpty())
        return control->toolTip();
    // A list or box with neither: what it is, on which screen.
    const QString kind = qobject_cast<QAbstractItemView *>(control) ? QStringLiteral("list")
        : qobject_cast<QComboBox *>(control)                        ? QStringLiteral("picker")
                                                                    : QStringLiteral("box");
    return QStringLiteral("%1 %2").arg(screen->windowTitle(), kind);
}

} // namespace

void MarkAsProgramsEnd(QWidget *button)
{
    button->setProperty(endsProgram, true);
}

void AddStandardKeys(QWidget *screen)
{
    pressOnKey(screen, QKeySequence(Qt::Key_Escape), [screen] {
        return buttonCaptioned(screen, {QStringLiteral("Close"), QStringLiteral("Cancel"), QStringLiteral("Done")}, true);
    });
    pressOnKey(screen, QKeySequence::Print, [screen] { return buttonCaptioned(screen, {QStringLiteral("Print")}, false); });
    auto *quit = new QShortcut(QKeySequence::Quit, screen);
    QObject::connect(quit, &QShortcut::activated, screen, [] { QApplication::closeAllWindows(); });
    auto *help = new QShortcut(QKeySequence::HelpContents, screen);
    QObject::connect(help, &QShortcut::activated, screen, [screen] { ShowManual(screen); });
}

void NameControlsFromLabels(QWidget *screen)
{
    for (QWidget *control : screen->findChildren<QWidget *>()) {
        if (isInput(control) && isOwnControl(control, screen) && control->accessibleName().isEmpty())
            control->setAccessibleName(labelOf(control, screen));
    }
}

} // namespace qlon
