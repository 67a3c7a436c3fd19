#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

#include <array>

namespace qlon {

// One line of the slip and the font size it prints at.
struct SlipLine
{
    int fontSize;
    QByteArray text;
};

// What an Items Sold slip shows, about a span and its total, the rows of the print list as they
// stand (the gift row isn't among them).
struct SlipContent
{
    QByteArray siteName; // empty unless the printer status screen read the configuration
    QByteArray fromDate;
    QByteArray toDate;
    QByteArrayList printRows;
    QByteArray total;
};

QList<SlipLine> ItemsSoldSlip(const SlipContent &content);

// The report rows cut at their bars into quantity, name and amount, three rows a block; a field
// a row lacks is one blank. The last block holds the one or two rows left over, if any.
using EngineRow = std::array<QByteArray, 3>;
QList<QList<EngineRow>> EngineBlocks(const QByteArrayList &reportRows);

} // namespace qlon
