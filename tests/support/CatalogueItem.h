#pragma once

#include "store/ItemRec500.h"

namespace qlon::test {

// The fields of a catalogue record that the tests set, in the one order every test gives them:
// CatalogueItem({"Burger", "Food", "6.50"}), or by name: CatalogueItem({.title = "Cap", .kitchenText = "Cap"}).
struct ItemFields
{
    QByteArray title;
    QByteArray department = "Food";
    QByteArray price = "5.00";
    // The title unless given.
    QByteArray receipt = {};
    QByteArray kitchenText = {};
};

inline ItemRec500 CatalogueItem(const ItemFields &fields)
{
    ItemRec500 record;
    record.setField(ItemRec500::ButtonTitle, fields.title);
    record.setField(ItemRec500::ReceiptText, fields.receipt.isNull() ? fields.title : fields.receipt);
    record.setField(ItemRec500::Department, fields.department);
    record.setField(ItemRec500::Price, fields.price);
    record.setField(ItemRec500::KitchenText, fields.kitchenText);
    return record;
}

} // namespace qlon::test
