#pragma once

#include "listbuilder/logic/LoadList.h"

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QStringList>

namespace qlon {

class ChainDatabase;

// The span of a report over the chain: the dates and the time pickers' texts, as the main screen
// holds them.
struct ChainSpan
{
    QDate from;
    QDate to;
    QByteArray startTime = "12:00 AM";
    QByteArray endTime = "11:59 PM";
};

// An item's or a department's figures, which add up across sites.
struct ChainFigures
{
    QByteArray name;
    QByteArray type;
    QByteArray price;
    double sales = 0;
    double units = 0;
};

// One site's main list after Calculate Sales: the rows as the main screen holds them (text and
// tag), and the figures behind them.
struct ChainListing
{
    QString site;
    QList<ListedItem> rows;
    QList<ChainFigures> items;
    QList<ChainFigures> departments;
};

// The names of the sites the chain database holds, in the order they came.
QStringList ChainSites(ChainDatabase &database);

// The main report of each site named (in the given order): its catalogue's items of the category
// and its departments' totals, the sales counted by the span filter in SQL. A department choice
// takes each site's own spelling of the caption. A site the database lacks raises ChainError.
QList<ChainListing> ChainMainReport(ChainDatabase &database, const QStringList &sites, const ChainSpan &span, CategoryChoice choice);

// The sites' lists as one: the items summed by name and the departments by name, each in the
// order it first comes.
ChainListing CombinedListing(const QList<ChainListing> &listings);

} // namespace qlon
