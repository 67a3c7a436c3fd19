#include "ui/MList.h"

#include "core/RuntimeError.h"
#include "tests/support/Printers.h"
#include "tests/support/Rows.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBrush>
#include <QHeaderView>
#include <QMouseEvent>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <ostream>

namespace qlon {
namespace {

using Texts = QList<QByteArray>;

class MListTest : public ::testing::Test
{
protected:
    QAbstractItemView &view() { return *m_list.findChild<QAbstractItemView *>(); }
    QAbstractItemModel &shown() { return *view().model(); }

    QString shownText(int row, int column) { return shown().index(row, column).data().toString(); }
    QVariant shownBackground(int row) { return shown().index(row, 0).data(Qt::BackgroundRole); }
    QString heading(int column) { return shown().headerData(column, Qt::Horizontal).toString(); }

    void addRows(const Texts &rows) { test::AddRows(m_list.rows(), rows); }
    void sortBy(const QByteArray &key) { test::SortBy(m_list.rows(), key); }

    MList m_list;
};

using test::RuntimeErrorNumber;

TEST_F(MListTest, ShowsTheFieldsOfEachRowUnderTheirHeadings)
{
    m_list.setColumns({{QStringLiteral("Item"), 150}, {QStringLiteral("Type"), 60}, {QStringLiteral("Price"), 75}});
    m_list.addRow(QByteArrayLiteral("Caf\xE9 au lait|Beverage|2.50|ignored"));
    m_list.addRow(QByteArrayLiteral("********************"));

    ASSERT_EQ(shown().columnCount(), 3);
    EXPECT_EQ(heading(0), QStringLiteral("Item"));
    EXPECT_EQ(heading(2), QStringLiteral("Price"));
    EXPECT_EQ(m_list.findChild<QHeaderView *>()->sectionSize(1), 60);
    EXPECT_EQ(shownText(0, 0), QStringLiteral("Café au lait"));
    EXPECT_EQ(shownText(0, 2), QStringLiteral("2.50"));
    EXPECT_EQ(shownText(1, 0), QStringLiteral("********************"));
    EXPECT_EQ(shownText(1, 1), QString()) << "a row without a second field leaves it blank";
}

TEST_F(MListTest, SplitsAtTheSeparatorItIsGiven)
{
    m_list.setSeparator(',');
    m_list.setColumns({{QStringLiteral("Emp ID"), 80}, {QStringLiteral("Item"), 150}});
    m_list.addRow(QByteArrayLiteral("1000,Fish|Chips"));

    EXPECT_EQ(shownText(0, 0), QStringLiteral("1000"));
    EXPECT_EQ(shownText(0, 1), QStringLiteral("Fish|Chips"));
}

TEST_F(MListTest, ShowsTheWholeTextWhenItHasNoColumns)
{
    m_list.addRow(QByteArrayLiteral("0|12"));

    ASSERT_EQ(shown().columnCount(), 1);
    EXPECT_EQ(shownText(0, 0), QStringLiteral("0|12"));
}

TEST_F(MListTest, PlainColourValuesShowAsTheRowBackground)
{
    addRows({"Burger", "Soda"});
    m_list.setRowColour(0, 255);
    m_list.setRowColour(1, 0x00FF8000);

    EXPECT_EQ(m_list.rowColour(0), 255u);
    EXPECT_EQ(shownBackground(0).value<QBrush>().color(), QColor(255, 0, 0));
    EXPECT_EQ(shownBackground(1).value<QBrush>().color(), QColor(0, 0x80, 0xFF));
}

TEST_F(MListTest, TheButtonFaceColourShowsTheListsOwnLook)
{
    m_list.addRow(QByteArrayLiteral("Burger"));
    EXPECT_FALSE(shownBackground(0).isValid()) << "a new row";

    m_list.setRowColour(0, 255);
    m_list.setRowColour(0, 0x8000000F);
    EXPECT_EQ(m_list.rowColour(0), 0x8000000Fu);
    EXPECT_FALSE(shownBackground(0).isValid());
}

TEST_F(MListTest, TheViewShowsTheSortedOrderAndKeepsTheSelectedRow)
{
    m_list.setColumns({{QStringLiteral("Item"), 150}});
    addRows({"Soda", "Burger", "Pie"});
    m_list.setRowSelected(0, true);

    sortBy(QByteArrayLiteral("0a"));

    EXPECT_EQ(shownText(0, 0), QStringLiteral("Burger"));
    EXPECT_EQ(shownText(2, 0), QStringLiteral("Soda"));
    EXPECT_TRUE(m_list.isRowSelected(2));
    EXPECT_FALSE(m_list.isRowSelected(0));
}

TEST_F(MListTest, TheViewFollowsRemovalsAndSelectionsOutOfRangeFail)
{
    addRows({"Burger", "Soda", "Pie"});
    m_list.removeRow(1);

    EXPECT_EQ(shown().rowCount(), 2);
    EXPECT_EQ(shownText(1, 0), QStringLiteral("Pie"));
    EXPECT_EQ(RuntimeErrorNumber([&] { m_list.setRowSelected(5, true); }), RuntimeError::InvalidPropertyValue);
    EXPECT_EQ(RuntimeErrorNumber([&] { m_list.isRowSelected(-1); }), RuntimeError::InvalidPropertyValue);
    m_list.clear();
    EXPECT_EQ(shown().rowCount(), 0);
}

TEST_F(MListTest, TenThousandRowsSortWithTheirTags)
{
    constexpr int count = 10000;
    for (int number = count; number > 0; --number) {
        m_list.addRow(QByteArray::number(number).rightJustified(10, '0') + "|item");
        m_list.setRowTag(m_list.lastAddedRow(), QByteArray::number(number));
    }
    sortBy(QByteArrayLiteral("0a"));

    ASSERT_EQ(m_list.rowCount(), count);
    ASSERT_EQ(shown().rowCount(), count);
    for (int row = 0; row < count; ++row) {
        ASSERT_EQ(m_list.rowText(row), QByteArray::number(row + 1).rightJustified(10, '0') + "|item");
        ASSERT_EQ(m_list.rowTag(row), QByteArray::number(row + 1));
    }
}

class MListViewTest : public MListTest
{
protected:
    void SetUp() override
    {
        m_list.setColumns({{QStringLiteral("Item"), 150}, {QStringLiteral("Sold"), 70}});
        m_list.resize(300, 200);
        m_list.show();
        QApplication::processEvents();
    }
    void clickAt(QPoint place)
    {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, view().viewport()->mapToGlobal(place), Qt::LeftButton,
                type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(view().viewport(), &event);
        }
    }
    bool isInSight(int row)
    {
        const QRect place = view().visualRect(shown().index(row, 0));
        return place.isValid() && view().viewport()->rect().contains(place);
    }
};

TEST_F(MListViewTest, SelectingARowScrollsToItAndLeavesOneRowSelected)
{
    for (int number = 0; number < 2000; ++number)
        m_list.addRow(QByteArray::number(number) + "|0");
    m_list.setRowSelected(10, true);
    ASSERT_FALSE(isInSight(1500));

    m_list.setRowSelected(1500, true);

    EXPECT_TRUE(isInSight(1500));
    EXPECT_TRUE(m_list.isRowSelected(1500));
    EXPECT_FALSE(m_list.isRowSelected(10));
    EXPECT_TRUE(view().selectionModel()->isRowSelected(1500));

    m_list.setRowSelected(1500, false);
    EXPECT_FALSE(m_list.isRowSelected(1500));
}

TEST_F(MListTest, ARowSelectedWhileTheListIsHiddenIsInSightWhenItIsShown)
{
    m_list.setColumns({{QStringLiteral("Item"), 150}});
    m_list.resize(300, 200);
    for (int number = 0; number < 2000; ++number)
        m_list.addRow(QByteArray::number(number));

    m_list.setRowSelected(1500, true);
    m_list.show();
    QApplication::processEvents();

    const QRect place = view().visualRect(shown().index(1500, 0));
    EXPECT_TRUE(place.isValid() && view().viewport()->rect().contains(place));
}

TEST_F(MListViewTest, ClickingARowSignalsClickAndSelectsTheRow)
{
    addRows({"Burger|12", "Soda|0", "Pie|2"});
    int clicks = 0;
    QObject::connect(&m_list, &MList::Click, [&] { ++clicks; });

    clickAt(view().visualRect(shown().index(1, 1)).center());

    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(m_list.isRowSelected(1));
}

} // namespace
} // namespace qlon
