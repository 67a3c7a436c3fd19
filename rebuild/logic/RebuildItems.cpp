#include "rebuild/logic/RebuildItems.h"

#include "core/Conversions.h"
#include "core/FileTable.h"
#include "core/HostPath.h"
#include "store/CatalogueFiles.h"
#include "store/ItemRec500.h"
#include "store/IvmRec1000.h"
#include "store/SiteConfig.h"

#include <QFileInfo>

namespace qlon {

namespace {

// Source records are read in blocks of this many, and the items gathered from a block are
// written together.
constexpr int recordsPerRead = 512;

enum FileNumber { ItemsNumber = 1, RecipesNumber, ListItemsNumber, TitlesNumber, SourceItemsNumber, SourceRecipesNumber };

const QByteArray tempItems = QByteArrayLiteral("Temp\\TempInv.dat");
const QByteArray tempRecipes = QByteArrayLiteral("Temp\\TempInv.IVM");
const QByteArray tempListItems = QByteArrayLiteral("Temp\\TempInvLB.DAT");
// Fixed, whatever the site's folders.
const QByteArray titleList = QByteArrayLiteral("c:\\Quillon\\Temp\\tList1.dat");

QString hostPathUnderDataRoot(const QByteArray &relative)
{
    return HostPath(DataPath(relative));
}

void emptyFile(const QByteArray &relative)
{
    TextFile(hostPathUnderDataRoot(relative), TextFile::Mode::Output);
}

bool exists(const QByteArray &relative)
{
    return QFileInfo::exists(hostPathUnderDataRoot(relative));
}

} // namespace

RebuildItems::RebuildItems(RebuildDisplay display)
    : m_display(std::move(display))
{
}

void RebuildItems::EmptyTempFiles()
{
    CloseAll();
    emptyFile(tempItems);
    emptyFile(tempRecipes);
}

void RebuildItems::Run()
{
    m_display.setProgressRange(0, 100);
    m_display.setProgress(0);
    for (const QByteArray &file : {tempItems, tempRecipes, tempListItems})
        emptyFile(file);

    RecordFile &items = Files().OpenRandom(ItemsNumber, hostPathUnderDataRoot(tempItems), ItemRec500::size);
    RecordFile &recipes = Files().OpenRandom(RecipesNumber, hostPathUnderDataRoot(tempRecipes), IvmRec1000::size);
    RecordFile &listItems = Files().OpenRandom(ListItemsNumber, hostPathUnderDataRoot(tempListItems), ItemRec500::size);
    for (RecordFile *file : {&items, &recipes, &listItems})
        file->LockAll();
    m_titles = &Files().OpenText(TitlesNumber, HostPath(titleList), TextFile::Mode::Output);
    m_items.emplace(items);
    m_recipes.emplace(recipes);
    m_listItems.emplace(listItems);

    m_itemCount = 0;
    gatherButtons();
    gatherLiquor();
    gatherRetail();

    for (RecordFile *file : {&items, &recipes, &listItems})
        file->UnlockAll();
    CloseAll();
}

void RebuildItems::gatherButtons()
{
    m_display.setProgressRange(0, ButtonFileCount);
    for (int index = 0; index < ButtonFileCount; ++index) {
        m_display.setProgress(index);
        m_display.pause();
        const CatalogueFile files = ButtonFile(index);
        if (exists(files.items) && exists(files.recipes))
            gatherFile(files, Group::Food, false);
    }
}

void RebuildItems::gatherLiquor()
{
    if (NumericValue(Site().Config.field(IniRec2300::LiquorRebuild)) != -1)
        return;
    for (const CatalogueFile &files : LiquorFiles()) {
        m_display.pause();
        if (exists(files.items) && exists(files.recipes))
            gatherFile(files, Group::Liquor, true);
    }
}

void RebuildItems::gatherRetail()
{
    // The retail recipes are not looked for first: a missing one is created empty.
    const CatalogueFile files = RetailFile();
    if (exists(files.items))
        gatherFile(files, Group::Retail, true);
}

void RebuildItems::gatherFile(const CatalogueFile &files, Group group, bool showRecordProgress)
{
    RecordFile &items = Files().OpenRandom(SourceItemsNumber, hostPathUnderDataRoot(files.items), ItemRec500::size);
    RecordFile &recipes = Files().OpenRandom(SourceRecipesNumber, hostPathUnderDataRoot(files.recipes), IvmRec1000::size);
    const qint32 count = items.CountRecords();
    if (showRecordProgress)
        m_display.setProgressRange(0, count + 1);
    for (qint32 first = 1; first <= count; first += recordsPerRead) {
        const int inBlock = qMin(recordsPerRead, count - first + 1);
        items.GetRecords(first, inBlock, m_itemBlock);
        recipes.GetRecords(first, inBlock, m_recipeBlock);
        for (int index = 0; index < inBlock; ++index) {
            if (showRecordProgress)
                m_display.setProgress(first + index);
            gatherRecord(QByteArrayView(m_itemBlock).sliced(qsizetype(index) * ItemRec500::size, ItemRec500::size),
                QByteArrayView(m_recipeBlock).sliced(qsizetype(index) * IvmRec1000::size, IvmRec1000::size), group);
        }
        writePending();
    }
    Files().Close(SourceItemsNumber);
    Files().Close(SourceRecipesNumber);
}

void RebuildItems::gatherRecord(QByteArrayView itemBytes, QByteArrayView recipe, Group group)
{
    const FreeSlotRule rule = group == Group::Food ? FreeSlotRule::ButtonRebuild
        : group == Group::Liquor                   ? FreeSlotRule::DrinkRebuild
                                                   : FreeSlotRule::RetailRebuild;
    ItemRec500 item(itemBytes);
    item.setField(ItemRec500::ButtonTitle, item.trimmedView(ItemRec500::ButtonTitle));
    if (item.isFree(rule))
        return;
    // A blank Department stays blank: the old test compared the fixed field, never empty, with "".
    if (group == Group::Retail) {
        item.setField(ItemRec500::Department, "Retail");
        item.setField(ItemRec500::ButtonTitle, item.field(ItemRec500::KitchenText));
    }
    writeItem(item, recipe, group);
}

void RebuildItems::writeItem(const ItemRec500 &item, QByteArrayView recipe, Group group)
{
    ++m_itemCount;
    m_items->append(item.bytes());
    m_recipes->append(recipe);
    if (group == Group::Food)
        AppendQuotedLine(m_pendingTitles, {item.trimmedView(ItemRec500::ButtonTitle)});
    // Every group lists its items for Load List, so the list's count keeps step with the item count.
    m_listItems->append(item.bytes());
    m_display.showItemCount(m_itemCount);
    m_display.pause();
}

void RebuildItems::writePending()
{
    m_items->write();
    m_recipes->write();
    m_titles->WriteLines(m_pendingTitles);
    m_pendingTitles.resize(0);
    m_listItems->write();
}

} // namespace qlon
