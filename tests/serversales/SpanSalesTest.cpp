#include "serversales/logic/SpanSales.h"
#include "core/Conversions.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/TextFile.h"
#include "tests/support/Printers.h"
#include "tests/support/RowsStore.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace qlon {
namespace {

using test::RowsStore;

const SalesSpan evening{"1/1/2004", "1/2/2004", "06:00 pm", "02:00 am"};

TEST(SpanSalesTest, TheSpanIsOneStretchFromTheStartToTheEnd)
{
    struct Case
    {
        const char *date;
        const char *time;
        SalesSpan span;
        bool counted;
    };
    const SalesSpan sameDay{"1/1/2004", "1/1/2004", "06:00 pm", "02:00 am"};
    const SalesSpan wholeDay{"1/2/2004", "1/2/2004", "12:00 AM", "11:59 PM"};
    const Case cases[] = {
        {"1/1/2004", "7:00:00 PM", evening, true},
        {"1/1/2004", "5:00:00 PM", evening, false},
        {"1/2/2004", "1:00:00 AM", evening, true},
        {"1/2/2004", "3:00:00 AM", evening, false},
        {"1/1/2004", "6:00:00 PM", evening, true},
        {"12/31/2003", "11:00:00 PM", evening, false},
        {"1/3/2004", "1:00:00 AM", evening, false},
        {"1/1/2004 6:30:00 PM", "6:30:00 PM", evening, true},
        {"1/1/2004", "9:00:00 PM", sameDay, false},
        {"1/1/2004", "1:00:00 AM", sameDay, false},
        {"1/2/2004", "11:59:30 PM", wholeDay, false},
        {"1/2/2004", "11:59:00 PM", wholeDay, true},
        {"1/2/2004", "", wholeDay, false},
        {"1/2/2004", "noon", wholeDay, false},
        {"", "1:00:00 PM", wholeDay, false},
        {"1/2/2004", "1:00:00 PM", SalesSpan{"1/2/2004", "1/2/2004", "half past", "11:59 PM"}, false},
    };
    for (const Case &test : cases)
        EXPECT_EQ(InSpan(test.date, test.time, test.span), test.counted) << test.date << " " << test.time;
}

// Get_Sales as the old program ran it: one walk of the whole span for one item.
ItemSales walkForOneItem(const std::vector<SalesRow> &rows, const QByteArray &name, const SalesSpan &span)
{
    ItemSales sales;
    // Each column's text of the item's last row, a null keeping the one before.
    std::array<QByteArray, SalesColumnCount> columns;
    QByteArray item;
    for (const SalesRow &row : rows) {
        if (row[Item])
            item = TrimBlanks(*row[Item]);
        if (item != name)
            continue;
        for (int column = 0; column < SalesColumnCount; ++column) {
            if (row[column])
                columns[column] = TrimBlanks(*row[column]);
        }
        sales.lastReceipt = columns[ReceiptID];
        if (columns[Item].isEmpty() || !InSpan(columns[OrderDate], columns[Time], span))
            continue;
        sales.sales += FormattedValue(columns[UnitPrice], "########.##");
        sales.units += NumericValue(columns[Quantity]);
        sales.trace.append('"' +
            QByteArrayList{columns[Item], columns[OrderID], columns[Quantity], columns[OrderDate], columns[ReceiptID], columns[OrderNumber],
                columns[SaleType]}
                .join("\",\"") +
            "\"\r\n");
    }
    return sales;
}

class AwkwardSales
{
public:
    std::vector<SalesRow> rows(int count)
    {
        std::vector<SalesRow> rows;
        for (int index = 0; index < count; ++index)
            rows.push_back(row(index));
        return rows;
    }

    const QByteArrayList names = {
        "Burger", " Burger ", "Joe's Wings", "JoeMs Wings", "", "Cola", "ADD Cheese", "1000", "burger", "Fish & Chips"};

private:
    SalesValue pick(const QList<SalesValue> &values) { return values.at(m_random.bounded(int(values.size()))); }
    SalesValue sometimesNull(const QByteArray &text) { return m_random.bounded(12) == 0 ? SalesValue() : SalesValue(text); }

    SalesRow row(int index)
    {
        SalesRow row;
        row[OrderID] = sometimesNull(QByteArray::number(index));
        row[OrderDate] = pick({"1/1/2004", "1/2/2004", "12/31/2003", "1/1/2004 6:30:00 PM", "1/2/2004", "13/45/2004", {}, ""});
        row[ReceiptID] = sometimesNull("R" + QByteArray::number(index % 37));
        row[Quantity] = pick({"1", "2", "0.5", "3 items", "", {}, "-1"});
        row[Item] = m_random.bounded(15) == 0 ? SalesValue() : SalesValue(names.at(m_random.bounded(int(names.size()))));
        row[ItemType] = pick({"F", "L", "", {}});
        row[UnitPrice] = pick({"12.5", "0.1", "0.2", "1.005", "$3.00", "abc", "7.777", {}, "19.99"});
        row[Time] = pick({"7:00:00 PM", "5:00:00 PM", "1:00:00 AM", "3:00:00 AM", "6:00:00 PM", "", "25:00", {}, "11:59:30 PM"});
        row[SaleType] = sometimesNull("Dine In");
        row[OrderNumber] = sometimesNull(QByteArray::number(index / 3));
        return row;
    }

    QRandomGenerator m_random{20040101};
};

TEST(SpanSalesTest, OnePassGivesEveryItemWhatItsOwnWalkGives)
{
    AwkwardSales generator;
    const std::vector<SalesRow> rows = generator.rows(5000);
    RowsStore store(rows);
    const SalesSpan spans[] = {evening, {"1/1/2004", "1/1/2004", "12:00 AM", "11:59 PM"}, {"1/2/2004", "1/1/2004", "12:00 am", "11:59 pm"}};
    for (const SalesSpan &span : spans) {
        const SpanSales onePass(store, span);
        for (const QByteArray &name : generator.names + QByteArrayList{"Burger", "No Such Item"}) {
            const QByteArray searched = TrimBlanks(name);
            const ItemSales expected = walkForOneItem(rows, searched, span);
            const ItemSales &actual = onePass.of(searched);
            EXPECT_EQ(actual.sales, expected.sales) << name.toStdString();
            EXPECT_EQ(actual.units, expected.units) << name.toStdString();
            EXPECT_EQ(actual.trace.joined(), expected.trace.joined()) << name.toStdString();
            EXPECT_EQ(actual.lastReceipt, expected.lastReceipt) << name.toStdString();
        }
        if (span == evening) {
            EXPECT_GT(onePass.of("Burger").trace.joined().count('\n'), 100) << "the data must count rows";
        }
    }
}

TEST(SpanSalesTest, APriceIsAddedAsItStandsAndANullKeepsTheValueBefore)
{
    SalesRow first{};
    first[Item] = "Steak";
    first[OrderDate] = "1/1/2004";
    first[Time] = "7:00:00 PM";
    first[Quantity] = "3";
    first[UnitPrice] = "12.00";
    first[ReceiptID] = "R1";
    SalesRow second = first;
    second[Quantity] = std::nullopt;
    second[UnitPrice] = "1.004";
    second[ReceiptID] = std::nullopt;
    SalesRow late = first;
    late[Time] = "5:00:00 PM";
    late[ReceiptID] = "R9";
    SalesRow padded = first;
    padded[Item] = "  Steak ";
    padded[Quantity] = " 2 ";
    padded[ReceiptID] = " R10 ";
    RowsStore store({first, second, late, padded});
    const SpanSales sales(store, evening);
    const ItemSales &steak = sales.of("Steak");
    EXPECT_EQ(steak.sales, 25.0);
    EXPECT_EQ(steak.units, 8.0) << "the second row's null quantity counts the first row's again";
    EXPECT_EQ(steak.trace.joined().count('\n'), 3);
    EXPECT_TRUE(steak.trace.joined().endsWith("\"Steak\",\"\",\"2\",\"1/1/2004\",\"R10\",\"\",\"\"\r\n")) << "each column is read trimmed";
    EXPECT_EQ(steak.lastReceipt, "R10") << "the last row read with the name, counted or not, trimmed";
}

} // namespace
} // namespace qlon
