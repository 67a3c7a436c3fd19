#pragma once

#include "core/ChunkedText.h"
#include "core/Memo.h"
#include "store/CarriedColumns.h"
#include "store/SalesStore.h"

#include <QByteArrayList>
#include <QDate>
#include <QHash>
#include <QTime>

#include <functional>

namespace qlon {

// The span of a Calculate Sales run as the main screen's texts stand: two dates and two times.
struct SalesSpan
{
    QByteArray fromDate;
    QByteArray toDate;
    QByteArray startTime;
    QByteArray endTime;

    bool operator==(const SalesSpan &) const = default;
};

// The span filter: one unbroken span from the start time on the from date to the end time on
// the to date, no daily window. A date or time that can't be read rejects the row.
class SpanFilter
{
public:
    explicit SpanFilter(const SalesSpan &span);

    bool contains(QByteArrayView orderDate, QByteArrayView time);

private:
    std::optional<QDate> m_from;
    std::optional<QDate> m_to;
    std::optional<QTime> m_start;
    std::optional<QTime> m_end;
    // The rows of a span repeat their dates and times: each text is read once.
    Memo<QByteArray, std::optional<QDate>> m_dates;
    Memo<QByteArray, std::optional<QTime>> m_times;
};

bool InSpan(QByteArrayView orderDate, QByteArrayView time, const SalesSpan &span);

// A sale's time of day as the span filter reads it; none when it can't be read. The long form is
// read directly, other forms through the memo.
std::optional<QTime> SaleTime(QByteArrayView time, Memo<QByteArray, std::optional<QTime>> &times);

// A line's price as Calculate Sales adds it, through "########.##": rounded to cents. A plain
// price, which the pattern neither rounds nor cuts, is read directly, others through the memo.
double LinePrice(QByteArrayView price, Memo<QByteArray, double> &roundedPrices);

// What the sales rows of one item over the span add up to.
struct ItemSales
{
    double sales = 0; // the line prices, each rounded to cents, never times the quantity
    double units = 0;
    // The lines of TempItemsRec.dat, in table order, as the file holds them. The rows of a span
    // come in no order of item, and all items' lines grow side by side.
    ChunkedText trace;
    // The receipt of the last row read with the item's name, counted or not; the "Volume" of an
    // item that sold nothing shows it.
    QByteArray lastReceipt;
};

// The sales of every item of a span, read in one pass over the span's rows. Each item gets
// exactly what a walk of the whole span for that item alone gives: the same sums added in the
// same order, the same trace lines, and a null value that keeps the text of the item's row
// before it, as the old walk's variables did.
class SpanSales
{
public:
    // Told of each row the span counts, with the texts it was counted by and the amount added.
    using CountedRow = std::function<void(const QByteArray &item, QByteArrayView orderDate, QByteArrayView time, double amount)>;

    SpanSales(SalesStore &store, const SalesSpan &span, const CountedRow &counted = {});

    // The item's sales; an item without rows sold nothing.
    const ItemSales &of(const QByteArray &name) const;

private:
    // What one item's walk keeps: the texts of its last row and its sums.
    struct ItemWalk
    {
        CarriedColumns columns;
        ItemSales sales;
    };

    QHash<QByteArray, ItemWalk> m_items;
};

} // namespace qlon
