#include "store/CatalogueFiles.h"

#include "store/ItemRec500.h"

namespace qlon {

namespace {
CatalogueFile withSister(const QByteArray &items, const QString &what)
{
    return {items, SisterPath(items), what};
}
} // namespace

CatalogueFile ButtonFile(int index)
{
    const int set = index / 13;
    const int place = index % 13;
    const QByteArray folder = set == 0 ? QByteArrayLiteral("ini\\") : "ini\\" + QByteArray::number(set) + '\\';
    const QByteArray name = place == 12 ? QByteArrayLiteral("ButtonFB") : "Button" + QByteArray::number(place);
    const QString menuSet = set == 0 ? QStringLiteral("main menu set") : QStringLiteral("menu set %1").arg(set);
    const QString page = place == 12 ? QStringLiteral("page FB") : QStringLiteral("page %1").arg(place);
    return withSister(folder + name + ".dat", menuSet + QStringLiteral(", ") + page);
}

std::array<CatalogueFile, 7> LiquorFiles()
{
    return {{
        withSister("data\\BeerDraft.dat", QStringLiteral("drinks: draft beer")),
        withSister("data\\BeerBottle.dat", QStringLiteral("drinks: bottled beer")),
        withSister("data\\WineGlass.dat", QStringLiteral("drinks: wine by the glass")),
        withSister("data\\WineBottle.dat", QStringLiteral("drinks: wine by the bottle")),
        withSister("data\\cocktail.dat", QStringLiteral("drinks: cocktails")),
        withSister("data\\liqModifiers.dat", QStringLiteral("drinks: liquor modifiers")),
        // Spelled so by the stations; names are found without regard to case.
        {"data\\ExpressBar.dat", "data\\EXpressBar.IVM", QStringLiteral("drinks: express bar")},
    }};
}

CatalogueFile RetailFile()
{
    return withSister("data\\RetailItems.dat", QStringLiteral("retail articles"));
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
    return withSister("ini\\Mod" + QByteArray::number(index) + ".dat", QStringLiteral("modifier list %1").arg(index));
}

} // namespace qlon
