#include "chain/logic/ChainMainReport.h"

#include "chain/logic/ChainDatabase.h"
#include "chain/logic/ChainSchema.h"
#include "core/Ansi.h"
#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/Format.h"
#include "core/ListRows.h"
#include "listbuilder/logic/ItemsSoldReport.h"
#include "serversales/logic/CalculatedItem.h"

#include <QHash>

namespace qlon {

namespace {

// The department rows a run starts with, each holding "0".
constexpr int departmentRows = 101;

QByteArray isoDate(QDate date)
{
    return date.toString(Qt::ISODate).toLatin1();
}

QByteArray isoTime(QTime time)
{
    return time.toString(Qt::ISODateWithMs).toLatin1();
}

// A text array literal of the names, each quoted.
QByteArray textArray(const QByteArrayList &names)
{
    QByteArray array = "{";
    for (const QByteArray &name : names) {
        QByteArray quoted = ToChainText(name);
        quoted.replace('\\', "\\\\").replace('"', "\\\"");
        array.append((array.size() > 1 ? ",\"" : "\"") + quoted + '"');
    }
    return array + '}';
}

struct SiteLists
{
    QByteArray id;
    QList<ListedItem> items; // with the type of each item in place of nothing
    QByteArrayList types;
    QByteArrayList departments;
};

SiteLists siteLists(ChainDatabase &database, const QString &site)
{
    SiteLists lists;
    lists.id = ChainSiteId(database, site);
    const ChainResult items = database.exec("SELECT text, tag, type FROM catalogue WHERE site_id = $1 ORDER BY position", {lists.id});
    for (int row = 0; row < items.rowCount(); ++row) {
        lists.items.append({FromChainText(items.value(row, 0)), FromChainText(items.value(row, 1))});
        lists.types.append(FromChainText(items.value(row, 2)));
    }
    const ChainResult departments = database.exec("SELECT name FROM departments WHERE site_id = $1 ORDER BY position", {lists.id});
    for (int row = 0; row < departments.rowCount(); ++row)
        lists.departments.append(FromChainText(departments.value(row, 0)));
    return lists;
}

// Each site's items' sales, by the site's id.
using SitesSales = QHash<QByteArray, QHash<QByteArray, ItemSales>>;

// The rows the select of the span reads ($2 and $3 the dates): the dates compared as dates and
// times, so that a row whose OrderDate holds a time of day lies after the to date's midnight.
const QByteArray spanSelect = "day BETWEEN $2::date AND $3::date AND order_at <= $3::date";

// A value that a null took from the item's row before counts only when that row lies in the
// span's select too; otherwise the walk held nothing for it.
QByteArray carried(const QByteArray &value, const QByteArray &from)
{
    return "CASE WHEN " + from + " IS NULL OR " + from + " BETWEEN $2::date AND $3::date THEN " + value + " END";
}

// The figures of the span's rows that `rows` selects beside the span's select, by site and item,
// under the span filter of Calculate Sales: from the start time on the from date to the end time
// on the to date; a row whose date or time can't be read, or without an item, is never counted.
QByteArray rowSums(const QByteArray &rows)
{
    return "SELECT site_id, item, cents, units FROM (SELECT site_id, item, day, " + carried("cents", "price_from") + " AS cents, " +
        carried("units", "quantity_from") + " AS units, " + carried("sold_at", "time_from") +
        " AS counted_at FROM sales WHERE site_id = ANY($1::integer[]) AND " + spanSelect + " AND item <> '' AND " + rows +
        ") AS span WHERE counted_at IS NOT NULL AND NOT (day = $2 AND counted_at < $4) AND NOT (day = $3 AND counted_at > $5)";
}

// All the sites in one query. The days inside the span count whole: their sums are read as the
// sync kept them, with the rows whose values came from another row. The first and last days,
// which the hours cut, are read row by row, each site's partition through the index of days.
SitesSales spanSales(ChainDatabase &database, const QByteArrayList &sites, const ChainSpan &span)
{
    SitesSales sales;
    const std::optional<QTime> start = ToTime(span.startTime);
    const std::optional<QTime> end = ToTime(span.endTime);
    if (!start || !end)
        return sales;
    const ChainResult sums = database.exec("SELECT site_id, item, sum(cents), sum(units) FROM ("
                                           "SELECT site_id, item, cents, units FROM day_sales WHERE site_id = ANY($1::integer[])"
                                           " AND day > $2::date AND day < $3::date UNION ALL " +
            rowSums("day IN ($2::date, $3::date)") + " UNION ALL " +
            rowSums("day > $2::date AND day < $3::date AND " + QByteArray(CarriedRow)) + ") AS figures GROUP BY site_id, item",
        {'{' + sites.join(',') + '}', isoDate(span.from), isoDate(span.to), isoTime(*start), isoTime(*end)});
    for (int row = 0; row < sums.rowCount(); ++row) {
        ItemSales &item = sales[sums.value(row, 0)][FromChainText(sums.value(row, 1))];
        item.sales = double(sums.value(row, 2).toLongLong()) / 100;
        item.units = sums.value(row, 3).toDouble();
    }
    return sales;
}

// An item that sold nothing shows the receipt of its last row in the span's select, counted or not.
void addLastReceipts(ChainDatabase &database, const QByteArray &site, const ChainSpan &span, const QByteArrayList &names,
    QHash<QByteArray, ItemSales> &sales)
{
    if (names.isEmpty())
        return;
    const ChainResult receipts = database.exec("SELECT DISTINCT ON (item) item, " + carried("receipt", "receipt_from") +
            " FROM sales WHERE site_id = $1 AND " + spanSelect + " AND item = ANY($4) ORDER BY item, seq DESC",
        {site, isoDate(span.from), isoDate(span.to), textArray(names)});
    for (int row = 0; row < receipts.rowCount(); ++row)
        sales[FromChainText(receipts.value(row, 0))].lastReceipt = FromChainText(receipts.value(row, 1));
}

// The first department that bears the type; an unknown type counts in the first.
int departmentOf(const QByteArrayList &departments, const QByteArray &type)
{
    const qsizetype position = departments.indexOf(type);
    return position < 0 ? 0 : int(position);
}

void fillWithZeros(ListRows &rows)
{
    for (int row = 0; row < departmentRows; ++row)
        rows.addRow("0");
}

// The separator and the departments' total rows that close the list.
void addTotals(ChainListing &listing, const ListRows &sales, const ListRows &units, const QByteArrayList &departments)
{
    listing.rows.append({QByteArray(), QByteArray()});
    listing.rows.append({QByteArray(20, '*'), QByteArray()});
    for (const QByteArray &total : DepartmentTotalRows(sales, units, departments))
        listing.rows.append({total, QByteArray()});
    for (int position = 0; position < departments.size() && position < departmentRows; ++position) {
        listing.departments.append(
            {departments[position], {}, {}, NumericValue(sales.rowText(position)), NumericValue(units.rowText(position))});
    }
}

ChainListing siteListing(ChainDatabase &database, const QString &site, const SiteLists &lists, QHash<QByteArray, ItemSales> sales,
    const ChainSpan &span, CategoryChoice choice)
{
    for (const QByteArray &department : lists.departments) {
        if (choice.department && FromAnsi(department).compare(FromAnsi(choice.departmentCaption), Qt::CaseInsensitive) == 0)
            choice.departmentCaption = department;
    }
    QList<ListedItem> chosen;
    for (qsizetype item = 0; item < lists.items.size(); ++item) {
        if (choice.takes(lists.types[item]))
            chosen.append(lists.items[item]);
    }
    QByteArrayList unsold;
    for (const ListedItem &item : chosen) {
        if (Format(sales.value(item.tag).sales, "#########.##") == ".")
            unsold.append(item.tag);
    }
    addLastReceipts(database, lists.id, span, unsold, sales);

    ChainListing listing{site, {}, {}, {}};
    ListRows departmentSales;
    ListRows departmentUnits;
    fillWithZeros(departmentSales);
    fillWithZeros(departmentUnits);
    for (const ListedItem &item : chosen) {
        const QByteArrayList fields = item.text.split('|');
        const CalculatedItem calculated = CalculateItem(sales.value(item.tag), item.tag, item.tag, fields.value(1), fields.value(2));
        listing.rows.append({calculated.rowText, item.tag});
        listing.items.append({item.tag, fields.value(1), fields.value(2), calculated.sales, calculated.units});
        AddToDepartment(
            departmentSales, departmentUnits, departmentOf(lists.departments, fields.value(1)), calculated.sales, calculated.units);
    }
    addTotals(listing, departmentSales, departmentUnits, lists.departments);
    return listing;
}

// Adds the figures to the one of the same name, or to the end.
void addByName(QList<ChainFigures> &sums, QHash<QByteArray, qsizetype> &places, const ChainFigures &figures)
{
    const auto place = places.constFind(figures.name);
    if (place == places.constEnd()) {
        places.insert(figures.name, sums.size());
        sums.append(figures);
        return;
    }
    sums[*place].sales += figures.sales;
    sums[*place].units += figures.units;
}

} // namespace

QStringList ChainSites(ChainDatabase &database)
{
    QStringList sites;
    // A site is in the chain once a sync of it has ended; one whose first sync failed half-way
    // left only its name.
    const ChainResult names = database.exec("SELECT name FROM sites WHERE synced_at IS NOT NULL ORDER BY site_id");
    for (int row = 0; row < names.rowCount(); ++row)
        sites.append(QString::fromUtf8(names.value(row, 0)));
    return sites;
}

QList<ChainListing> ChainMainReport(ChainDatabase &database, const QStringList &sites, const ChainSpan &span, CategoryChoice choice)
{
    QList<SiteLists> lists;
    QByteArrayList ids;
    for (const QString &site : sites) {
        lists.append(siteLists(database, site));
        ids.append(lists.constLast().id);
    }
    const SitesSales sales = spanSales(database, ids, span);
    QList<ChainListing> listings;
    for (qsizetype site = 0; site < sites.size(); ++site)
        listings.append(siteListing(database, sites[site], lists[site], sales.value(ids[site]), span, choice));
    return listings;
}

ChainListing CombinedListing(const QList<ChainListing> &listings)
{
    ChainListing combined;
    QHash<QByteArray, qsizetype> itemPlaces;
    QHash<QByteArray, qsizetype> departmentPlaces;
    for (const ChainListing &listing : listings) {
        for (const ChainFigures &item : listing.items)
            addByName(combined.items, itemPlaces, item);
        for (const ChainFigures &department : listing.departments)
            addByName(combined.departments, departmentPlaces, department);
    }
    for (const ChainFigures &item : combined.items) {
        const ItemSales sold{item.sales, item.units, {}, {}};
        combined.rows.append({CalculateItem(sold, item.name, item.name, item.type, item.price).rowText, item.name});
    }
    ListRows sales;
    ListRows units;
    QByteArrayList names;
    for (const ChainFigures &department : combined.departments) {
        sales.addRow(PlainNumber(department.sales));
        units.addRow(PlainNumber(department.units));
        names.append(department.name);
    }
    addTotals(combined, sales, units, names);
    return combined;
}

} // namespace qlon
