#include "ui/ScreenKeys.h"
#include "ui/WindowPlace.h"

#include <QPushButton>
#include <QShortcut>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace qlon {
namespace {

// Presses the key as its shortcut would on the screen's window.
void press(QWidget *screen, const QKeySequence &key)
{
    for (QShortcut *shortcut : screen->findChildren<QShortcut *>()) {
        if (shortcut->key() == key)
            emit shortcut->activated();
    }
}

TEST(ScreenKeysTest, EscapeAndPrintPressTheScreensOwnButtons)
{
    QWidget screen;
    auto *layout = new QVBoxLayout(&screen);
    QStringList pressed;
    const auto button = [&](const QString &caption) {
        auto *made = new QPushButton(caption, &screen);
        layout->addWidget(made);
        QObject::connect(made, &QPushButton::clicked, [&pressed, caption] { pressed.append(caption); });
        return made;
    };
    QPushButton *done = button(QStringLiteral("Done"));
    button(QStringLiteral("Print"));
    button(QStringLiteral("&Print"));
    QPushButton *close = button(QStringLiteral("&Close"));
    MarkAsProgramsEnd(done);
    AddStandardKeys(&screen);
    screen.show();

    press(&screen, QKeySequence(Qt::Key_Escape));
    press(&screen, QKeySequence::Print);
    EXPECT_EQ(pressed, QStringList({QStringLiteral("&Close"), QStringLiteral("&Print")})) << "the report's Print comes last";
    close->setEnabled(false);
    press(&screen, QKeySequence(Qt::Key_Escape));
    EXPECT_EQ(pressed.size(), 2) << "Escape never presses a Done that ends the program";
}

TEST(ScreenKeysTest, AScreenComesBackWhereItWasLeft)
{
    const QTemporaryDir home;
    const QString settings = home.filePath(QStringLiteral("qlon.ini"));
    QWidget first;
    first.setObjectName(QStringLiteral("PhoneList"));
    RememberWindowPlace(&first, settings);
    first.setGeometry(120, 80, 420, 310);
    first.show();
    first.hide();
    QWidget again;
    again.setObjectName(QStringLiteral("PhoneList"));
    RememberWindowPlace(&again, settings);
    EXPECT_EQ(again.size(), QSize(420, 310));
}

} // namespace
} // namespace qlon
