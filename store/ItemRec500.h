#pragma once

#include "core/FixedRecord.h"

namespace qlon {

inline constexpr auto ItemLayout = LayoutOfWidths<21>({2, 18, 20, 1, 18, 2, 18, 1, 20, 10, 10, 1, 1, 50, 10, 20, 20, 5, 5, 1, 267});

// Which titles a reader takes for a free slot; the readers differ on purpose.
enum class FreeSlotRule {
    ButtonRebuild, // "", "Avaliable", "Available"
    DrinkRebuild, // "", "Avaliable", "Available", "-"
    RetailRebuild, // "", "Avaliable"
};

// The 500-byte catalogue record that the stations share: one sellable thing, a button, a
// modifier, a drink or a retail article. Its record number is its only key.
class ItemRec500 : public FixedRecord<500, ItemLayout>
{
public:
    using FixedRecord::FixedRecord;

    enum Field {
        SlotCode,
        ButtonTitle,
        AltTitle,
        VisibleFlag,
        ReceiptText,
        SpareCode,
        KitchenText,
        TaxableFlag,
        ModifierList,
        Price,
        HappyHourPrice,
        BarPrinterFlag,
        KitPrinterFlag,
        LongDescription,
        ButtonNumber,
        Department,
        Category,
        PizzaFlag,
        PizzaSize,
        KitchenRoute,
        RecordTail,
    };

    bool isFree(FreeSlotRule rule) const;
};

// The recipe file beside an item file: the path less its last three characters, plus "IVM".
QByteArray SisterPath(QByteArrayView itemPath);

} // namespace qlon
