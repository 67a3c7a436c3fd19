// Every screen of the program fits a 1024 x 768 display with room for the desktop's panel, and
// Tab moves through it in the order of its layout.
#include "app/Screens.h"
#include "demo/DemoSite.h"
#include "store/SiteConfig.h"
#include "tests/support/TempSite.h"
#include "ui/Program.h"
#include "ui/ScreenRegistry.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QWidget>

#include <gtest/gtest.h>

namespace qlon {
namespace {

// Every screen of the program, registered as the program registers them, on the demonstration site.
class ScreenSizeTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        WriteDemoSite(site.driveFolder(), QDate(2026, 11, 23));
        RegisterScreens();
    }
    void TearDown() override { Screens().clear(); }

    const test::TempSite site;
};

TEST_F(ScreenSizeTest, EveryScreenFitsA1024By768Display)
{
    TouchScreen(QStringLiteral("QLONlistBuilder1"));
    for (const QString &name : Screens().names()) {
        const QWidget *screen = TouchScreen(name);
        ASSERT_NE(screen, nullptr) << name.toStdString();
        const QSize least = screen->minimumSizeHint().expandedTo(screen->minimumSize());
        EXPECT_LE(least.width(), 1000) << name.toStdString();
        EXPECT_LE(least.height(), name == QLatin1String("TCEmployee") ? 700 : 720) << name.toStdString();
        EXPECT_LE(screen->width(), 1024) << name.toStdString();
        EXPECT_LE(screen->height(), 740) << name.toStdString();
    }
}

// A screen reader names every box, picker, calendar and list by its label, or at least its tip.
TEST_F(ScreenSizeTest, EveryInputControlHasAnAccessibleName)
{
    TouchScreen(QStringLiteral("QLONlistBuilder1"));
    for (const QString &name : Screens().names()) {
        QWidget *screen = TouchScreen(name);
        for (QWidget *control : screen->findChildren<QWidget *>()) {
            const bool input = qobject_cast<QLineEdit *>(control) || qobject_cast<QComboBox *>(control) ||
                qobject_cast<QAbstractItemView *>(control) || qobject_cast<QCalendarWidget *>(control);
            if (!input || control->objectName().isEmpty() || control->objectName().startsWith(QLatin1String("qt_")) ||
                qobject_cast<QComboBox *>(control->parentWidget()) || qobject_cast<QCalendarWidget *>(control->parentWidget()))
                continue;
            EXPECT_FALSE(control->accessibleName().isEmpty()) << (name + QLatin1Char('.') + control->objectName()).toStdString();
        }
    }
    const auto nameOf = [](const char *screen, const char *control) {
        return Screens().existing(QLatin1String(screen))->findChild<QWidget *>(QLatin1String(control))->accessibleName();
    };
    EXPECT_EQ(nameOf("TCEmployee", "txtName"), QStringLiteral("Name")) << "the label before it";
    EXPECT_EQ(nameOf("QLONlistBuilder1", "Combo2"), QStringLiteral("Start Time"));
    EXPECT_EQ(nameOf("PhoneList", "grdPhones"), QStringLiteral("Phone List list")) << "no label, no tip";
}

// The controls that Tab reaches after `from`, the next `count` of them.
QStringList tabbedAfter(QWidget *from, int count)
{
    QStringList names;
    for (QWidget *next = from->nextInFocusChain(); names.size() < count && next != from; next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) && !next->objectName().isEmpty() && next->isVisibleTo(from->window()))
            names.append(next->objectName());
    }
    return names;
}

TEST_F(ScreenSizeTest, TabFollowsTheLayoutTopLeftToBottomRight)
{
    QWidget *main = TouchScreen(QStringLiteral("QLONlistBuilder1"));
    EXPECT_EQ(tabbedAfter(main->findChild<QWidget *>(QStringLiteral("SSCommand10")), 2),
        QStringList({QStringLiteral("SSCommand2"), QStringLiteral("SSCommand4")}))
        << "Today, then the commands below it";
    QWidget *employees = TouchScreen(QStringLiteral("TCEmployee"));
    EXPECT_EQ(tabbedAfter(employees->findChild<QWidget *>(QStringLiteral("txtName")), 2),
        QStringList({QStringLiteral("txtAddress"), QStringLiteral("txtCity")}));
    EXPECT_EQ(tabbedAfter(employees->findChild<QWidget *>(QStringLiteral("txtRecord")), 1), QStringList{QStringLiteral("txtName")})
        << "from the list's side to the personal fields";
}

} // namespace
} // namespace qlon
