#pragma once

#include "store/ItemRec500.h"

#include <QByteArray>

#include <optional>

namespace qlon {

// What the item editor shows of a record. Texts stand as stored, trailing blanks included.
struct ItemView
{
    QByteArray buttonTitle;
    QByteArray receiptText;
    QByteArray kitchenText;
    QByteArray price;
    QByteArray happyHourPrice;
    QByteArray longDescription;
    QByteArray buttonNumber;
    QByteArray pizzaSize;
    bool visible = false;
    bool taxable = false;
    bool kitPrinter = false;
    bool barPrinter = false;
    bool pizza = false;
    // The pickers' texts, trimmed.
    QByteArray department;
    QByteArray category;
    QByteArray modifierList;
    // The additional kitchen printer: 3 to 8 for "Kit 3" to "Kit 8", 0 for none.
    int kitchenPrinter = 0;
};

inline constexpr int FirstExtraKitchen = 3;
inline constexpr int LastExtraKitchen = 8;

// The record as the editor shows it: a blank happy-hour price shows the price, a button number
// that is blank or begins with "Cat" shows empty, a blank category "Main Course" and a blank
// modifier list "Mod1".
ItemView ViewOfItem(const ItemRec500 &record);

// The screen into the record; the fields the editor doesn't show keep their bytes, and a text
// longer than its field is cut.
void StoreView(ItemRec500 &record, const ItemView &view);

// The record as the editor's Delete leaves it: a free slot titled "Avaliable", the texts and the
// department blank, the four flags "N", the other fields as they were.
ItemRec500 FreedSlot(ItemRec500 record);

// The editor's file operations on a catalogue file at a site path: a file that isn't there and
// a record number outside 1 to the count make each of them do nothing. A file a station holds
// raises the platform's error.
namespace ItemFile {

// The count of records; none when the file isn't there.
std::optional<qint32> Count(const QByteArray &path);
bool InRange(const QByteArray &path, qint32 number);
std::optional<ItemRec500> Read(const QByteArray &path, qint32 number);
bool Write(const QByteArray &path, qint32 number, const ItemRec500 &record);
// Writes the record after the last one, whatever slot is free; its number, or none.
std::optional<qint32> Append(const QByteArray &path, const ItemRec500 &record);
// Writes the 20 empty rows at the number in the recipe file beside the item file; that file's
// count of records, or none without one.
std::optional<qint32> ClearRecipe(const QByteArray &itemPath, qint32 number);

} // namespace ItemFile

} // namespace qlon
