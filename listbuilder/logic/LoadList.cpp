#include "listbuilder/logic/LoadList.h"

#include "core/FixedField.h"
#include "core/RecordFile.h"
#include "store/ItemRec500.h"

#include <QSet>

namespace qlon {

namespace {

constexpr qint32 lastSeenPosition = 3000;

// The exact rule of the program: every apostrophe becomes a capital M, so "Joe's" is listed
// as "JoeMs" and counts no sales under its real name.
QByteArray listedName(const ItemRec500 &item)
{
    return item.trimmedField(ItemRec500::ButtonTitle).replace('\'', 'M');
}

QByteArray orDefault(QByteArray text, const char *fallback)
{
    return text.isEmpty() ? QByteArray(fallback) : text;
}

} // namespace

bool CategoryChoice::takes(const QByteArray &type) const
{
    return all || (retail && type == "Retail") || (both && type != "Retail") || (food && type == "Food") || (bar && type == "Beverage") ||
        (department && TrimBlanks(departmentCaption) == type);
}

QList<ListedItem> ListItems(RecordFile &catalogue, const CategoryChoice &choice)
{
    QList<ListedItem> listed;
    QSet<QByteArray> seen;
    const qint32 count = catalogue.CountRecords();
    for (qint32 position = 1; position <= count; ++position) {
        const ItemRec500 item(catalogue.GetRecord(position));
        const QByteArray name = listedName(item);
        if (name.isEmpty() || seen.contains(name))
            continue;
        if (position > lastSeenPosition)
            throw RuntimeError(RuntimeError::SubscriptOutOfRange, catalogue.hostPath());
        seen.insert(name);
        const QByteArray type = orDefault(item.trimmedField(ItemRec500::Department), "Food");
        if (!choice.takes(type))
            continue;
        const QByteArray price = orDefault(item.trimmedField(ItemRec500::Price), "0");
        listed.append({name + '|' + type + '|' + price + "|0|0", name});
    }
    return listed;
}

} // namespace qlon
