#pragma once

#include <QString>

namespace qlon {

// Writes the catalogue of the demonstration site into `siteFolder`, the host folder of
// C:\Quillon: the food buttons of the menu sets ini\ and ini\1\, the drink files, the retail
// articles, the modifier lists ini\Mod0.dat to ini\Mod3.dat, each with its recipe file, and
// the stock articles that the recipes name in data\LiqInventory.dat. Beside some four hundred
// items it holds on purpose the slots that readers treat differently: free slots, "Available"
// and "-" titles, a blank title, a repeated name, an empty department, price and retail name.
// Existing files of the same names are replaced.
void WriteDemoCatalogue(const QString &siteFolder);

// For benchmarks: fills the first `fileCount` catalogue files, in the order the rebuild
// gathers them (the 52 button files, the 7 drink files, the retail file), with
// `recordsPerFile` records each and their recipes. The items have unique names such as
// "Item 0001-0042"; every tenth record is a free slot. The same arguments write the same bytes.
void WriteGeneratedCatalogue(const QString &siteFolder, int fileCount, int recordsPerFile);

} // namespace qlon
