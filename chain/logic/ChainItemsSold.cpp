#include "chain/logic/ChainItemsSold.h"

#include "chain/logic/ChainDatabase.h"
#include "chain/logic/ChainSchema.h"
#include "core/Ansi.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/ListRows.h"
#include "core/RuntimeError.h"
#include "itemssold/logic/DepartmentFilter.h"
#include "itemssold/logic/NameIndex.h"
#include "listbuilder/logic/CSort.h"
#include "store/MonthlySales.h"

#include <QHash>

namespace qlon {

namespace {

// The letter of the report option, as the scan takes it.
QByteArray modeLetterOf(const QByteArray &category)
{
    static const QHash<QByteArray, QByteArray> letters = {{"food", "F"}, {"bar", "L"}, {"both", "B"}, {"retail", "R"}, {"all", "A"}};
    return letters.value(category, "B");
}

// The span as the screen's labels and pickers hand it to the scan: dates as "MM/DD/YY".
ScanSpan scanSpanOf(const ItemsSoldChoice &choice)
{
    return {Format(choice.from, "MM/DD/YY"), Format(choice.to, "MM/DD/YY"), choice.startTime, choice.endTime};
}

QByteArray isoDate(QDate date)
{
    return date.toString(Qt::ISODate).toLatin1();
}

// A text array literal of the texts, each quoted.
QByteArray textArray(const QByteArrayList &texts)
{
    QByteArrayList quoted;
    for (QByteArray text : texts)
        quoted.append('"' + text.replace('\\', "\\\\").replace('"', "\\\"") + '"');
    return '{' + quoted.join(',') + '}';
}

// What the sites' monthly lines in the span add, by site: each item's figures, and the gift cards.
struct ItemSums
{
    QByteArray item;
    double units = 0;
    double amount = 0;
    qsizetype missing = 0; // lines the report would list as not reported, were no row to name them
};
struct SiteSums
{
    std::vector<ItemSums> items;
    double giftCount = 0;
    double giftTotal = 0;
};

// The months the scan walks from the span's from date, up to the latest month any site has.
QByteArray walkedMonths(ChainDatabase &database, const QByteArray &sites, const ScanSpan &span)
{
    const ChainResult latest = database.exec("SELECT max(month) FROM monthly_sales WHERE site_id = ANY($1::integer[])", {sites});
    const QDate last = QDate::fromString(QString::fromLatin1(latest.value(0, 0)), Qt::ISODate);
    QByteArrayList months;
    for (const QDate &month : MonthWalk(span.fromDate, last.isValid() ? std::optional(last) : std::nullopt))
        months.append(isoDate(QDate(month.year(), month.month(), 1)));
    return textArray(months);
}

// The scan's selection in SQL: the lines of the walked months whose date, when it can be read, lies
// in the span, and whose time, when it can be read, lies in the hours on the span's first and last
// days; a gift card's line counts whatever its time. Amounts add up in the scan's order, so that
// each sum is the scan's to the last bit.
QHash<QByteArray, SiteSums> spanSums(ChainDatabase &database, const QByteArrayList &siteIds, const ItemsSoldChoice &choice)
{
    const ScanSpan span = scanSpanOf(choice);
    const ScanLimits limits(span);
    const QByteArray sites = '{' + siteIds.join(',') + '}';
    const auto dateOf = [](const std::optional<QDate> &date, const char *none) { return date ? isoDate(*date) : QByteArray(none); };
    const auto timeOf = [](const std::optional<QTime> &time, const char *none) {
        return time ? time->toString(Qt::ISODate).toLatin1() : QByteArray(none);
    };
    const ChainResult sums =
        database.exec("SELECT site_id, gift_amount IS NOT NULL, CASE WHEN gift_amount IS NULL THEN item END, count(*),"
                      " sum(units ORDER BY month, seq), sum(amount ORDER BY month, seq), sum(gift_amount ORDER BY month, seq),"
                      " count(*) FILTER (WHERE strpos(missing_modes, $7) > 0) FROM monthly_sales"
                      " WHERE site_id = ANY($1::integer[]) AND month = ANY($2::date[]) AND (day IS NULL OR day BETWEEN $3 AND $4)"
                      " AND (gift_amount IS NOT NULL OR sold_minute IS NULL"
                      " OR NOT coalesce((day = $3 AND sold_minute < $5) OR (day = $4 AND sold_minute > $6), false)) GROUP BY 1, 2, 3",
            {sites, walkedMonths(database, sites, span), dateOf(limits.from, "-infinity"), dateOf(limits.to, "infinity"),
                timeOf(limits.fromTime, "00:00"), timeOf(limits.toTime, "24:00"), modeLetterOf(choice.category)});
    QHash<QByteArray, SiteSums> bySite;
    for (int row = 0; row < sums.rowCount(); ++row) {
        SiteSums &site = bySite[sums.value(row, 0)];
        if (sums.value(row, 1) == "t") {
            site.giftCount = sums.value(row, 3).toDouble();
            site.giftTotal = sums.value(row, 6).toDouble();
            continue;
        }
        site.items.push_back({FromChainText(sums.value(row, 2)), sums.value(row, 4).toDouble(), sums.value(row, 5).toDouble(),
            sums.value(row, 7).toLongLong()});
    }
    return bySite;
}

struct SiteItemLists
{
    QByteArray id;
    QByteArrayList catalogue;
    QByteArrayList departments;
};

SiteItemLists siteItemLists(ChainDatabase &database, const QString &site, const QByteArray &category)
{
    SiteItemLists lists{ChainSiteId(database, site), {}, {}};
    const ChainResult rows =
        database.exec("SELECT list, text FROM item_lists WHERE site_id = $1 AND list IN ($2, 'departments') ORDER BY list, position",
            {lists.id, category});
    for (int row = 0; row < rows.rowCount(); ++row)
        (rows.value(row, 0) == "departments" ? lists.departments : lists.catalogue).append(FromChainText(rows.value(row, 1)));
    return lists;
}

// The scan's figures: each item's sums on the first catalogue row of its name, or else among the
// items not reported.
SalesScan countedScan(const QByteArrayList &catalogue, const SiteSums &sums)
{
    NameIndex firstRow;
    SalesScan scan = ScanTable(catalogue, firstRow);
    for (const ItemSums &item : sums.items) {
        const int row = MatchingRow(firstRow, item.item);
        if (row >= 0) {
            scan.rows[std::size_t(row)].quantity += item.units;
            scan.rows[std::size_t(row)].amount += item.amount;
            continue;
        }
        for (qsizetype line = 0; line < item.missing; ++line)
            scan.notReported.append(item.item);
    }
    scan.giftCount = sums.giftCount;
    scan.giftTotal = sums.giftTotal;
    return scan;
}

// Adds the row to a list sorted on the quantity by number; a row the comparer can't place goes in
// at the end, with sorting off, as the screen keeps it.
int addKeepingEveryRow(ListRows &list, const QByteArray &text)
{
    try {
        return list.addRow(text);
    } catch (const RuntimeError &) {
        list.setSorted(false);
        return list.addRow(text);
    }
}

// The screen's list after the scan: the report's rows sorted on their quantity by number, each
// tagged with its line, then the gift row; and their total.
struct SortedRows
{
    QByteArrayList texts;
    QByteArrayList tags;
    double total = 0;
};

SortedRows sortedRows(const SalesScan &scan, const std::vector<ReportLine> &lines)
{
    CSort byQuantity;
    ListRows list;
    list.setComparer(&byQuantity);
    list.setSorted(true);
    SortedRows sorted;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        list.setRowTag(addKeepingEveryRow(list, lines[line].listText), QByteArray::number(qulonglong(line)));
        sorted.total += lines[line].amount;
    }
    if (scan.giftCount != 0)
        addKeepingEveryRow(list, GiftRow(scan));
    for (int row = 0; row < list.rowCount(); ++row) {
        sorted.texts.append(list.rowText(row));
        sorted.tags.append(list.rowTag(row));
    }
    return sorted;
}

// The department filter's rows, by their places among the sorted rows, in the order the list
// sorts them again; and their total.
DepartmentRows departmentRows(const QByteArrayList &texts, const QByteArray &department)
{
    DepartmentRows chosen = RowsOfDepartment(texts, department);
    CSort byQuantity;
    ListRows filtered;
    filtered.setComparer(&byQuantity);
    filtered.setSorted(true);
    QList<int> order;
    for (const int row : chosen.kept)
        order.insert(addKeepingEveryRow(filtered, texts[row]), row);
    chosen.kept = order;
    return chosen;
}

// The list as the screen shows it: the sorted rows, or the department's rows without their tags.
ItemsSoldListing listingOf(const QString &site, const SalesScan &scan, const QByteArray &department)
{
    const std::vector<ReportLine> lines = ReportLines(scan);
    const SortedRows sorted = sortedRows(scan, lines);
    ItemsSoldListing listing{site, {}, Currency(sorted.total), scan.notReported.size(), {}, 0, 0};
    QList<int> shown;
    for (int row = 0; row < sorted.texts.size(); ++row)
        shown.append(row);
    if (!department.isEmpty()) {
        const DepartmentRows chosen = departmentRows(sorted.texts, department);
        shown = chosen.kept;
        listing.total = Currency(chosen.total);
    }
    for (const int row : shown) {
        listing.rows.append({sorted.texts[row], department.isEmpty() ? sorted.tags[row] : QByteArray()});
        if (sorted.tags[row].isEmpty()) {
            listing.giftCount = scan.giftCount;
            listing.giftTotal = scan.giftTotal;
            continue;
        }
        listing.sold.push_back(scan.rows[lines[std::size_t(sorted.tags[row].toInt())].row]);
    }
    return listing;
}

// The amount as a list shows it, in whole cents: the sum of the sites' lists is the sum of what
// they show.
double shownAmount(double amount)
{
    QByteArray text = Currency(amount);
    const bool negative = text.startsWith('(');
    text.replace('$', QByteArray()).replace(',', QByteArray()).replace('(', QByteArray()).replace(')', QByteArray());
    return negative ? -text.toDouble() : text.toDouble();
}

// The site's spelling of the department, as the report's line takes it; as given when it has none.
QByteArray siteDepartment(const QByteArrayList &departments, const QByteArray &department)
{
    for (const QByteArray &name : departments) {
        if (FromAnsi(name).compare(FromAnsi(department), Qt::CaseInsensitive) == 0)
            return name;
    }
    return department;
}

} // namespace

QList<ItemsSoldListing> ChainItemsSoldReport(ChainDatabase &database, const QStringList &sites, const ItemsSoldChoice &choice)
{
    QList<SiteItemLists> lists;
    QByteArrayList ids;
    for (const QString &site : sites) {
        lists.append(siteItemLists(database, site, choice.category));
        ids.append(lists.constLast().id);
    }
    const QHash<QByteArray, SiteSums> sums = spanSums(database, ids, choice);
    QList<ItemsSoldListing> listings;
    for (qsizetype site = 0; site < sites.size(); ++site) {
        const SalesScan scan = countedScan(lists[site].catalogue, sums.value(ids[site]));
        const QByteArray department =
            choice.department.isEmpty() ? QByteArray() : siteDepartment(lists[site].departments, choice.department);
        listings.append(listingOf(sites[site], scan, department));
    }
    return listings;
}

ItemsSoldListing CombinedItemsSold(const QList<ItemsSoldListing> &listings)
{
    SalesScan combined;
    QHash<QByteArray, std::size_t> places;
    qsizetype notReported = 0;
    for (const ItemsSoldListing &listing : listings) {
        for (SoldRow sold : listing.sold) {
            sold.amount = shownAmount(sold.amount);
            const QByteArray name = TrimBlanks(sold.name);
            const auto place = places.constFind(name);
            if (place == places.constEnd()) {
                places.insert(name, combined.rows.size());
                combined.rows.push_back(sold);
                continue;
            }
            combined.rows[*place].quantity += sold.quantity;
            combined.rows[*place].amount += sold.amount;
        }
        combined.giftCount += listing.giftCount;
        combined.giftTotal += shownAmount(listing.giftTotal);
        notReported += listing.notReported;
    }
    ItemsSoldListing listing = listingOf({}, combined, {});
    listing.notReported = notReported;
    return listing;
}

} // namespace qlon
