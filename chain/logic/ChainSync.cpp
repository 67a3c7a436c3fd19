#include "chain/logic/ChainSync.h"

#include "chain/logic/ChainDatabase.h"
#include "chain/logic/ChainSchema.h"
#include "chain/logic/SiteSnapshot.h"

#include <QHash>

namespace qlon {

namespace {

constexpr qint64 rowsPerCopy = 200000;

// What the replacing of a table's groups did.
struct GroupsReplaced
{
    QByteArrayList changed; // the groups written anew
    int groups = 0;
    qint64 rows = 0;
    bool first = false; // the site had no groups in the table before
};

// The site and its partition, in a transaction of their own: creating a partition locks the whole
// table of sales, which must not last a sync's length.
int registerSite(ChainDatabase &database, const QString &name)
{
    ChainTransaction transaction(database);
    database.exec("INSERT INTO sites (name) VALUES ($1) ON CONFLICT (name) DO NOTHING", {name.toUtf8()});
    const int id = database.exec("SELECT site_id FROM sites WHERE name = $1", {name.toUtf8()}).value(0, 0).toInt();
    EnsureSitePartition(database, id);
    transaction.commit();
    return id;
}

// A table of a site's rows kept in groups (a day of the sales, a day of a monthly file), and the
// table of the groups' digests.
struct GroupedTable
{
    // COPY into the site's partition: no routing of each row.
    QByteArray copy;
    QByteArray digests;
    // Deletes the rows of the groups.
    std::function<void(const QByteArrayList &keys)> deleteRows;
};

// A text array of group keys.
QByteArray keyArray(const QByteArrayList &keys)
{
    QByteArrayList quoted;
    for (const QByteArray &key : keys)
        quoted.append('"' + key + '"');
    return '{' + quoted.join(',') + '}';
}

// A date array of the day keys that are dates.
QByteArray dateArray(const QByteArrayList &days)
{
    QByteArray dates = "{";
    for (const QByteArray &day : days) {
        if (!day.isEmpty())
            dates.append((dates.size() > 1 ? "," : "") + day);
    }
    return dates + '}';
}

// The days' rows and sums go; their digests stay until the new ones are written, last.
void deleteDays(ChainDatabase &database, const QByteArray &site, const QByteArrayList &days)
{
    const QByteArray dates = dateArray(days);
    database.exec("DELETE FROM sales WHERE site_id = $1 AND day = ANY($2::date[])", {site, dates});
    database.exec("DELETE FROM day_sales WHERE site_id = $1 AND day = ANY($2::date[])", {site, dates});
    if (days.contains(QByteArray()))
        database.exec("DELETE FROM sales WHERE site_id = $1 AND day IS NULL", {site});
}

// The monthly lines of the files' days ("2026-11-01 2026-11-05", or "2026-11-01 " for a file's
// lines without a date).
void deleteMonthDays(ChainDatabase &database, const QByteArray &site, const QByteArrayList &keys)
{
    QByteArrayList months;
    for (const QByteArray &key : keys)
        months.append(key.left(key.indexOf(' ')));
    database.exec("DELETE FROM monthly_sales WHERE site_id = $1 AND month = ANY($2::date[])"
                  " AND to_char(month, 'YYYY-MM-DD') || ' ' || coalesce(to_char(day, 'YYYY-MM-DD'), '') = ANY($3::text[])",
        {site, keyArray(months), keyArray(keys)});
}

// Prefixes every line with the site.
QByteArray withSite(const QByteArray &site, const QByteArray &lines)
{
    QByteArray prefixed;
    prefixed.reserve(lines.size() + lines.count('\n') * (site.size() + 1));
    for (qsizetype at = 0; at < lines.size();) {
        const qsizetype end = lines.indexOf('\n', at) + 1;
        prefixed.append(site + '\t');
        prefixed.append(QByteArrayView(lines).sliced(at, end - at));
        at = end;
    }
    return prefixed;
}

// The digests of the groups replaced, those gone included, in place of those stored.
void writeDigests(ChainDatabase &database, const QByteArray &site, const QByteArray &digestTable, const QMap<QByteArray, DayRows> &groups,
    const QByteArrayList &changed, const QByteArrayList &replaced)
{
    QByteArray digests;
    for (const QByteArray &key : changed) {
        const DayRows rows = groups.value(key);
        digests.append(site + '\t' + key + '\t' + rows.digest + '\t' + QByteArray::number(rows.count) + '\n');
    }
    database.exec("DELETE FROM " + digestTable + " WHERE site_id = $1 AND day_key = ANY($2::text[])", {site, keyArray(replaced)});
    if (!digests.isEmpty())
        database.copyIn("COPY " + digestTable + " (site_id, day_key, digest, row_count) FROM STDIN", digests);
}

// Writes the changed groups' rows in batches of COPY, then the digests.
qint64 writeGroups(ChainDatabase &database, const QByteArray &site, const GroupedTable &table, const QMap<QByteArray, DayRows> &groups,
    const QByteArrayList &changed, const QByteArrayList &replaced, const std::function<void(qint64 rows)> &progress)
{
    QByteArray batch;
    qint64 inBatch = 0;
    qint64 written = 0;
    const auto send = [&] {
        database.copyIn(table.copy, batch);
        written += inBatch;
        progress(written);
        batch.clear();
        inBatch = 0;
    };
    for (const QByteArray &key : changed) {
        const DayRows rows = groups.value(key);
        batch.append(withSite(site, rows.lines));
        inBatch += rows.count;
        if (inBatch >= rowsPerCopy)
            send();
    }
    if (inBatch > 0)
        send();
    writeDigests(database, site, table.digests, groups, changed, replaced);
    return written;
}

// Replaces every group whose digest differs from the one stored, and those no longer there.
GroupsReplaced replaceGroups(ChainDatabase &database, const QByteArray &site, const GroupedTable &table,
    const QMap<QByteArray, DayRows> &groups, const std::function<void(qint64 rows)> &progress)
{
    QHash<QByteArray, QByteArray> stored;
    const ChainResult result = database.exec("SELECT day_key, digest FROM " + table.digests + " WHERE site_id = $1", {site});
    for (int row = 0; row < result.rowCount(); ++row)
        stored.insert(result.value(row, 0), result.value(row, 1));
    GroupsReplaced outcome;
    outcome.first = stored.isEmpty();
    QByteArrayList changed;
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        if (stored.take(group.key()) != group->digest)
            changed.append(group.key());
    }
    const QByteArrayList replaced = changed + stored.keys();
    outcome.changed = changed;
    outcome.groups = int(replaced.size());
    if (!replaced.isEmpty()) {
        table.deleteRows(replaced);
        outcome.rows = writeGroups(database, site, table, groups, changed, replaced, progress);
    }
    return outcome;
}

// Replaces a list of the site when its digest changed; whether it did.
bool replaceList(ChainDatabase &database, const QByteArray &site, const QByteArray &table, const QByteArray &columns,
    const QByteArray &lines, const QByteArray &digest)
{
    const QByteArray digestColumn = table + "_digest";
    if (database.exec("SELECT " + digestColumn + " FROM sites WHERE site_id = $1", {site}).value(0, 0) == digest)
        return false;
    database.exec("DELETE FROM " + table + " WHERE site_id = $1", {site});
    if (!lines.isEmpty())
        database.copyIn("COPY " + table + " (site_id, " + columns + ") FROM STDIN", withSite(site, lines));
    database.exec("UPDATE sites SET " + digestColumn + " = $2 WHERE site_id = $1", {site, digest});
    return true;
}

// The COPY of a site's sales, straight into its partition.
QByteArray salesCopy(const QByteArray &site)
{
    return "COPY sales_site_" + site +
        " (site_id, seq, day, order_at, sold_at, time_from, cents, price_from, units, quantity_from, receipt,"
        " receipt_from, item, item_type, item_text, order_date_text, time_text, price_text, quantity_text) FROM STDIN";
}

GroupedTable salesTable(ChainDatabase &database, const QByteArray &site)
{
    return {salesCopy(site), "site_days", [&database, site](const QByteArrayList &days) { deleteDays(database, site, days); }};
}

GroupedTable monthlyTable(ChainDatabase &database, const QByteArray &site)
{
    return {"COPY monthly_sales_site_" + site +
            " (site_id, month, seq, day, sold_minute, units, amount, gift_amount, missing_modes, item, date_text,"
            " quantity_text, item_text, price_text, type_text, time_text) FROM STDIN",
        "monthly_days", [&database, site](const QByteArrayList &keys) { deleteMonthDays(database, site, keys); }};
}

// Every day of a site that had none is new: its rows were sent as they were read.
GroupsReplaced newDays(ChainDatabase &database, const QByteArray &site, const SiteSnapshot &snapshot)
{
    GroupsReplaced days;
    days.first = true;
    days.changed = snapshot.days.keys();
    days.groups = int(days.changed.size());
    days.rows = snapshot.rowCount;
    writeDigests(database, site, "site_days", snapshot.days, days.changed, days.changed);
    return days;
}

} // namespace

SiteSync::SiteSync(ChainDatabase &database, const QString &name)
    : m_database(database)
    , m_site(QByteArray::number(registerSite(database, name)))
    , m_transaction(database)
{
    LockSite(database, m_site.toInt());
    m_streams = database.exec("SELECT 1 FROM site_days WHERE site_id = $1 LIMIT 1", {m_site}).rowCount() == 0;
}

SiteSync::~SiteSync() = default;

void SiteSync::salesRead(const SiteSnapshot &snapshot)
{
    if (!m_streams)
        return;
    if (!m_copy)
        m_copy = std::make_unique<ChainCopy>(m_database, salesCopy(m_site));
    for (auto day = snapshot.days.cbegin(); day != snapshot.days.cend(); ++day) {
        qsizetype &sent = m_sent[day.key()];
        m_copy->send(withSite(m_site, day->lines.sliced(sent)));
        sent = day->lines.size();
    }
}

void SiteSync::endStream(const SiteSnapshot &snapshot)
{
    salesRead(snapshot);
    if (m_copy)
        m_copy->finish();
    m_copy.reset();
}

SyncOutcome SiteSync::finish(const SiteSnapshot &snapshot, const std::function<void(qint64 rows)> &progress)
{
    ChainDatabase &database = m_database;
    const QByteArray &site = m_site;
    SyncOutcome outcome;
    if (m_streams)
        endStream(snapshot);
    const GroupsReplaced days =
        m_streams ? newDays(database, site, snapshot) : replaceGroups(database, site, salesTable(database, site), snapshot.days, progress);
    const GroupsReplaced monthDays =
        replaceGroups(database, site, monthlyTable(database, site), snapshot.monthDays, [&](qint64 rows) { progress(days.rows + rows); });
    outcome.daysReplaced = days.groups;
    outcome.rowsWritten = days.rows;
    outcome.monthDaysReplaced = monthDays.groups;
    outcome.monthRowsWritten = monthDays.rows;
    if (!days.changed.isEmpty())
        database.exec(DaySumsInsert("site_id = $1 AND day = ANY($2::date[])"), {site, dateArray(days.changed)});
    const bool catalogue =
        replaceList(database, site, "catalogue", "position, text, tag, type", snapshot.catalogueLines, snapshot.catalogueDigest);
    const bool departments =
        replaceList(database, site, "departments", "position, name", snapshot.departmentLines, snapshot.departmentsDigest);
    const bool itemLists =
        replaceList(database, site, "item_lists", "list, position, text", snapshot.itemListLines, snapshot.itemListsDigest);
    outcome.listsWritten = catalogue || departments || itemLists;
    // The planner reads a week through the index only when it knows how many rows a day holds; later
    // changes of a few days leave the figures to the server's own analysis.
    if (days.first && days.rows > 0)
        database.exec("ANALYZE sales_site_" + site + ", day_sales");
    if (monthDays.first && monthDays.rows > 0)
        database.exec("ANALYZE monthly_sales_site_" + site);
    if (outcome.daysReplaced > 0 || outcome.monthDaysReplaced > 0 || outcome.listsWritten)
        database.exec("UPDATE sites SET synced_at = now() WHERE site_id = $1", {site});
    m_transaction.commit();
    return outcome;
}

SyncOutcome SyncSite(ChainDatabase &database, const SiteSnapshot &snapshot, const std::function<void(qint64 rows)> &progress)
{
    return SiteSync(database, snapshot.name).finish(snapshot, progress);
}

} // namespace qlon
