#include "ui/MList.h"

#include "core/RuntimeError.h"
#include "tests/support/Printers.h"

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

    Texts texts() const
    {
        Texts all;
        for (int row = 0; row < m_list.rowCount(); ++row)
            all.append(m_list.rowText(row));
        return all;
    }
    Texts tags() const
    {
        Texts all;
        for (int row = 0; row < m_list.rowCount(); ++row)
            all.append(m_list.rowTag(row));
        return all;
    }
    void addRows(const Texts &rows)
    {
        for (const QByteArray &row : rows)
            m_list.addRow(row);
    }
    void sortBy(const QByteArray &key)
    {
        m_list.setSortKey(key);
        m_list.setSorted(true);
    }

    MList m_list;
};

// The working list as a finished run leaves it: items, an empty row, the separator row and
// one total row per category.
const Texts finishedRun = {
    "Burger|Food|6.50|12|$78.00|0000000012|000000078.|78.",
    "Soda|Beverage|1.50|0|$0.00|0000000000|000000000.|0.",
    "Pie|Food|3.00|2.5|$7.50|00000002.5|0000007.50|7.5",
    "Beer|Beverage|3.50|30|$105.00|0000000030|000000105.|105.",
    "",
    "********************",
    "**Food|Total|14.5|14.5|$85.50|Q8$|Q9$|Q5$",
    "**Beverage|Total|30|30|$105.00|Q8$|Q9$|Q5$",
};

int runtimeErrorNumber(const std::function<void()> &action)
{
    try {
        action();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return -1;
}

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

TEST_F(MListTest, TagsFollowTheirRowsThroughRemovals)
{
    addRows({"Burger", "Soda", "Pie"});
    m_list.setRowTag(0, QByteArrayLiteral("burger tag"));
    m_list.setRowTag(2, QByteArrayLiteral("pie tag"));
    m_list.removeRow(1);

    EXPECT_EQ(texts(), (Texts{"Burger", "Pie"}));
    EXPECT_EQ(tags(), (Texts{"burger tag", "pie tag"}));
    EXPECT_EQ(shown().rowCount(), 2);
}

TEST_F(MListTest, IndexesOutOfRangeAreInvalidPropertyValues)
{
    addRows({"Burger", "Soda"});

    EXPECT_EQ(runtimeErrorNumber([&] { m_list.rowText(2); }), RuntimeError::InvalidPropertyValue);
    EXPECT_EQ(runtimeErrorNumber([&] { m_list.setRowTag(-1, {}); }), RuntimeError::InvalidPropertyValue);
    EXPECT_EQ(runtimeErrorNumber([&] { m_list.removeRow(2); }), RuntimeError::InvalidPropertyValue);
    EXPECT_EQ(runtimeErrorNumber([&] { m_list.setRowSelected(5, true); }), RuntimeError::InvalidPropertyValue);
    EXPECT_EQ(m_list.rowCount(), 2);
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

class MListSortTest : public MListTest
{
};

TEST_F(MListSortTest, SortsByTheColumnsTextAndTagsFollowTheirRows)
{
    addRows({"3|cherry", "1|Banana", "2|apple", "4|banana"});
    for (int row = 0; row < m_list.rowCount(); ++row)
        m_list.setRowTag(row, m_list.rowText(row).left(1));

    sortBy(QByteArrayLiteral("1a"));

    EXPECT_TRUE(m_list.isSorted());
    EXPECT_EQ(texts(), (Texts{"2|apple", "1|Banana", "4|banana", "3|cherry"}));
    EXPECT_EQ(tags(), (Texts{"2", "1", "4", "3"}));
}

TEST_F(MListSortTest, RowsThatRankEqualKeepTheirOrderBothWays)
{
    addRows({"x|1", "z|0", "y|1"});

    sortBy(QByteArrayLiteral("1a"));
    EXPECT_EQ(texts(), (Texts{"z|0", "x|1", "y|1"}));

    sortBy(QByteArrayLiteral("1d"));
    EXPECT_EQ(texts(), (Texts{"x|1", "y|1", "z|0"}));
}

TEST_F(MListSortTest, TheViewShowsTheSortedOrderAndKeepsTheSelectedRow)
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

TEST_F(MListSortTest, AddedRowsTakeTheirPlaceBehindEqualRows)
{
    addRows({"Soda|1", "Burger|2", "Pie|3"});
    sortBy(QByteArrayLiteral("0a"));

    const int place = m_list.addRow(QByteArrayLiteral("pie|4"));
    m_list.setRowTag(m_list.lastAddedRow(), QByteArrayLiteral("new"));

    EXPECT_EQ(place, 2);
    EXPECT_EQ(m_list.lastAddedRow(), 2);
    EXPECT_EQ(texts(), (Texts{"Burger|2", "Pie|3", "pie|4", "Soda|1"}));
    EXPECT_EQ(m_list.rowTag(2), QByteArrayLiteral("new"));
    EXPECT_EQ(m_list.addRow(QByteArrayLiteral("Apple|5")), 0);
    EXPECT_EQ(m_list.addRow(QByteArrayLiteral("Tea|6")), 5);
}

TEST_F(MListSortTest, RewrittenRowsStayWhereTheyAre)
{
    addRows({"A", "B", "C"});
    sortBy(QByteArrayLiteral("0a"));
    m_list.setRowText(0, QByteArrayLiteral("Z"));

    EXPECT_EQ(texts(), (Texts{"Z", "B", "C"}));
}

TEST_F(MListSortTest, SwitchingSortOffKeepsTheOrderAndAppendsNewRows)
{
    addRows({"C", "A", "B"});
    sortBy(QByteArrayLiteral("0a"));
    m_list.setSorted(false);

    EXPECT_EQ(m_list.addRow(QByteArrayLiteral("0")), 3);
    EXPECT_EQ(texts(), (Texts{"A", "B", "C", "0"}));
}

TEST_F(MListSortTest, SalesVolumeOrdersFiguresByTextSoMoreDecimalsRankHigher)
{
    addRows({
        "Burger|Food|6.50|12|$79.00|0000000012|000000079.|79.",
        "Pie|Food|3.00|26|$78.50|0000000026|00000078.5|78.5",
        "Cake|Food|2.75|28|$78.25|0000000028|0000078.25|78.25",
    });
    sortBy(QByteArrayLiteral("6d"));

    EXPECT_EQ(texts(), (Texts{
                           "Cake|Food|2.75|28|$78.25|0000000028|0000078.25|78.25",
                           "Pie|Food|3.00|26|$78.50|0000000026|00000078.5|78.5",
                           "Burger|Food|6.50|12|$79.00|0000000012|000000079.|79.",
                       }));
}

TEST_F(MListSortTest, UnreadableSortKeysAreInvalidPropertyValues)
{
    m_list.setSortKey(QByteArrayLiteral("3d "));

    for (const QByteArray &unreadable : Texts{"", "d", "5", "d5", "5x", " 5d", "-1a", "5 d", "99999999999a"}) {
        EXPECT_EQ(runtimeErrorNumber([&] { m_list.setSortKey(unreadable); }),
                  RuntimeError::InvalidPropertyValue)
            << unreadable.constData();
    }
    EXPECT_EQ(m_list.sortKey(), QByteArrayLiteral("3d "));
}

TEST_F(MListSortTest, TenThousandRowsSortWithTheirTags)
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

class NumericComparer : public IMSort
{
public:
    qint16 IMSort_CompareColumns(const QByteArray &a, const QByteArray &b) override
    {
        ++calls;
        const double difference = a.toDouble() - b.toDouble();
        return qint16(difference < 0 ? -1 : difference > 0 ? 1 : 0);
    }
    int calls = 0;
};

// Fails on a text that isn't a number, as a conversion of the old platform does.
class FailingComparer : public IMSort
{
public:
    qint16 IMSort_CompareColumns(const QByteArray &a, const QByteArray &b) override
    {
        bool aIsNumber = false;
        bool bIsNumber = false;
        const int difference = a.toInt(&aIsNumber) - b.toInt(&bIsNumber);
        if (!aIsNumber || !bIsNumber)
            throw RuntimeError(RuntimeError::TypeMismatch);
        return qint16(difference);
    }
};

class MListComparerTest : public MListTest
{
};

TEST_F(MListComparerTest, AComparerReplacesTheTextOrder)
{
    NumericComparer byValue;
    addRows({"x|10", "y|9", "z|100", "w|9.5"});
    m_list.setComparer(&byValue);

    sortBy(QByteArrayLiteral("1a"));
    EXPECT_EQ(texts(), (Texts{"y|9", "w|9.5", "x|10", "z|100"}));

    sortBy(QByteArrayLiteral("1d"));
    EXPECT_EQ(texts(), (Texts{"z|100", "x|10", "w|9.5", "y|9"}));
    EXPECT_GT(byValue.calls, 0);

    EXPECT_EQ(m_list.addRow(QByteArrayLiteral("v|20")), 1);
}

TEST_F(MListComparerTest, WithoutTheComparerTheTextOrderReturns)
{
    NumericComparer byValue;
    addRows({"10", "9", "100"});
    m_list.setComparer(&byValue);
    m_list.setComparer(nullptr);
    sortBy(QByteArrayLiteral("0a"));

    EXPECT_EQ(texts(), (Texts{"10", "100", "9"}));
    EXPECT_EQ(byValue.calls, 0);
}

TEST_F(MListComparerTest, AFailureOfTheComparerReachesTheCallerAndTheRowsStay)
{
    FailingComparer failing;
    addRows({"c|3", "a|$1", "b|2", "d|4"});
    m_list.setRowTag(1, QByteArrayLiteral("dollar"));
    m_list.setComparer(&failing);
    m_list.setSortKey(QByteArrayLiteral("1a"));

    EXPECT_EQ(runtimeErrorNumber([&] { m_list.setSorted(true); }), RuntimeError::TypeMismatch);
    EXPECT_FALSE(m_list.isSorted());
    EXPECT_EQ(texts(), (Texts{"c|3", "a|$1", "b|2", "d|4"}));
    EXPECT_EQ(m_list.rowTag(1), QByteArrayLiteral("dollar"));
    EXPECT_EQ(shown().rowCount(), 4);
}

TEST_F(MListComparerTest, AFailureWhileAddingToASortedListAddsNothing)
{
    FailingComparer failing;
    addRows({"3", "1", "2"});
    m_list.setComparer(&failing);
    sortBy(QByteArrayLiteral("0a"));
    ASSERT_EQ(texts(), (Texts{"1", "2", "3"}));

    EXPECT_EQ(runtimeErrorNumber([&] { m_list.addRow(QByteArrayLiteral("two")); }), RuntimeError::TypeMismatch);
    EXPECT_EQ(texts(), (Texts{"1", "2", "3"}));
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
