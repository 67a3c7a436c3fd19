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

    m_items = &Files().OpenRandom(ItemsNumber, hostPathUnderDataRoot(tempItems), ItemRec500::size);
    m_recipes = &Files().OpenRandom(RecipesNumber, hostPathUnderDataRoot(tempRecipes), IvmRec1000::size);
    m_listItems = &Files().OpenRandom(ListItemsNumber, hostPathUnderDataRoot(tempListItems), ItemRec500::size);
    for (RecordFile *file : {m_items, m_recipes, m_listItems})
        file->LockAll();
    m_titles = &Files().OpenText(TitlesNumber, HostPath(titleList), TextFile::Mode::Output);

    m_itemCount = 0;
    m_listCount = 0;
    gatherButtons();
    gatherLiquor();
    gatherRetail();

    for (RecordFile *file : {m_items, m_recipes, m_listItems})
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
    const FreeSlotRule rule = group == Group::Food ? FreeSlotRule::ButtonRebuild
        : group == Group::Liquor                   ? FreeSlotRule::DrinkRebuild
                                                   : FreeSlotRule::RetailRebuild;
    for (qint32 number = 1; number <= count; ++number) {
        if (showRecordProgress)
            m_display.setProgress(number);
        ItemRec500 item(items.GetRecord(number));
        const QByteArray recipe = recipes.GetRecord(number);
        item.setField(ItemRec500::ButtonTitle, item.trimmedField(ItemRec500::ButtonTitle));
        if (item.isFree(rule))
            continue;
        // A blank Department stays blank: the old test compared the fixed field, never empty, with "".
        if (group == Group::Retail) {
            item.setField(ItemRec500::Department, "Retail");
            item.setField(ItemRec500::ButtonTitle, item.field(ItemRec500::KitchenText));
        }
        writeItem(item.bytes(), recipe, group);
    }
    Files().Close(SourceItemsNumber);
    Files().Close(SourceRecipesNumber);
}

void RebuildItems::writeItem(const QByteArray &item, const QByteArray &recipe, Group group)
{
    ++m_itemCount;
    m_items->PutRecord(m_itemCount, item);
    m_recipes->PutRecord(m_itemCount, recipe);
    if (group == Group::Food)
        m_titles->WriteFields({ItemRec500(item).trimmedField(ItemRec500::ButtonTitle)});
    // Every group lists its items for Load List.
    ++m_listCount;
    m_listItems->PutRecord(m_listCount, item);
    m_display.showItemCount(m_itemCount);
    m_display.pause();
}

} // namespace qlon
