#pragma once

#include "chain/logic/ChainMainReport.h"

#include <QString>

namespace qlon {

// A site's list as `qlon report main` prints it below its heading: every row of the list, its
// text, a tab and its tag.
QString PrintedListing(const ChainListing &listing);

// Export Sales' file of a list: the heading, then each item's tag, units and actual sales.
QByteArray ExportedListing(const ChainListing &listing);

} // namespace qlon
