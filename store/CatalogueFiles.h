#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <array>

namespace qlon {

// An item file of the catalogue and its recipe file, as paths under DataRoot, and what the file
// holds, for a person: "menu set 1, page 7".
struct CatalogueFile
{
    QByteArray items;
    QByteArray recipes;
    QString what = {};
};

// The food buttons: four menu sets (ini\, ini\1\ to ini\3\) of thirteen files each,
// Button0 to Button11 and ButtonFB, in that order.
constexpr int ButtonFileCount = 52;
CatalogueFile ButtonFile(int index);

// The drink files, in the order the rebuild gathers them.
std::array<CatalogueFile, 7> LiquorFiles();

CatalogueFile RetailFile();

// The files the rebuild gathers, in its order: the button files, the drink files, the retail file.
QList<CatalogueFile> GatheredCatalogueFiles();

// The modifier lists ini\Mod0.dat to ini\Mod29.dat.
constexpr int ModifierFileCount = 30;
CatalogueFile ModifierFile(int index);

inline const QByteArray StockFile = QByteArrayLiteral("data\\LiqInventory.dat");

} // namespace qlon
