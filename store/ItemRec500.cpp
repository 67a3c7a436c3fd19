#include "store/ItemRec500.h"

namespace qlon {

bool ItemRec500::isFree(FreeSlotRule rule) const
{
    const QByteArrayView title = trimmedView(ButtonTitle);
    if (title.isEmpty() || title == "Avaliable")
        return true;
    switch (rule) {
    case FreeSlotRule::ButtonRebuild: return title == "Available";
    case FreeSlotRule::DrinkRebuild: return title == "Available" || title == "-";
    case FreeSlotRule::RetailRebuild: return false;
    }
    return false;
}

QByteArray SisterPath(QByteArrayView itemPath)
{
    return itemPath.chopped(qMin<qsizetype>(3, itemPath.size())).toByteArray() + "IVM";
}

} // namespace qlon
