#pragma once

#include "itemssold/logic/SalesFileScan.h"
#include "listbuilder/logic/LoadList.h"

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QStringList>

namespace qlon {

class ChainDatabase;

// An Items Sold report over the chain as the screen takes it: the span's dates, the time pickers'
// texts, the report option and the department to show ("" for all).
struct ItemsSoldChoice
{
    QDate from;
    QDate to;
    QByteArray startTime = "12:00 am";
    QByteArray endTime = "11:59 pm";
    QByteArray category = "all"; // food, bar, both, retail or all
    QByteArray department;
};

// One site's Items Sold list as the screen shows it after its scan and department filter: the rows
// (text and tag), the total as the screen writes it and the count of the items not reported; and
// the figures behind the rows shown.
struct ItemsSoldListing
{
    QString site;
    QList<ListedItem> rows;
    QByteArray total;
    qsizetype notReported = 0;
    std::vector<SoldRow> sold; // each item row shown
    double giftCount = 0; // when the gift row is shown
    double giftTotal = 0;
};

// The Items Sold report of each site named (in the given order): the lines of its monthly files
// in the span, selected and summed by item in one query over all the sites, counted on the site's
// catalogue rows by the scan's own match. A department takes each site's own spelling. A site the
// database lacks raises ChainError.
QList<ItemsSoldListing> ChainItemsSoldReport(ChainDatabase &database, const QStringList &sites, const ItemsSoldChoice &choice);

// The sites' lists as one: the rows shown summed by item name, in the order each first comes,
// listed as a site's are; the gift cards and the items not reported summed.
ItemsSoldListing CombinedItemsSold(const QList<ItemsSoldListing> &listings);

} // namespace qlon
