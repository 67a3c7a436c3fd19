#pragma once

#include <QByteArray>
#include <QList>

namespace qlon {

class RecordFile;

// The category options of the main screen, tested in this order; the first selected one whose
// test holds takes an item in. All comparisons are exact, with case.
struct CategoryChoice
{
    bool all = false; // every item
    bool retail = false; // type "Retail"
    bool both = false; // every type but "Retail"
    bool food = false; // type "Food"
    bool bar = false; // type "Beverage"
    bool department = false; // the type equals the trimmed caption below
    QByteArray departmentCaption;

    bool takes(const QByteArray &type) const;
};

// One row of the working list: "name|type|price|0|0", tagged with the name.
struct ListedItem
{
    QByteArray text;
    QByteArray tag;
};

// The items of the merged catalogue that the choice selects, in file order. A name is taken
// once, from its first record. More than 3000 records raise "Subscript out of range" at the
// first new name past them, as the old table of names did.
QList<ListedItem> ListItems(RecordFile &catalogue, const CategoryChoice &choice);

} // namespace qlon
