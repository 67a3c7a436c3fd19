#include "ui/ScreenFit.h"

#include <QGridLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QWidget>

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(ScreenFitTest, AScreenLargerThanTheDisplayScrollsAndKeepsItsControls)
{
    QWidget screen;
    auto *layout = new QGridLayout(&screen);
    for (int row = 0; row < 4; ++row) {
        auto *button = new QPushButton(QStringLiteral("Command"), &screen);
        button->setObjectName(QStringLiteral("SSCommand%1").arg(row));
        button->setMinimumSize(300, 200);
        layout->addWidget(button, row, row);
    }
    auto *overlay = new QWidget(&screen); // outside the layout, as a keypad over the form
    EXPECT_FALSE(FitOnDisplay(&screen, QSize(2000, 1200))) << "it fits";
    EXPECT_EQ(screen.findChild<QScrollArea *>(), nullptr);

    ASSERT_TRUE(FitOnDisplay(&screen, QSize(819, 614)));
    EXPECT_LE(screen.minimumSizeHint().width(), 819);
    EXPECT_LE(screen.minimumSizeHint().height(), 614);
    EXPECT_LE(screen.width(), 819);
    const auto *button = screen.findChild<QPushButton *>(QStringLiteral("SSCommand3"));
    ASSERT_NE(button, nullptr);
    EXPECT_TRUE(screen.findChild<QScrollArea *>()->isAncestorOf(button));
    EXPECT_EQ(overlay->parentWidget(), &screen);
    EXPECT_GT(screen.children().indexOf(overlay), screen.children().indexOf(screen.findChild<QScrollArea *>()))
        << "what stood over the form still does";
}

} // namespace
} // namespace qlon
