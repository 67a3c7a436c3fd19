#include "core/ListRows.h"

#include "core/RuntimeError.h"
#include "tests/support/Printers.h"
#include "tests/support/Rows.h"

#include <gtest/gtest.h>

#include <functional>

namespace qlon {
namespace {

using Texts = QList<QByteArray>;

class ListRowsTest : public ::testing::Test
{
protected:
    Texts texts() const { return test::TextsOf(m_rows); }
    Texts tags() const
    {
        Texts all;
        for (int row = 0; row < m_rows.rowCount(); ++row)
            all.append(m_rows.rowTag(row));
        return all;
    }
    void addRows(const Texts &rows) { test::AddRows(m_rows, rows); }
    void sortBy(const QByteArray &key) { test::SortBy(m_rows, key); }

    ListRows m_rows;
};

using test::RuntimeErrorNumber;

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

TEST_F(ListRowsTest, TagsFollowTheirRowsThroughRemovals)
{
    addRows({"Burger", "Soda", "Pie"});
    m_rows.setRowTag(0, QByteArrayLiteral("burger tag"));
    m_rows.setRowTag(2, QByteArrayLiteral("pie tag"));
    m_rows.removeRow(1);

    EXPECT_EQ(texts(), (Texts{"Burger", "Pie"}));
    EXPECT_EQ(tags(), (Texts{"burger tag", "pie tag"}));
}

TEST_F(ListRowsTest, IndexesOutOfRangeAreInvalidPropertyValues)
{
    addRows({"Burger", "Soda"});

    EXPECT_EQ(RuntimeErrorNumber([&] { m_rows.rowText(2); }), RuntimeError::InvalidPropertyValue);
    EXPECT_EQ(RuntimeErrorNumber([&] { m_rows.setRowTag(-1, {}); }), RuntimeError::InvalidPropertyValue);
    EXPECT_EQ(RuntimeErrorNumber([&] { m_rows.removeRow(2); }), RuntimeError::InvalidPropertyValue);
    EXPECT_EQ(m_rows.rowCount(), 2);
}

TEST_F(ListRowsTest, SortsByTheColumnsTextAndTagsFollowTheirRows)
{
    addRows({"3|cherry", "1|Banana", "2|apple", "4|banana"});
    for (int row = 0; row < m_rows.rowCount(); ++row)
        m_rows.setRowTag(row, m_rows.rowText(row).left(1));

    sortBy(QByteArrayLiteral("1a"));

    EXPECT_TRUE(m_rows.isSorted());
    EXPECT_EQ(texts(), (Texts{"2|apple", "1|Banana", "4|banana", "3|cherry"}));
    EXPECT_EQ(tags(), (Texts{"2", "1", "4", "3"}));
}

TEST_F(ListRowsTest, RowsThatRankEqualKeepTheirOrderBothWays)
{
    addRows({"x|1", "z|0", "y|1"});

    sortBy(QByteArrayLiteral("1a"));
    EXPECT_EQ(texts(), (Texts{"z|0", "x|1", "y|1"}));

    sortBy(QByteArrayLiteral("1d"));
    EXPECT_EQ(texts(), (Texts{"x|1", "y|1", "z|0"}));
}

TEST_F(ListRowsTest, AddedRowsTakeTheirPlaceBehindEqualRows)
{
    addRows({"Soda|1", "Burger|2", "Pie|3"});
    sortBy(QByteArrayLiteral("0a"));

    const int place = m_rows.addRow(QByteArrayLiteral("pie|4"));
    m_rows.setRowTag(m_rows.lastAddedRow(), QByteArrayLiteral("new"));

    EXPECT_EQ(place, 2);
    EXPECT_EQ(m_rows.lastAddedRow(), 2);
    EXPECT_EQ(texts(), (Texts{"Burger|2", "Pie|3", "pie|4", "Soda|1"}));
    EXPECT_EQ(m_rows.rowTag(2), QByteArrayLiteral("new"));
    EXPECT_EQ(m_rows.addRow(QByteArrayLiteral("Apple|5")), 0);
    EXPECT_EQ(m_rows.addRow(QByteArrayLiteral("Tea|6")), 5);
}

TEST_F(ListRowsTest, RewrittenRowsStayWhereTheyAre)
{
    addRows({"A", "B", "C"});
    sortBy(QByteArrayLiteral("0a"));
    m_rows.setRowText(0, QByteArrayLiteral("Z"));

    EXPECT_EQ(texts(), (Texts{"Z", "B", "C"}));
}

TEST_F(ListRowsTest, SwitchingSortOffKeepsTheOrderAndAppendsNewRows)
{
    addRows({"C", "A", "B"});
    sortBy(QByteArrayLiteral("0a"));
    m_rows.setSorted(false);

    EXPECT_EQ(m_rows.addRow(QByteArrayLiteral("0")), 3);
    EXPECT_EQ(texts(), (Texts{"A", "B", "C", "0"}));
}

TEST_F(ListRowsTest, SalesVolumeOrdersFiguresByTextSoMoreDecimalsRankHigher)
{
    addRows({
        "Burger|Food|6.50|12|$79.00|0000000012|000000079.|79.",
        "Pie|Food|3.00|26|$78.50|0000000026|00000078.5|78.5",
        "Cake|Food|2.75|28|$78.25|0000000028|0000078.25|78.25",
    });
    sortBy(QByteArrayLiteral("6d"));

    EXPECT_EQ(texts(),
        (Texts{
            "Cake|Food|2.75|28|$78.25|0000000028|0000078.25|78.25",
            "Pie|Food|3.00|26|$78.50|0000000026|00000078.5|78.5",
            "Burger|Food|6.50|12|$79.00|0000000012|000000079.|79.",
        }));
}

TEST_F(ListRowsTest, UnreadableSortKeysAreInvalidPropertyValues)
{
    m_rows.setSortKey(QByteArrayLiteral("3d "));

    for (const QByteArray &unreadable : Texts{"", "d", "5", "d5", "5x", " 5d", "-1a", "5 d", "99999999999a"}) {
        EXPECT_EQ(RuntimeErrorNumber([&] { m_rows.setSortKey(unreadable); }), RuntimeError::InvalidPropertyValue) << unreadable.constData();
    }
    EXPECT_EQ(m_rows.sortKey(), QByteArrayLiteral("3d "));
}

TEST_F(ListRowsTest, AComparerReplacesTheTextOrder)
{
    NumericComparer byValue;
    addRows({"x|10", "y|9", "z|100", "w|9.5"});
    m_rows.setComparer(&byValue);

    sortBy(QByteArrayLiteral("1a"));
    EXPECT_EQ(texts(), (Texts{"y|9", "w|9.5", "x|10", "z|100"}));

    sortBy(QByteArrayLiteral("1d"));
    EXPECT_EQ(texts(), (Texts{"z|100", "x|10", "w|9.5", "y|9"}));
    EXPECT_GT(byValue.calls, 0);

    EXPECT_EQ(m_rows.addRow(QByteArrayLiteral("v|20")), 1);
}

TEST_F(ListRowsTest, WithoutTheComparerTheTextOrderReturns)
{
    NumericComparer byValue;
    addRows({"10", "9", "100"});
    m_rows.setComparer(&byValue);
    m_rows.setComparer(nullptr);
    sortBy(QByteArrayLiteral("0a"));

    EXPECT_EQ(texts(), (Texts{"10", "100", "9"}));
    EXPECT_EQ(byValue.calls, 0);
}

TEST_F(ListRowsTest, AFailureOfTheComparerReachesTheCallerAndTheRowsStay)
{
    FailingComparer failing;
    addRows({"c|3", "a|$1", "b|2", "d|4"});
    m_rows.setRowTag(1, QByteArrayLiteral("dollar"));
    m_rows.setComparer(&failing);
    m_rows.setSortKey(QByteArrayLiteral("1a"));

    EXPECT_EQ(RuntimeErrorNumber([&] { m_rows.setSorted(true); }), RuntimeError::TypeMismatch);
    EXPECT_FALSE(m_rows.isSorted());
    EXPECT_EQ(texts(), (Texts{"c|3", "a|$1", "b|2", "d|4"}));
    EXPECT_EQ(m_rows.rowTag(1), QByteArrayLiteral("dollar"));
}

TEST_F(ListRowsTest, AFailureWhileAddingToASortedListAddsNothing)
{
    FailingComparer failing;
    addRows({"3", "1", "2"});
    m_rows.setComparer(&failing);
    sortBy(QByteArrayLiteral("0a"));
    ASSERT_EQ(texts(), (Texts{"1", "2", "3"}));

    EXPECT_EQ(RuntimeErrorNumber([&] { m_rows.addRow(QByteArrayLiteral("two")); }), RuntimeError::TypeMismatch);
    EXPECT_EQ(texts(), (Texts{"1", "2", "3"}));
}

} // namespace
} // namespace qlon
