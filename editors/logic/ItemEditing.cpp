#include "editors/logic/ItemEditing.h"

#include "core/FixedField.h"
#include "core/HostPath.h"
#include "core/RecordFile.h"
#include "store/IvmRec1000.h"

namespace qlon {

namespace {

bool isOn(const ItemRec500 &record, ItemRec500::Field flag, const char *on)
{
    return record.trimmedField(flag) == on;
}

QByteArray orElse(const QByteArray &text, const char *otherwise)
{
    return text.isEmpty() ? QByteArray(otherwise) : text;
}

} // namespace

ItemView ViewOfItem(const ItemRec500 &record)
{
    ItemView view;
    view.buttonTitle = record.field(ItemRec500::ButtonTitle);
    view.receiptText = record.field(ItemRec500::ReceiptText);
    view.kitchenText = record.field(ItemRec500::KitchenText);
    view.price = record.field(ItemRec500::Price);
    view.happyHourPrice = record.trimmedField(ItemRec500::HappyHourPrice).isEmpty() ? view.price : record.field(ItemRec500::HappyHourPrice);
    view.longDescription = record.field(ItemRec500::LongDescription);
    view.buttonNumber = record.field(ItemRec500::ButtonNumber);
    if (TrimBlanks(view.buttonNumber).isEmpty() || view.buttonNumber.startsWith("Cat"))
        view.buttonNumber.clear();
    view.pizzaSize = record.field(ItemRec500::PizzaSize);
    view.visible = isOn(record, ItemRec500::VisibleFlag, "T");
    view.taxable = isOn(record, ItemRec500::TaxableFlag, "T");
    view.kitPrinter = isOn(record, ItemRec500::KitPrinterFlag, "1");
    view.barPrinter = isOn(record, ItemRec500::BarPrinterFlag, "1");
    view.pizza = isOn(record, ItemRec500::PizzaFlag, "1");
    view.department = record.trimmedField(ItemRec500::Department);
    view.category = orElse(record.trimmedField(ItemRec500::Category), "Main Course");
    view.modifierList = orElse(record.trimmedField(ItemRec500::ModifierList), "Mod1");
    const QByteArray route = record.field(ItemRec500::KitchenRoute);
    if (route >= "4" && route <= "9")
        view.kitchenPrinter = route[0] - '1';
    return view;
}

void StoreView(ItemRec500 &record, const ItemView &view)
{
    const std::pair<ItemRec500::Field, const QByteArray *> texts[] = {{ItemRec500::ButtonTitle, &view.buttonTitle},
        {ItemRec500::ReceiptText, &view.receiptText}, {ItemRec500::KitchenText, &view.kitchenText}, {ItemRec500::Price, &view.price},
        {ItemRec500::HappyHourPrice, &view.happyHourPrice}, {ItemRec500::LongDescription, &view.longDescription},
        {ItemRec500::ButtonNumber, &view.buttonNumber}, {ItemRec500::PizzaSize, &view.pizzaSize}, {ItemRec500::Category, &view.category},
        {ItemRec500::Department, &view.department}, {ItemRec500::ModifierList, &view.modifierList}};
    for (const auto &[field, text] : texts)
        record.setField(field, *text);
    record.setField(ItemRec500::VisibleFlag, view.visible ? "T" : "N");
    record.setField(ItemRec500::BarPrinterFlag, view.barPrinter ? "1" : "N");
    record.setField(ItemRec500::TaxableFlag, view.taxable ? "T" : "N");
    record.setField(ItemRec500::KitPrinterFlag, view.kitPrinter ? "1" : "N");
    record.setField(ItemRec500::PizzaFlag, view.pizza ? "1" : "0");
    const bool routed = view.kitchenPrinter >= FirstExtraKitchen && view.kitchenPrinter <= LastExtraKitchen;
    record.setField(ItemRec500::KitchenRoute, routed ? QByteArray::number(view.kitchenPrinter + 1) : QByteArray("0"));
    record.setField(ItemRec500::RecordTail, {});
}

ItemRec500 FreedSlot(ItemRec500 record)
{
    record.setField(ItemRec500::ButtonTitle, "Avaliable"); // the stations' own spelling
    for (ItemRec500::Field blank : {ItemRec500::ReceiptText, ItemRec500::KitchenText, ItemRec500::Price, ItemRec500::HappyHourPrice,
             ItemRec500::LongDescription, ItemRec500::Department})
        record.setField(blank, {});
    for (ItemRec500::Field flag :
        {ItemRec500::VisibleFlag, ItemRec500::TaxableFlag, ItemRec500::BarPrinterFlag, ItemRec500::KitPrinterFlag})
        record.setField(flag, "N");
    return record;
}

namespace ItemFile {

std::optional<qint32> Count(const QByteArray &path)
{
    if (!FileExists(HostPath(path)))
        return std::nullopt;
    RecordFile file(HostPath(path), ItemRec500::size);
    file.RefuseIfHeldElsewhere();
    return file.CountRecords();
}

bool InRange(const QByteArray &path, qint32 number)
{
    const std::optional<qint32> count = Count(path);
    return count && number >= 1 && number <= *count;
}

std::optional<ItemRec500> Read(const QByteArray &path, qint32 number)
{
    if (!InRange(path, number))
        return std::nullopt;
    return ItemRec500(RecordFile(HostPath(path), ItemRec500::size).GetRecord(number));
}

bool Write(const QByteArray &path, qint32 number, const ItemRec500 &record)
{
    if (!InRange(path, number))
        return false;
    RecordFile(HostPath(path), ItemRec500::size).PutRecord(number, record.bytes());
    return true;
}

std::optional<qint32> Append(const QByteArray &path, const ItemRec500 &record)
{
    const std::optional<qint32> count = Count(path);
    if (!count)
        return std::nullopt;
    RecordFile(HostPath(path), ItemRec500::size).PutRecord(*count + 1, record.bytes());
    return *count + 1;
}

std::optional<qint32> ClearRecipe(const QByteArray &itemPath, qint32 number)
{
    const QString recipes = HostPath(SisterPath(itemPath));
    if (number < 1 || !FileExists(recipes))
        return std::nullopt;
    RecordFile file(recipes, IvmRec1000::size);
    file.PutRecord(number, IvmRec1000::Cleared().bytes());
    return file.CountRecords();
}

} // namespace ItemFile

} // namespace qlon
