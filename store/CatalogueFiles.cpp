#include "store/CatalogueFiles.h"

#include "store/ItemRec500.h"

namespace qlon {

namespace {
CatalogueFile withSister(const QByteArray &items)
{
    return {items, SisterPath(items)};
}
} // namespace

CatalogueFile ButtonFile(int index)
{
    const int set = index / 13;
    const int place = index % 13;
    const QByteArray folder = set == 0 ? QByteArrayLiteral("ini\\") : "ini\\" + QByteArray::number(set) + '\\';
    const QByteArray name = place == 12 ? QByteArrayLiteral("ButtonFB") : "Button" + QByteArray::number(place);
    return withSister(folder + name + ".dat");
}

std::array<CatalogueFile, 7> LiquorFiles()
{
    return {{
        withSister("data\\BeerDraft.dat"),
        withSister("data\\BeerBottle.dat"),
        withSister("data\\WineGlass.dat"),
        withSister("data\\WineBottle.dat"),
        withSister("data\\cocktail.dat"),
        withSister("data\\liqModifiers.dat"),
        // Spelled so by the stations; names are found without regard to case.
        {"data\\ExpressBar.dat", "data\\EXpressBar.IVM"},
    }};
}

CatalogueFile RetailFile()
{
    return withSister("data\\RetailItems.dat");
}

QList<CatalogueFile> GatheredCatalogueFiles()
{
    QList<CatalogueFile> files;
    for (int index = 0; index < ButtonFileCount; ++index)
        files.append(ButtonFile(index));
    for (const CatalogueFile &file : LiquorFiles())
        files.append(file);
    files.append(RetailFile());
    return files;
}

CatalogueFile ModifierFile(int index)
{
    return withSister("ini\\Mod" + QByteArray::number(index) + ".dat");
}

} // namespace qlon
