#pragma once

#include "rebuild/logic/PendingRecords.h"

#include <QByteArray>

#include <functional>
#include <optional>

namespace qlon {

class ItemRec500;
class TextFile;
struct CatalogueFile;

// What the run shows while it works; the screen that hosts it fills these in.
struct RebuildDisplay
{
    std::function<void(int minimum, int maximum)> setProgressRange;
    std::function<void(int value)> setProgress;
    std::function<void(int count)> showItemCount;
    // Hands control to the event loop for a moment.
    std::function<void()> pause;
};

// Gathers every live item of the button, drink and retail files, with its recipe, into the
// dense files of Temp\ that Load List reads: Temp\TempInv.dat, Temp\TempInv.IVM,
// Temp\TempInvLB.DAT, and the list of button titles c:\Quillon\Temp\tList1.dat. The three
// record files are locked whole for the run. Source files are only read.
class RebuildItems
{
public:
    explicit RebuildItems(RebuildDisplay display);

    // Empties Temp\TempInv.dat and Temp\TempInv.IVM, as the screen does when it opens.
    static void EmptyTempFiles();

    void Run();

private:
    enum class Group { Food, Liquor, Retail };

    void gatherButtons();
    void gatherLiquor();
    void gatherRetail();
    // Gathers the live records of one pair of files; the count shows on the progress bar when
    // `showRecordProgress` is set.
    void gatherFile(const CatalogueFile &files, Group group, bool showRecordProgress);
    void gatherRecord(QByteArrayView itemBytes, QByteArrayView recipe, Group group);
    void writeItem(const ItemRec500 &item, QByteArrayView recipe, Group group);
    // Hands the items gathered since the last call to the output files.
    void writePending();

    RebuildDisplay m_display;
    // The block of source records in hand, their buffers serving from block to block.
    QByteArray m_itemBlock;
    QByteArray m_recipeBlock;
    std::optional<PendingRecords> m_items;
    std::optional<PendingRecords> m_recipes;
    std::optional<PendingRecords> m_listItems;
    TextFile *m_titles = nullptr;
    QByteArray m_pendingTitles;
    qint32 m_itemCount = 0;
};

} // namespace qlon
