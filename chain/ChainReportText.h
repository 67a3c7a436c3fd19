#pragma once

#include "chain/logic/ChainItemsSold.h"
#include "chain/logic/ChainMainReport.h"

#include <QString>

namespace qlon {

// A site's list as `qlon report main` prints it below its heading: every row of the list, its
// text, a tab and its tag.
QString PrintedListing(const ChainListing &listing);

// Export Sales' file of a list: the heading, then each item's tag, units and actual sales.
QByteArray ExportedListing(const ChainListing &listing);

// A site's Items Sold list as `qlon report items-sold` prints it below its heading: every row, its
// text, a tab and its tag; then the total and the count of the items not reported.
QString PrintedItemsSold(const ItemsSoldListing &listing);

// The Items Sold list as a file of the same form as Export Sales': each item row's name, units and
// sales.
QByteArray ExportedItemsSold(const ItemsSoldListing &listing);

} // namespace qlon
