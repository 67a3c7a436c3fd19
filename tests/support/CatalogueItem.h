#pragma once

#include "store/ItemRec500.h"

namespace qlon::test {

// A catalogue record with the fields that the scans and the list read; the receipt text is the
// title unless given.
inline ItemRec500 CatalogueItem(const QByteArray &title, const QByteArray &price, const QByteArray &department = "Food",
                                const QByteArray &receipt = {})
{
    ItemRec500 record;
    record.setField(ItemRec500::ButtonTitle, title);
    record.setField(ItemRec500::ReceiptText, receipt.isNull() ? title : receipt);
    record.setField(ItemRec500::Price, price);
    record.setField(ItemRec500::Department, department);
    return record;
}

} // namespace qlon::test
