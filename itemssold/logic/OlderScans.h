#pragma once

#include "itemssold/logic/SalesFileScan.h"
#include "store/ItemRec500.h"

#include <QList>

namespace qlon {

// The screen's older one-pass scans, kept beside the full scan though no control calls them.
// Each gathers its own catalogue into a table of 2001 rows, reads the monthly files without
// their alignment test or reject file, reports no missing items, and takes a line only between
// the span's hours on every day, not on its first and last day alone.
enum class OlderScan {
    Food, // ReadFoodFile: the button table, ini\ButtonFB.dat and the modifier files
    Bar, // ReadBarFile: the drink files, lines of type "L" only, no gift count
    Both, // ReadBothFile: all of those and data\LiqModifiers.dat
};

// The button table the screen loads: records 1 to 12 of the last of ini\Button0.dat to
// ini\Button11.dat that exists.
QList<ItemRec500> LoadButtonTable();

SalesScan RunOlderScan(OlderScan kind, const QList<ItemRec500> &buttonTable, const ScanSpan &span, ScanProgress &progress);

} // namespace qlon
