#include "serversales/logic/SalesByTime.h"
#include "tests/support/RowsStore.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

SalesRow sale(const char *item, const char *date, const char *time, const char *price)
{
    SalesRow row;
    row[Item] = QByteArray(item);
    row[OrderDate] = QByteArray(date);
    row[Time] = QByteArray(time);
    row[UnitPrice] = QByteArray(price);
    row[Quantity] = QByteArray("1");
    return row;
}

TEST(SalesByTimeTest, TheListsItemsSalesByHourAndByDayAddUpToTheirSpanSales)
{
    const std::vector<SalesRow> rows = {sale("Ale", "1/1/2004", "6:15:00 PM", "4.5"), sale("Ale", "1/2/2004", "1:05:00 AM", "4.5"),
        sale("Pie", "1/1/2004", "7:00:00 PM", "3.333"), sale("Soup", "1/1/2004", "7:00:00 PM", "9"),
        sale("Ale", "1/2/2004", "3:00:00 AM", "4.5"), sale("Ale", "1/1/2004", "", "100")};
    const SalesSpan span{"1/1/2004", "1/2/2004", "06:00 pm", "02:00 am"};
    test::RowsStore store(rows);
    const SalesByTime sales = BreakDownSpan(store, span, {QByteArray("Ale"), QByteArray("Pie")});
    EXPECT_EQ(sales.byHour[18], 4.5);
    EXPECT_EQ(sales.byHour[19], 3.33);
    EXPECT_EQ(sales.byHour[1], 4.5);
    EXPECT_EQ(sales.byHour[3], 0);
    ASSERT_EQ(sales.byDay.size(), 2);
    EXPECT_EQ(sales.byDay.value(QDate(2004, 1, 1)), 4.5 + 3.33);

    const SpanSales listed(store, span);
    double total = 0;
    for (const double hour : sales.byHour)
        total += hour;
    EXPECT_DOUBLE_EQ(total, listed.of("Ale").sales + listed.of("Pie").sales);
}

} // namespace
} // namespace qlon
