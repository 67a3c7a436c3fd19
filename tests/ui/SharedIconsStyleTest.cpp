#include "ui/SharedIconsStyle.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QToolButton>

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(SharedIconsStyleTest, EachStandardIconIsMadeOnceForEachDirection)
{
    SharedIconsStyle style;
    const QIcon left = style.standardIcon(QStyle::SP_ArrowLeft);
    EXPECT_FALSE(left.isNull());
    EXPECT_EQ(style.standardIcon(QStyle::SP_ArrowLeft).cacheKey(), left.cacheKey());
    EXPECT_NE(style.standardIcon(QStyle::SP_ArrowRight).cacheKey(), left.cacheKey());
    QWidget rightToLeft;
    rightToLeft.setLayoutDirection(Qt::RightToLeft);
    EXPECT_NE(
        style.standardIcon(QStyle::SP_ArrowBack, nullptr, &rightToLeft).cacheKey(), style.standardIcon(QStyle::SP_ArrowBack).cacheKey());
    // Calendars made under the style share its arrows.
    const QString previous = QApplication::style()->name();
    QApplication::setStyle(new SharedIconsStyle);
    const qint64 arrow = QApplication::style()->standardIcon(QStyle::SP_ArrowLeft).cacheKey();
    {
        QCalendarWidget first;
        QCalendarWidget second;
        for (const QCalendarWidget *calendar : {&first, &second})
            EXPECT_EQ(calendar->findChild<QToolButton *>(QStringLiteral("qt_calendar_prevmonth"))->icon().cacheKey(), arrow);
    }
    QApplication::setStyle(previous);
}

} // namespace
} // namespace qlon
