#include "demo/DemoCatalogue.h"

#include "core/RecordFile.h"
#include "store/CatalogueFiles.h"
#include "store/ItemRec500.h"
#include "store/IvmRec1000.h"
#include "store/StockRec1000.h"

#include <QDir>
#include <QFileInfo>
#include <QList>

#include <array>
#include <optional>

namespace qlon {

namespace {

// How much of a stock article one sale uses up.
struct Portion
{
    QByteArray stock;
    QByteArray ounces;
};

// One record of a catalogue file as the operator would describe it. A title "Avaliable"
// stands for a slot that the deleter freed, an empty title for a record never written.
struct Entry
{
    QByteArray title = {};
    QByteArray price = {};
    QList<Portion> recipe = {};
    std::optional<QByteArray> kitchenText = {}; // the title when absent
    std::optional<QByteArray> department = {}; // the section's when absent
    QByteArray pizzaSize = {};
};

enum class Printer { Kitchen, Bar, None };

// What the items of one screen or file share.
struct Section
{
    QByteArray department = {};
    QByteArray category = "Other";
    QByteArray modifierList = {};
    QByteArray kitchenRoute = "0";
    Printer printer = Printer::Kitchen;
    bool taxable = true;
    double happyHourDiscount = 0;
};

struct Screen
{
    Section section;
    QList<Entry> entries;
};

// An item record and its recipe, the same record number in the two files.
struct Slot
{
    ItemRec500 item;
    IvmRec1000 recipe;
};

const QByteArray DeletedTitle = QByteArrayLiteral("Avaliable"); // the deleter's spelling
constexpr int ButtonsPerScreen = 12;
constexpr int FilesPerMenuSet = 13; // Button0 to Button11, then ButtonFB
constexpr int DemoMenuSets = 2;

Entry freeSlot()
{
    return {DeletedTitle};
}

QByteArray money(double amount)
{
    return QByteArray::number(amount, 'f', 2);
}

QByteArray happyHourPrice(const Section &section, const QByteArray &price)
{
    if (section.happyHourDiscount == 0 || price.isEmpty())
        return {};
    return money(price.toDouble() - section.happyHourDiscount);
}

QByteArray flag(bool set, const char *setValue)
{
    return set ? QByteArray(setValue) : QByteArray("N");
}

ItemRec500 liveItem(const Section &section, const Entry &entry)
{
    ItemRec500 item;
    item.setField(ItemRec500::ButtonTitle, entry.title);
    item.setField(ItemRec500::VisibleFlag, "T");
    item.setField(ItemRec500::ReceiptText, entry.title);
    item.setField(ItemRec500::KitchenText, entry.kitchenText.value_or(entry.title));
    item.setField(ItemRec500::TaxableFlag, flag(section.taxable, "T"));
    item.setField(ItemRec500::ModifierList, section.modifierList);
    item.setField(ItemRec500::Price, entry.price);
    item.setField(ItemRec500::HappyHourPrice, happyHourPrice(section, entry.price));
    item.setField(ItemRec500::BarPrinterFlag, flag(section.printer == Printer::Bar, "1"));
    item.setField(ItemRec500::KitPrinterFlag, flag(section.printer == Printer::Kitchen, "1"));
    item.setField(ItemRec500::ButtonNumber, "N/A");
    item.setField(ItemRec500::Department, entry.department.value_or(section.department));
    item.setField(ItemRec500::Category, section.category);
    item.setField(ItemRec500::PizzaFlag, entry.pizzaSize.isEmpty() ? "0" : "1");
    item.setField(ItemRec500::PizzaSize, entry.pizzaSize);
    item.setField(ItemRec500::KitchenRoute, section.kitchenRoute);
    return item;
}

// The slot as the deleter leaves it: the texts and prices blank, the flags "N", and the
// other fields as the item held them.
ItemRec500 deletedItem(ItemRec500 item)
{
    item.setField(ItemRec500::ButtonTitle, DeletedTitle);
    for (int field : {ItemRec500::ReceiptText, ItemRec500::KitchenText, ItemRec500::Price, ItemRec500::HappyHourPrice,
             ItemRec500::LongDescription, ItemRec500::Department})
        item.setField(field, "");
    for (int field : {ItemRec500::VisibleFlag, ItemRec500::TaxableFlag, ItemRec500::BarPrinterFlag, ItemRec500::KitPrinterFlag})
        item.setField(field, "N");
    return item;
}

IvmRec1000 recipeOf(const QList<Portion> &portions)
{
    IvmRec1000 recipe = IvmRec1000::Cleared();
    for (int row = 1; row <= portions.size(); ++row)
        recipe.setRow(row, {portions[row - 1].stock, portions[row - 1].ounces, "Ounce"});
    return recipe;
}

Slot slotOf(const Section &section, const Entry &entry)
{
    if (entry.title.isEmpty())
        return {ItemRec500(), IvmRec1000()};
    if (entry.title == DeletedTitle)
        return {deletedItem(liveItem(section, entry)), IvmRec1000::Cleared()};
    return {liveItem(section, entry), recipeOf(entry.recipe)};
}

QList<Slot> slotsOf(const Section &section, const QList<Entry> &entries)
{
    QList<Slot> records;
    for (const Entry &entry : entries)
        records.append(slotOf(section, entry));
    return records;
}

// A button screen has its twelve buttons, the places without an item freed.
QList<Entry> filledScreen(QList<Entry> entries)
{
    while (entries.size() < ButtonsPerScreen)
        entries.append(freeSlot());
    return entries;
}

QList<Portion> scaled(const QList<Portion> &portions, int factor)
{
    QList<Portion> result;
    for (const Portion &portion : portions)
        result.append({portion.stock, QByteArray::number(portion.ounces.toDouble() * factor)});
    return result;
}

// The dinner menu, set ini\.

Screen appetizers()
{
    return {{.department = "Food", .category = "Appetizer", .modifierList = "Mod1", .kitchenRoute = "5", .happyHourDiscount = 2},
        {
            {"Joe's Wings", "12.95", {{"Chicken Wings", "10"}, {"Buffalo Sauce", "2"}, {"Blue Cheese Dressing", "2"}}},
            {"Boneless Wings", "11.95", {{"Chicken Breast", "8"}, {"Buffalo Sauce", "2"}}},
            {"Mozzarella Sticks", "9.95", {{"Mozzarella Sticks", "8"}, {"Marinara", "2"}}},
            {"Jalape\xF1o Poppers", "9.95", {{"Jalapeno Poppers", "8"}}},
            {"Loaded Nachos", "13.95", {{"Tortilla Chips", "6"}, {"Cheddar", "3"}, {"Salsa", "2"}, {"Sour Cream", "1"}}},
            {"Fried Calamari", "13.95", {{"Calamari", "8"}, {"Marinara", "2"}}},
            {"Crab Cakes", "14.95", {{"Crab Meat", "5"}, {"Remoulade", "1"}}},
            {"Steamed Mussels", "13.95", {{"Mussels", "16"}, {"Garlic Butter", "1"}}},
            {"Spinach Dip", "10.95"},
            {"Shrimp Cocktail", "14.95", {{"Shrimp", "6"}, {"Cocktail Sauce", "2"}}},
            {"Potato Skins", "10.95"},
        }};
}

Screen saladsAndSoups()
{
    return {{.department = "Food", .category = "Salad/Soup", .modifierList = "Mod1", .kitchenRoute = "6"},
        {
            {"House Salad", "6.95", {{"Mixed Greens", "4"}, {"Tomato", "1"}, {"Cucumber", "1"}}},
            {"Caesar Salad", "8.95", {{"Romaine", "5"}, {"Caesar Dressing", "2"}, {"Parmesan", "0.5"}, {"Croutons", "1"}}},
            {"Greek Salad", "10.95", {{"Romaine", "5"}, {"Feta", "1.5"}, {"Kalamata Olives", "1"}}},
            {"Cobb Salad", "13.95", {{"Romaine", "5"}, {"Chicken Breast", "4"}, {"Bacon", "1"}, {"Egg", "2"}}},
            {"Spinach Salad", "10.95"},
            {"Wedge Salad", "9.95", {{"Iceberg", "6"}, {"Blue Cheese Dressing", "2"}, {"Bacon", "1"}}},
            {"Caprese Salad", "10.95"},
            {"Clam Chowder Cup", "5.95", {{"Clam Chowder", "8"}}},
            {"Clam Chowder Bowl", "8.95", {{"Clam Chowder", "12"}}},
            {"French Onion Soup", "7.95"},
            {"Soup of the Day", "5.95"},
            // Typed over a deleted item by hand: an item for the editor, free for the rebuild.
            {"Available", "0.00"},
        }};
}

Screen burgers()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod0", .kitchenRoute = "4"},
        {
            {"Classic Burger", "13.95", {{"Ground Beef", "8"}, {"Burger Bun", "3"}, {"Lettuce", "1"}, {"Tomato", "1"}}},
            {"Cheeseburger", "14.95", {{"Ground Beef", "8"}, {"Burger Bun", "3"}, {"Cheddar", "1"}}},
            {"Bacon Cheeseburger", "15.95", {{"Ground Beef", "8"}, {"Burger Bun", "3"}, {"Cheddar", "1"}, {"Bacon", "1.5"}}},
            {"Mushroom Swiss", "15.95", {{"Ground Beef", "8"}, {"Burger Bun", "3"}, {"Swiss", "1"}}},
            {"BBQ Burger", "15.95"},
            {"Black Bean Burger", "13.95", {{"Black Bean Patty", "5"}, {"Burger Bun", "3"}}},
            {"Turkey Burger", "13.95"},
            {"Harbour Burger", "16.95"},
            {"Patty Melt", "14.95"},
            {"Slider Trio", "12.95", {{"Ground Beef", "6"}, {"Slider Roll", "3"}}},
        }};
}

Screen sandwiches()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod2", .kitchenRoute = "4"},
        {
            {"Lobster Roll", "24.95", {{"Lobster Meat", "5"}, {"Split Top Roll", "2"}, {"Mayonnaise", "0.5"}}},
            {"Fish Sandwich", "14.95", {{"Haddock", "6"}, {"Burger Bun", "3"}}}, {"Grilled Chicken", "13.95"},
            {"Club Sandwich", "13.95", {{"Turkey Breast", "4"}, {"Bacon", "1"}, {"Sourdough", "3"}}},
            {"Reuben", "13.95", {{"Corned Beef", "5"}, {"Swiss", "1"}, {"Rye Bread", "3"}}}, {"French Dip", "14.95"},
            {"Philly Cheesesteak", "14.95"}, {"BLT", "10.95", {{"Bacon", "2"}, {"Lettuce", "1"}, {"Tomato", "1"}, {"Sourdough", "3"}}},
            {"Buffalo Wrap", "12.95"}, {"Veggie Wrap", "11.95"}, {"Tuna Melt", "11.95"}, {}, // a record the stations left blank
        }};
}

Screen pasta()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod1", .kitchenRoute = "0"},
        {
            {"Spaghetti Marinara", "14.95", {{"Spaghetti", "6"}, {"Marinara", "6"}}},
            {"Fettuccine Alfredo", "16.95", {{"Fettuccine", "6"}, {"Alfredo Sauce", "6"}}},
            // Eighteen characters: the whole field, no blank behind.
            {"Chicken Parmigiana", "19.95", {{"Chicken Breast", "8"}, {"Spaghetti", "5"}, {"Marinara", "5"}, {"Mozzarella", "2"}}},
            {"Shrimp Scampi", "21.95", {{"Shrimp", "6"}, {"Linguine", "6"}, {"Garlic Butter", "2"}}},
            {"Lobster Mac", "24.95"},
            {"Baked Ziti", "15.95"},
            {"Lasagna", "16.95"},
            {"Penne Vodka", "15.95", {{"Penne", "6"}, {"Vodka Sauce", "6"}}},
            {"Seafood Linguine", "24.95"},
            {"Pasta Primavera", "15.95"},
            {"Spag & Meatballs", "16.95"},
        }};
}

struct PizzaKind
{
    QByteArray name;
    QByteArray smallPrice;
    QByteArray largePrice;
    QList<Portion> topping; // for the small size
};

QList<Entry> pizzasOf(const PizzaKind &kind)
{
    const QList<Portion> base = {{"Pizza Dough", "8"}, {"Pizza Sauce", "3"}, {"Mozzarella", "4"}};
    const QList<Portion> small = base + kind.topping;
    return {{.title = kind.name + " 10in", .price = kind.smallPrice, .recipe = small, .pizzaSize = "10"},
        {.title = kind.name + " 14in", .price = kind.largePrice, .recipe = scaled(small, 2), .pizzaSize = "14"}};
}

Screen pizzas()
{
    const QList<PizzaKind> kinds = {
        {"Cheese Pizza", "11.95", "17.95", {}},
        {"Pepperoni", "13.95", "19.95", {{"Pepperoni", "2"}}},
        {"Margherita", "13.95", "19.95", {{"Basil", "0.25"}}},
        {"Meat Lovers", "15.95", "22.95", {{"Pizza Meat Mix", "4"}}},
        {"Veggie", "14.95", "21.95", {{"Pizza Veggie Mix", "3"}}},
        {"BBQ Chicken", "15.95", "22.95", {{"BBQ Chicken Topping", "3"}}},
    };
    QList<Entry> entries;
    for (const PizzaKind &kind : kinds)
        entries += pizzasOf(kind);
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod3", .kitchenRoute = "7"}, entries};
}

Screen steaksAndGrill()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod2", .kitchenRoute = "4"},
        {
            {"Sirloin Steak", "24.95", {{"Sirloin", "10"}}},
            {"Ribeye Steak", "32.95", {{"Ribeye", "14"}}},
            {"Filet Mignon", "36.95", {{"Beef Tenderloin", "8"}}},
            {"Steak Tips", "21.95", {{"Sirloin", "8"}, {"Steak Marinade", "1"}}},
            {"BBQ Ribs Full", "26.95", {{"Baby Back Ribs", "24"}, {"BBQ Sauce", "3"}}},
            {"BBQ Ribs Half", "18.95", {{"Baby Back Ribs", "12"}, {"BBQ Sauce", "2"}}},
            {"Half Chicken", "18.95"},
            {"Pork Chop", "21.95"},
            {"Chicken Marsala", "19.95"},
            {"Meatloaf", "17.95"},
            {"Turkey Dinner", "17.95"},
        }};
}

Screen seafood()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod2", .kitchenRoute = "0"},
        {
            {"Fish and Chips", "18.95", {{"Haddock", "8"}, {"French Fries", "6"}, {"Tartar Sauce", "2"}}},
            {"Baked Haddock", "21.95", {{"Haddock", "10"}, {"Cracker Crumbs", "1"}}},
            {"Grilled Salmon", "23.95", {{"Salmon Fillet", "8"}}},
            {"Fried Clams", "26.95", {{"Whole Belly Clams", "8"}}},
            {"Fried Shrimp", "19.95", {{"Shrimp", "8"}}},
            {"Seafood Platter", "29.95"},
            // Sold at market price, keyed in at the register.
            {"Boiled Lobster", "", {{"Live Lobster", "24"}, {"Drawn Butter", "2"}}},
            {"Baked Scallops", "27.95", {{"Sea Scallops", "8"}}},
            {"Swordfish", "26.95"},
            {"Fish Tacos", "16.95"},
            {"Stuffed Sole", "22.95"},
            {"Cioppino", "28.95"},
        }};
}

Screen sides()
{
    return {{.department = "Food", .category = "Other", .modifierList = "Mod1", .kitchenRoute = "5"},
        {
            {"French Fries", "4.95", {{"French Fries", "6"}}},
            {"Sweet Potato Fries", "5.95", {{"Sweet Potato Fries", "6"}}},
            {"Onion Rings", "5.95", {{"Onion Rings", "6"}}},
            {"Baked Potato", "4.95"},
            {"Mashed Potatoes", "4.95"},
            {"Rice Pilaf", "3.95"},
            {"Steamed Broccoli", "4.95"},
            {"Coleslaw", "2.95"},
            {"Mac and Cheese", "5.95"},
            {"Side Salad", "4.95", {{"Mixed Greens", "3"}}},
            {"Garlic Bread", "4.95"},
        }};
}

Screen kidsMenu()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod2", .kitchenRoute = "0"},
        {
            {"Kids Burger", "7.95", {{"Ground Beef", "4"}, {"Slider Roll", "2"}}},
            {"Kids Cheeseburger", "8.45"},
            {"Kids Chx Fingers", "7.95", {{"Chicken Tenders", "4"}}},
            {"Kids Mac & Cheese", "6.95"},
            {"Kids Pasta", "6.95"},
            {"Kids Grill Cheese", "6.95"},
            {.title = "Kids Pizza", .price = "7.95", .recipe = {{"Pizza Dough", "5"}, {"Mozzarella", "2"}}, .pizzaSize = "8"},
            {"Kids Fish Bites", "8.95"},
            {"Kids Hot Dog", "6.95"},
            {"Kids Sundae", "3.95"},
        }};
}

Screen desserts()
{
    return {{.department = "Food", .category = "Dessert", .kitchenRoute = "9"},
        {
            {"Cr\xE8me Br\xFBl\xE9"
             "e",
                "8.95", {{"Custard Base", "5"}}},
            {"Chocolate Cake", "8.95"},
            {"NY Cheesecake", "8.95", {{"Cheesecake Slice", "5"}}},
            {"Apple Crisp", "7.95"},
            {"Key Lime Pie", "7.95"},
            {"Carrot Cake", "7.95"},
            {"Brownie Sundae", "8.95", {{"Brownie", "3"}, {"Vanilla Ice Cream", "4"}, {"Fudge Sauce", "1"}}},
            {"Ice Cream", "4.95", {{"Vanilla Ice Cream", "6"}}},
            {"Boston Cream Pie", "7.95"},
            {"Blueberry Pie", "7.95"},
            {"Tiramisu", "8.95"},
        }};
}

Screen dinnerSpecials()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod2", .kitchenRoute = "4"},
        {
            {"Prime Rib 12oz", "29.95", {{"Prime Rib", "12"}, {"Au Jus", "2"}}},
            {"Prime Rib 16oz", "34.95", {{"Prime Rib", "16"}, {"Au Jus", "2"}}},
            {"Stuffed Shrimp", "24.95"},
            {"Lobster Bisque", "9.95"},
            {"Surf and Turf", "39.95", {{"Beef Tenderloin", "6"}, {"Lobster Tail", "5"}}},
            // Entered before the site kept departments: Load List counts it as food.
            {.title = "Daily Feature", .price = "19.95", .department = QByteArray()},
            {"Fish of the Day", "24.95"},
            {"Pot Roast", "18.95"},
            {"Chicken Pot Pie", "17.95"},
            {"Veal Parmesan", "21.95"},
        }};
}

Screen softDrinks()
{
    return {{.department = "Beverage", .printer = Printer::None},
        {
            {"Coca-Cola", "2.95", {{"Cola Syrup", "1.5"}}},
            {"Diet Coke", "2.95", {{"Diet Cola Syrup", "1.5"}}},
            {"Sprite", "2.95", {{"Lemon-Lime Syrup", "1.5"}}},
            {"Ginger Ale", "2.95", {{"Ginger Ale Syrup", "1.5"}}},
            {"Lemonade", "3.25", {{"Lemonade", "14"}}},
            {"Iced Tea", "2.95", {{"Iced Tea", "14"}}},
            {"Hot Tea", "2.50"},
            {"Coffee", "2.50", {{"Coffee Beans", "0.5"}}},
            {"Decaf Coffee", "2.50", {{"Decaf Coffee Beans", "0.5"}}},
            {"Cappuccino", "4.25", {{"Espresso Beans", "0.6"}, {"Whole Milk", "6"}}},
            {"Caf\xE9 Latte", "4.25", {{"Espresso Beans", "0.6"}, {"Whole Milk", "8"}}},
            {"Espresso", "3.25", {{"Espresso Beans", "0.6"}}},
            {"Hot Chocolate", "2.95"},
            {"Milk", "2.50", {{"Whole Milk", "10"}}},
            {"Orange Juice", "3.25", {{"Orange Juice", "10"}}},
            {"Cranberry Juice", "3.25", {{"Cranberry Juice", "10"}}},
            {"Root Beer", "2.95"},
            {"Shirley Temple", "3.25"},
            {"Sparkling Water", "3.50"},
            {"Bottled Water", "2.50"},
        }};
}

QList<Screen> dinnerMenu()
{
    return {appetizers(), saladsAndSoups(), burgers(), sandwiches(), pasta(), pizzas(), steaksAndGrill(), seafood(), sides(), kidsMenu(),
        desserts(), dinnerSpecials(), softDrinks()};
}

// The brunch and lunch menu with the catering screens, set ini\1\.

Screen eggs()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod2", .kitchenRoute = "4"},
        {
            {"Two Egg Breakfast", "9.95", {{"Egg", "4"}, {"Home Fries", "4"}}},
            {"Eggs Benedict", "13.95", {{"Egg", "4"}, {"English Muffin", "2"}, {"Canadian Bacon", "2"}, {"Hollandaise", "2"}}},
            {"Crab Benedict", "17.95", {{"Egg", "4"}, {"English Muffin", "2"}, {"Crab Meat", "3"}, {"Hollandaise", "2"}}},
            {"Western Omelet", "12.95"},
            {"Veggie Omelet", "11.95"},
            {"Lobster Omelet", "19.95", {{"Egg", "6"}, {"Lobster Meat", "3"}}},
            {"Steak and Eggs", "18.95", {{"Sirloin", "8"}, {"Egg", "4"}}},
            {"Breakfast Burrito", "12.95"},
            {"Corned Beef Hash", "12.95", {{"Corned Beef", "5"}, {"Home Fries", "3"}, {"Egg", "4"}}},
            {"Huevos Rancheros", "12.95"},
            {"Quiche Lorraine", "11.95"},
        }};
}

Screen griddle()
{
    return {{.department = "Food", .category = "Main Course", .kitchenRoute = "4"},
        {
            {"Pancake Stack", "9.95", {{"Pancake Batter", "8"}, {"Maple Syrup", "2"}}},
            {"Blueberry Pancakes", "11.95", {{"Pancake Batter", "8"}, {"Blueberries", "2"}, {"Maple Syrup", "2"}}},
            {"French Toast", "10.95"},
            {"Belgian Waffle", "10.95"},
            {"Chicken and Waffle", "15.95"},
            {"Avocado Toast", "11.95", {{"Avocado", "4"}, {"Sourdough", "3"}}},
            {"Granola Parfait", "7.95"},
            {"Fruit Cup", "4.95"},
            {"Side of Bacon", "3.95", {{"Bacon", "2"}}},
            {"Side of Sausage", "3.95"},
            {"Home Fries", "3.95", {{"Home Fries", "6"}}},
            {"Toast", "2.50"},
        }};
}

Screen lunchSalads()
{
    return {{.department = "Food", .category = "Salad/Soup", .modifierList = "Mod1", .kitchenRoute = "6"},
        {
            // The dinner menu's name at the lunch menu's price.
            {"House Salad", "7.95", {{"Mixed Greens", "5"}, {"Tomato", "1"}, {"Cucumber", "1"}}},
            {"Chicken Caesar", "12.95", {{"Romaine", "5"}, {"Caesar Dressing", "2"}, {"Chicken Breast", "4"}}},
            {"Salmon Salad", "16.95"},
            {"Harvest Salad", "11.95"},
            {"Steak Salad", "16.95"},
            {"Asian Chx Salad", "12.95"},
            {"Quinoa Bowl", "12.95"},
            {"Poke Bowl", "16.95"},
            {"Soup and Salad", "10.95"},
            {"Chili Bowl", "7.95"},
        }};
}

Screen lunchSandwiches()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod2", .kitchenRoute = "4"},
        {
            {"Turkey Panini", "12.95", {{"Turkey Breast", "4"}, {"Ciabatta", "3"}}},
            {"Caprese Panini", "11.95"},
            {"Cuban Panini", "13.95"},
            {"Chicken Pesto Wrap", "12.95"},
            {"Turkey Club Wrap", "12.95"},
            {"Grilled Cheese", "9.95"},
            {"Lobster BLT", "21.95", {{"Lobster Meat", "4"}, {"Bacon", "1"}, {"Sourdough", "3"}}},
            {"Crab Cake Sandwich", "16.95"},
            {"Chicken Sandwich", "13.95"},
            {"Veggie Burger", "12.95"},
            {"Hot Dog", "7.95"},
        }};
}

Screen flatbreads()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod3", .kitchenRoute = "7"},
        {
            {"Marg Flatbread", "12.95", {{"Flatbread", "4"}, {"Mozzarella", "2"}, {"Tomato", "2"}}},
            {"BBQ Flatbread", "13.95"},
            {"Fig Flatbread", "13.95"},
            {"Buffalo Flatbread", "13.95"},
            {"Veggie Flatbread", "12.95"},
            {"Pesto Flatbread", "12.95"},
            {"Lunch Pizza Slice", "3.95"},
        }};
}

Screen lunchEntrees()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod2", .kitchenRoute = "0"},
        {
            {"Shrimp Tacos", "15.95"},
            {"Steak Tacos", "15.95"},
            {"Chicken Quesadilla", "12.95", {{"Flour Tortilla", "3"}, {"Chicken Breast", "4"}, {"Cheddar", "2"}}},
            {"Chicken Tenders", "13.95", {{"Chicken Tenders", "6"}, {"French Fries", "5"}}},
            {"Cottage Pie", "15.95"},
            {"Fish Cakes", "14.95"},
            {"Lunch Sirloin", "17.95", {{"Sirloin", "6"}}},
            {"Lunch Salmon", "17.95", {{"Salmon Fillet", "6"}}},
            {"Buffalo Mac", "14.95"},
            {"Chicken Stir Fry", "15.95"},
        }};
}

Screen cateringPlatters()
{
    return {{.department = "Catering", .category = "Other", .kitchenRoute = "8"},
        {
            {"Wing Platter 50", "64.95", {{"Chicken Wings", "100"}, {"Buffalo Sauce", "16"}}},
            {"Wing Platter 100", "119.95", {{"Chicken Wings", "200"}, {"Buffalo Sauce", "32"}}},
            {"Sandwich Tray", "79.95"},
            {"Wrap Platter", "74.95"},
            {"Veggie Tray", "44.95"},
            {"Fruit Platter", "49.95"},
            {"Shrimp Platter", "89.95", {{"Shrimp", "40"}, {"Cocktail Sauce", "8"}}},
            {"Cheese Board", "59.95"},
            {"Slider Platter", "69.95"},
            {"Salad Bowl Large", "39.95"},
            {"Cookie Platter", "29.95"},
            {"Chowder Gallon", "79.95", {{"Clam Chowder", "128"}}},
        }};
}

Screen cateringHot()
{
    return {{.department = "Catering", .category = "Other", .kitchenRoute = "8"},
        {
            {"Ziti Half Pan", "49.95"},
            {"Ziti Full Pan", "89.95"},
            {"Chicken Parm Pan", "99.95"},
            {"Meatball Half Pan", "54.95"},
            {"Mashed Half Pan", "34.95"},
            {"Veg Half Pan", "34.95"},
            {"Rice Half Pan", "29.95"},
            {"Clambake Per Guest", "39.95"},
            {"Carving Station", "14.95"},
            {"Coffee Service", "2.95"},
            {"Delivery Fee", "25.00"},
        }};
}

Screen lunchSides()
{
    return {{.department = "Food", .category = "Other", .kitchenRoute = "5"},
        {
            {"Cup of Chili", "4.95"},
            {"Cup of Soup", "4.50"},
            {"Side Caesar", "4.95"},
            {"Pasta Salad", "3.95"},
            {"Potato Salad", "3.95"},
            {"Kettle Chips", "2.95"},
            {"Tater Tots", "4.95"},
            {"Side Fruit", "3.95"},
            {"Pickle Spear", "0.95"},
            {"Cornbread", "3.50"},
        }};
}

Screen kidsBrunch()
{
    return {{.department = "Food", .category = "Main Course", .kitchenRoute = "4"},
        {
            {"Kids Pancakes", "6.95"},
            {"Kids French Toast", "6.95"},
            {"Kids Waffle", "6.95"},
            {"Kids Egg & Bacon", "6.95"},
            {"Kids Fruit Cup", "3.95"},
            {"Kids PB&J", "5.95"},
            {"Kids Quesadilla", "6.95"},
        }};
}

Screen bakery()
{
    return {{.department = "Food", .category = "Dessert", .kitchenRoute = "9"},
        {
            {"Blueberry Muffin", "3.50"},
            {"Cinnamon Roll", "4.25"},
            {"Croissant", "3.25"},
            {"Bagel Cream Cheese", "3.95"},
            {"Scone", "3.25"},
            {"Whoopie Pie", "4.50"},
            {"Cookie", "1.95"},
            {"Brownie", "3.50", {{"Brownie", "3"}}},
            {"Lemon Bar", "3.50"},
            {"Pie Slice", "5.95"},
        }};
}

Screen brunchSpecials()
{
    return {{.department = "Food", .category = "Main Course", .modifierList = "Mod2", .kitchenRoute = "4"},
        {
            {"Lobster Benedict", "23.95", {{"Egg", "4"}, {"English Muffin", "2"}, {"Lobster Meat", "3"}, {"Hollandaise", "2"}}},
            {"Prime Rib Hash", "16.95"},
            {"Shrimp and Grits", "17.95"},
            {"Chicken Biscuit", "12.95"},
            {"Brunch Burger", "15.95", {{"Ground Beef", "8"}, {"Burger Bun", "3"}, {"Egg", "2"}}},
            {"Lox Bagel", "13.95"},
            {"Available", "0.00"},
        }};
}

Screen brunchDrinks()
{
    return {{.department = "Beverage", .printer = Printer::None},
        {
            {"Fresh OJ", "4.50", {{"Orange Juice", "12"}}},
            {"Apple Juice", "3.25"},
            {"Grapefruit Juice", "3.25"},
            {"Chocolate Milk", "2.95"},
            {"Cold Brew", "4.50", {{"Cold Brew Base", "4"}}},
            {"Iced Latte", "4.75", {{"Espresso Beans", "0.6"}, {"Whole Milk", "8"}}},
            {"Chai Latte", "4.50"},
            {"Mocha", "4.50"},
            {"Smoothie", "6.95"},
            {"Arnold Palmer", "3.25", {{"Iced Tea", "7"}, {"Lemonade", "7"}}},
            {"Kombucha", "5.50"},
        }};
}

QList<Screen> brunchMenu()
{
    return {eggs(), griddle(), lunchSalads(), lunchSandwiches(), flatbreads(), lunchEntrees(), cateringPlatters(), cateringHot(),
        lunchSides(), kidsBrunch(), bakery(), brunchSpecials(), brunchDrinks()};
}

QList<Screen> demoMenuSet(int set)
{
    return set == 0 ? dinnerMenu() : brunchMenu();
}

// The drink files, in the order of LiquorFiles().

Section drinkSection(const char *department, double happyHourDiscount)
{
    return {.department = department, .printer = Printer::Bar, .happyHourDiscount = happyHourDiscount};
}

QList<Slot> draftBeers()
{
    return slotsOf(drinkSection("Beer", 1),
        {
            {"Bud Light Draft", "5.50", {{"Bud Light Keg", "16"}}},
            {"Sam Adams Lager", "6.50", {{"Sam Adams Keg", "16"}}},
            {"Sam Seasonal", "6.50", {{"Sam Seasonal Keg", "16"}}},
            {"Guinness", "7.50", {{"Guinness Keg", "16"}}},
            {"Harpoon IPA", "7.00", {{"Harpoon IPA Keg", "16"}}},
            {"Allagash White", "7.50", {{"Allagash White Keg", "16"}}},
            {"Smuttynose IPA", "7.00"},
            {"Blue Moon", "6.50"},
            {"Stella Artois", "7.00"},
            {"Downeast Cider", "7.00"},
            // A spacer between the pints and the pitchers: free for the drink rebuild.
            {"-", "0.00"},
            {"Bud Light Pitcher", "16.00", {{"Bud Light Keg", "60"}}},
            {"Sam Adams Pitcher", "19.00", {{"Sam Adams Keg", "60"}}},
        });
}

QList<Slot> bottledBeers()
{
    return slotsOf(drinkSection("Beer", 0),
        {
            {"Budweiser", "4.75", {{"Budweiser Bottle", "12"}}},
            {"Bud Light", "4.75", {{"Bud Light Bottle", "12"}}},
            {"Coors Light", "4.75", {{"Coors Light Bottle", "12"}}},
            {"Miller Lite", "4.75", {{"Miller Lite Bottle", "12"}}},
            {"Michelob Ultra", "5.00"},
            {"Corona", "5.75", {{"Corona Bottle", "12"}}},
            {"Heineken", "5.75", {{"Heineken Bottle", "12"}}},
            {"Amstel Light", "5.75"},
            {"Sierra Nevada", "6.00"},
            {"Dogfish 60 Minute", "6.50"},
            {"White Claw", "6.00"},
            {"Truly Lime", "6.00"},
            {"Heineken 0.0", "5.50"},
            {"Twisted Tea", "6.00"},
            {"PBR Tallboy", "4.00", {{"PBR Can", "16"}}},
            {"Narragansett", "4.50", {{"Narragansett Can", "16"}}},
        });
}

QList<Slot> winesByTheGlass()
{
    return slotsOf(drinkSection("Wine", 2),
        {
            {"House Chardonnay", "8.00", {{"House Chardonnay", "6"}}},
            {"House Cabernet", "8.00", {{"House Cabernet", "6"}}},
            {"House Pinot Grigio", "8.00", {{"House Pinot Grigio", "6"}}},
            {"House Merlot", "8.00", {{"House Merlot", "6"}}},
            {"KJ Chardonnay", "11.00", {{"KJ Chardonnay", "6"}}},
            {"Sonoma Cutrer", "13.00", {{"Sonoma Cutrer", "6"}}},
            {"Kim Crawford SB", "12.00", {{"Kim Crawford SB", "6"}}},
            {"Santa Margherita", "14.00", {{"Santa Margherita", "6"}}},
            {"Meiomi Pinot Noir", "12.00", {{"Meiomi Pinot Noir", "6"}}},
            {"Josh Cabernet", "11.00", {{"Josh Cabernet", "6"}}},
            {"Ruffino Chianti", "10.00"},
            {"Whispering Angel", "13.00", {{"Whispering Angel", "6"}}},
            {"La Marca Prosecco", "10.00", {{"La Marca Prosecco", "6"}}},
            {"Riesling", "9.00"},
        });
}

QList<Slot> winesByTheBottle()
{
    return slotsOf(drinkSection("Wine", 0),
        {
            {"House Chard Btl", "30.00", {{"House Chardonnay", "25.4"}}},
            {"House Cab Btl", "30.00", {{"House Cabernet", "25.4"}}},
            {"KJ Chard Btl", "40.00", {{"KJ Chardonnay", "25.4"}}},
            {"Sonoma Cutrer Btl", "48.00", {{"Sonoma Cutrer", "25.4"}}},
            {"Kim Crawford Btl", "44.00", {{"Kim Crawford SB", "25.4"}}},
            {"Santa Marg Btl", "52.00", {{"Santa Margherita", "25.4"}}},
            {"Meiomi Btl", "44.00", {{"Meiomi Pinot Noir", "25.4"}}},
            {"Josh Cab Btl", "40.00", {{"Josh Cabernet", "25.4"}}},
            {"Caymus Cabernet", "120.00"},
            {"Silver Oak Cab", "150.00"},
            {"Veuve Clicquot", "95.00"},
            {"Whispering Btl", "48.00", {{"Whispering Angel", "25.4"}}},
            {"La Marca Btl", "36.00", {{"La Marca Prosecco", "25.4"}}},
            freeSlot(),
        });
}

QList<Slot> cocktails()
{
    return slotsOf(drinkSection("Liquor", 2),
        {
            {"Margarita", "10.00", {{"Tequila Well", "1.5"}, {"Triple Sec", "0.75"}, {"Lime Juice", "1"}}},
            {"Cadillac Margarita", "13.00", {{"Patron Silver", "1.5"}, {"Grand Marnier", "0.75"}, {"Lime Juice", "1"}}},
            {"Mojito", "11.00", {{"Rum Well", "2"}, {"Lime Juice", "1"}, {"Simple Syrup", "0.75"}, {"Club Soda", "2"}}},
            {"Moscow Mule", "11.00", {{"Tito's Vodka", "2"}, {"Ginger Beer", "4"}, {"Lime Juice", "0.5"}}},
            {"Old Fashioned", "12.00", {{"Maker's Mark", "2"}, {"Simple Syrup", "0.25"}, {"Bitters", "0.1"}}},
            {"Manhattan", "12.00", {{"Bourbon Well", "2"}, {"Sweet Vermouth", "1"}, {"Bitters", "0.1"}}},
            {"Martini", "12.00", {{"Tanqueray", "2.5"}, {"Dry Vermouth", "0.5"}}},
            {"Cosmopolitan", "11.00", {{"Vodka Well", "1.5"}, {"Triple Sec", "0.5"}, {"Cranberry Juice", "1"}, {"Lime Juice", "0.5"}}},
            {"Espresso Martini", "13.00", {{"Vodka Well", "2"}, {"Coffee Liqueur", "1"}}},
            {"Negroni", "12.00", {{"Tanqueray", "1"}, {"Campari", "1"}, {"Sweet Vermouth", "1"}}},
            {"Bloody Mary", "10.00", {{"Vodka Well", "1.5"}, {"Bloody Mary Mix", "5"}}},
            {"Mai Tai", "11.00"},
            {"Pi\xF1"
             "a Colada",
                "11.00"},
            {"Long Island Tea", "12.00", {{"Vodka Well", "0.5"}, {"Gin Well", "0.5"}, {"Rum Well", "0.5"}, {"Tequila Well", "0.5"}}},
            {"Whiskey Sour", "10.00", {{"Bourbon Well", "2"}, {"Sour Mix", "3"}}},
            {"Aperol Spritz", "11.00"},
            {"Dark and Stormy", "11.00", {{"Goslings Rum", "2"}, {"Ginger Beer", "4"}}},
            {"Sea Breeze", "10.00"},
            {"Mudslide", "11.00", {{"Vodka Well", "1"}, {"Coffee Liqueur", "1"}, {"Irish Cream", "1"}}},
            {"Painkiller", "11.00"},
            {"Lemon Drop", "11.00"},
        });
}

QList<Slot> liquorModifiers()
{
    return slotsOf(drinkSection("Liquor", 0),
        {
            {"Make it a Double", "4.00"},
            {"Rocks", "0.00"},
            {"Up", "0.00"},
            {"Neat", "0.00"},
            {"Dirty", "0.50", {{"Olive Brine", "0.5"}}},
            {"Salt Rim", "0.00"},
            {"Sugar Rim", "0.00"},
            {"Top Shelf Upgrade", "3.00"},
            {"Call Upgrade", "2.00"},
            {"Splash Cranberry", "0.50", {{"Cranberry Juice", "1"}}},
            {"Extra Lime", "0.00"},
            {"Sub Tito's", "2.00"},
        });
}

QList<Slot> expressBar()
{
    return slotsOf(drinkSection("Liquor", 1),
        {
            {"Rail Vodka", "7.00", {{"Vodka Well", "1.5"}}},
            {"Rail Gin", "7.00", {{"Gin Well", "1.5"}}},
            {"Rail Rum", "7.00", {{"Rum Well", "1.5"}}},
            {"Rail Tequila", "7.00", {{"Tequila Well", "1.5"}}},
            {"Rail Whiskey", "7.00", {{"Bourbon Well", "1.5"}}},
            {"Jameson Shot", "8.00", {{"Jameson", "1.5"}}},
            {"Fireball Shot", "6.00", {{"Fireball", "1.5"}}},
            {"Patron Shot", "11.00", {{"Patron Silver", "1.5"}}},
            {"J\xE4germeister Shot", "7.00"},
            {"Beer and a Shot", "9.00", {{"Narragansett Can", "16"}, {"Bourbon Well", "1.5"}}},
            {"Mimosa", "8.00", {{"La Marca Prosecco", "4"}, {"Orange Juice", "2"}}},
            freeSlot(),
        });
}

std::array<QList<Slot>, 7> drinkFiles()
{
    return {draftBeers(), bottledBeers(), winesByTheGlass(), winesByTheBottle(), cocktails(), liquorModifiers(), expressBar()};
}

// The retail articles: the kitchen text is their name in the list.

QList<Slot> retailArticles()
{
    const Section retail{.department = "Retail", .printer = Printer::None};
    const Section giftCards{.department = "Gift Card", .printer = Printer::None, .taxable = false};
    return slotsOf(retail,
               {
                   {.title = "Tee Navy S", .price = "19.95", .kitchenText = "Logo T-Shirt S"},
                   {.title = "Tee Navy M", .price = "19.95", .kitchenText = "Logo T-Shirt M"},
                   {.title = "Tee Navy L", .price = "19.95", .kitchenText = "Logo T-Shirt L"},
                   {.title = "Tee Navy XL", .price = "21.95", .kitchenText = "Logo T-Shirt XL"},
                   {.title = "Hoodie L", .price = "44.95", .kitchenText = "Logo Hoodie L"},
                   {.title = "Hoodie XL", .price = "44.95", .kitchenText = "Logo Hoodie XL"},
                   {.title = "Cap Navy", .price = "22.95", .kitchenText = "Logo Cap Navy"},
                   {.title = "Cap Khaki", .price = "22.95", .kitchenText = "Logo Cap Khaki"},
                   {.title = "Beanie", .price = "18.95", .kitchenText = "Knit Beanie"},
                   freeSlot(),
                   {.title = "Pint Glass", .price = "9.95", .kitchenText = "Logo Pint Glass"},
                   {.title = "Mug", .price = "12.95", .kitchenText = "Logo Coffee Mug"},
                   {.title = "Hot Sauce", .price = "8.95", .kitchenText = "House Hot Sauce"},
                   {.title = "BBQ Sauce", .price = "8.95", .kitchenText = "House BBQ Sauce"},
                   {.title = "Chowder Qt", .price = "14.95", .recipe = {{"Clam Chowder", "32"}}, .kitchenText = "Chowder To Go Qt"},
                   // The title typed over an old article, which the retail rebuild still lists.
                   {.title = "Available", .price = "3.95", .kitchenText = "Logo Koozie"},
                   {.title = "Sticker", .price = "2.00", .kitchenText = QByteArray()},
                   {.title = "Cookbook", .price = "29.95", .kitchenText = "Harbour Cookbook"},
               }) +
        slotsOf(giftCards,
            {
                {.title = "Gift Card 25", .price = "25.00", .kitchenText = "Gift Card $25"},
                {.title = "Gift Card 50", .price = "50.00", .kitchenText = "Gift Card $50"},
                {.title = "Gift Card 100", .price = "100.00", .kitchenText = "Gift Card $100"},
            });
}

// The modifier lists ini\Mod0.dat to ini\Mod3.dat; a modifier's price is its charge.

Section modifierSection()
{
    return {.department = "Food"};
}

QList<Entry> burgerModifiers()
{
    return {
        {"ADD Cheese", "1.00", {{"Cheddar", "1"}}},
        {"ADD Bacon", "2.00", {{"Bacon", "1"}}},
        {"ADD Avocado", "2.00", {{"Avocado", "2"}}},
        {"ADD Mushrooms", "1.00", {{"Mushrooms", "1"}}},
        {"ADD Fried Egg", "1.50", {{"Egg", "2"}}},
        {"NO Onion", "0.00"},
        {"NO Tomato", "0.00"},
        {"NO Pickle", "0.00"},
        {"Rare", "0.00"},
        {"Med Rare", "0.00"},
        {"Medium", "0.00"},
        {"Med Well", "0.00"},
        {"Well Done", "0.00"},
        {"Gluten Free Bun", "2.00"},
    };
}

QList<Entry> dressingModifiers()
{
    return {
        {"Ranch", "0.00"},
        {"Blue Cheese", "0.00", {{"Blue Cheese Dressing", "2"}}},
        {"Italian", "0.00"},
        {"Balsamic", "0.00"},
        {"Caesar Dressing", "0.00", {{"Caesar Dressing", "2"}}},
        {"Honey Mustard", "0.00"},
        {"Oil and Vinegar", "0.00"},
        {"Dressing on Side", "0.00"},
        {"ADD Chicken", "5.00", {{"Chicken Breast", "4"}}},
        {"ADD Shrimp", "7.00", {{"Shrimp", "4"}}},
        {"ADD Salmon", "9.00", {{"Salmon Fillet", "5"}}},
        {"ADD Steak Tips", "9.00", {{"Sirloin", "5"}}},
    };
}

QList<Entry> sideModifiers()
{
    return {
        {"w/ Fries", "0.00", {{"French Fries", "5"}}},
        {"w/ Baked Potato", "0.00"},
        {"w/ Mashed", "0.00"},
        {"w/ Rice Pilaf", "0.00"},
        {"w/ Vegetable", "0.00"},
        {"w/ Side Salad", "0.00", {{"Mixed Greens", "3"}}},
        {"w/ Onion Rings", "1.50", {{"Onion Rings", "5"}}},
        {"w/ Sweet Fries", "1.50", {{"Sweet Potato Fries", "5"}}},
        {"No Side", "0.00"},
        freeSlot(),
    };
}

QList<Entry> pizzaModifiers()
{
    return {
        {"ADD Pepperoni", "1.50", {{"Pepperoni", "1"}}},
        {"ADD Sausage", "1.50", {{"Italian Sausage", "1"}}},
        {"ADD Mushroom", "1.25", {{"Mushrooms", "1"}}},
        {"ADD Peppers", "1.25", {{"Green Peppers", "1"}}},
        {"ADD Onion", "1.00", {{"Onion", "1"}}},
        {"ADD Olives", "1.25", {{"Kalamata Olives", "1"}}},
        {"ADD Ham", "1.50"},
        {"ADD Pineapple", "1.25"},
        {"Extra Cheese", "1.50", {{"Mozzarella", "2"}}},
        {"Light Sauce", "0.00"},
        {"Half and Half", "0.00"},
    };
}

QList<QList<Entry>> modifierLists()
{
    return {burgerModifiers(), dressingModifiers(), sideModifiers(), pizzaModifiers()};
}

// The stock articles that the recipes name, at their cost of one ounce.

struct StockArticle
{
    QByteArray name;
    QByteArray costPerOunce;
};

QList<StockArticle> foodStock()
{
    return {
        {"Alfredo Sauce", "0.2200"},
        {"Au Jus", "0.0600"},
        {"Avocado", "0.3100"},
        {"Baby Back Ribs", "0.3400"},
        {"Bacon", "0.4500"},
        {"Basil", "1.2000"},
        {"BBQ Chicken Topping", "0.2900"},
        {"BBQ Sauce", "0.0900"},
        {"Beef Tenderloin", "1.1500"},
        {"Black Bean Patty", "0.2600"},
        {"Blue Cheese Dressing", "0.1800"},
        {"Blueberries", "0.3500"},
        {"Brownie", "0.2800"},
        {"Buffalo Sauce", "0.1200"},
        {"Burger Bun", "0.1300"},
        {"Caesar Dressing", "0.1800"},
        {"Calamari", "0.4200"},
        {"Canadian Bacon", "0.4000"},
        {"Cheddar", "0.3000"},
        {"Cheesecake Slice", "0.4500"},
        {"Chicken Breast", "0.2500"},
        {"Chicken Tenders", "0.2900"},
        {"Chicken Wings", "0.2200"},
        {"Ciabatta", "0.1600"},
        {"Clam Chowder", "0.2500"},
        {"Cocktail Sauce", "0.1100"},
        {"Corned Beef", "0.4100"},
        {"Crab Meat", "1.6000"},
        {"Cracker Crumbs", "0.1500"},
        {"Croutons", "0.1500"},
        {"Cucumber", "0.0500"},
        {"Custard Base", "0.2400"},
        {"Drawn Butter", "0.2000"},
        {"Egg", "0.0900"},
        {"English Muffin", "0.1400"},
        {"Feta", "0.4000"},
        {"Fettuccine", "0.0600"},
        {"Flatbread", "0.1700"},
        {"Flour Tortilla", "0.0900"},
        {"French Fries", "0.0500"},
        {"Fudge Sauce", "0.2000"},
        {"Garlic Butter", "0.2100"},
        {"Green Peppers", "0.0800"},
        {"Ground Beef", "0.2800"},
        {"Haddock", "0.5500"},
        {"Hollandaise", "0.2200"},
        {"Home Fries", "0.0600"},
        {"Iceberg", "0.0600"},
        {"Italian Sausage", "0.3000"},
        {"Jalapeno Poppers", "0.2700"},
        {"Kalamata Olives", "0.3800"},
        {"Lettuce", "0.0800"},
        {"Linguine", "0.0600"},
        {"Live Lobster", "0.6500"},
        {"Lobster Meat", "2.1000"},
        {"Lobster Tail", "1.9000"},
        {"Maple Syrup", "0.4500"},
        {"Marinara", "0.0900"},
        {"Mayonnaise", "0.0700"},
        {"Mixed Greens", "0.2000"},
        {"Mozzarella", "0.2500"},
        {"Mozzarella Sticks", "0.2300"},
        {"Mushrooms", "0.1800"},
        {"Mussels", "0.2100"},
        {"Onion", "0.0500"},
        {"Onion Rings", "0.1100"},
        {"Pancake Batter", "0.0500"},
        {"Parmesan", "0.5500"},
        {"Penne", "0.0600"},
        {"Pepperoni", "0.3500"},
        {"Pizza Dough", "0.0500"},
        {"Pizza Meat Mix", "0.3300"},
        {"Pizza Sauce", "0.0800"},
        {"Pizza Veggie Mix", "0.1200"},
        {"Prime Rib", "0.9500"},
        {"Remoulade", "0.1600"},
        {"Ribeye", "0.8500"},
        {"Romaine", "0.1000"},
        {"Rye Bread", "0.1200"},
        {"Salmon Fillet", "0.7500"},
        {"Salsa", "0.0900"},
        {"Sea Scallops", "1.3500"},
        {"Shrimp", "0.7000"},
        {"Sirloin", "0.6000"},
        {"Slider Roll", "0.1200"},
        {"Sour Cream", "0.1000"},
        {"Sourdough", "0.1200"},
        {"Spaghetti", "0.0600"},
        {"Split Top Roll", "0.1800"},
        {"Steak Marinade", "0.1000"},
        {"Sweet Potato Fries", "0.0900"},
        {"Swiss", "0.3200"},
        {"Tartar Sauce", "0.0800"},
        {"Tomato", "0.1000"},
        {"Tortilla Chips", "0.0700"},
        {"Turkey Breast", "0.3600"},
        {"Vanilla Ice Cream", "0.1400"},
        {"Vodka Sauce", "0.1300"},
        {"Whole Belly Clams", "0.9000"},
    };
}

QList<StockArticle> beverageStock()
{
    return {
        {"Coffee Beans", "0.4500"},
        {"Cola Syrup", "0.0400"},
        {"Cold Brew Base", "0.2500"},
        {"Cranberry Juice", "0.0400"},
        {"Decaf Coffee Beans", "0.5000"},
        {"Diet Cola Syrup", "0.0400"},
        {"Espresso Beans", "0.6000"},
        {"Ginger Ale Syrup", "0.0400"},
        {"Iced Tea", "0.0100"},
        {"Lemon-Lime Syrup", "0.0400"},
        {"Lemonade", "0.0300"},
        {"Orange Juice", "0.0600"},
        {"Whole Milk", "0.0300"},
    };
}

QList<StockArticle> barStock()
{
    return {
        {"Allagash White Keg", "0.1300"},
        {"Bitters", "0.9000"},
        {"Bloody Mary Mix", "0.0600"},
        {"Bourbon Well", "0.5000"},
        {"Bud Light Bottle", "0.0900"},
        {"Bud Light Keg", "0.0700"},
        {"Budweiser Bottle", "0.0900"},
        {"Campari", "0.9000"},
        {"Club Soda", "0.0100"},
        {"Coffee Liqueur", "0.6000"},
        {"Coors Light Bottle", "0.0900"},
        {"Corona Bottle", "0.1100"},
        {"Dry Vermouth", "0.3000"},
        {"Fireball", "0.5500"},
        {"Gin Well", "0.4500"},
        {"Ginger Beer", "0.1200"},
        {"Goslings Rum", "0.8000"},
        {"Grand Marnier", "1.3000"},
        {"Guinness Keg", "0.1400"},
        {"Harpoon IPA Keg", "0.1200"},
        {"Heineken Bottle", "0.1100"},
        {"House Cabernet", "0.2000"},
        {"House Chardonnay", "0.2000"},
        {"House Merlot", "0.2000"},
        {"House Pinot Grigio", "0.2000"},
        {"Irish Cream", "0.6500"},
        {"Jameson", "1.0000"},
        {"Josh Cabernet", "0.5500"},
        {"Kim Crawford SB", "0.6000"},
        {"KJ Chardonnay", "0.5500"},
        {"La Marca Prosecco", "0.5000"},
        {"Lime Juice", "0.1000"},
        {"Maker's Mark", "1.0500"},
        {"Meiomi Pinot Noir", "0.6000"},
        {"Miller Lite Bottle", "0.0900"},
        {"Narragansett Can", "0.0700"},
        {"Olive Brine", "0.0500"},
        {"Patron Silver", "1.6000"},
        {"PBR Can", "0.0600"},
        {"Rum Well", "0.4000"},
        {"Sam Adams Keg", "0.1000"},
        {"Sam Seasonal Keg", "0.1100"},
        {"Santa Margherita", "0.8500"},
        {"Simple Syrup", "0.0300"},
        {"Sonoma Cutrer", "0.7500"},
        {"Sour Mix", "0.0500"},
        {"Sweet Vermouth", "0.3000"},
        {"Tanqueray", "0.9500"},
        {"Tequila Well", "0.5000"},
        {"Tito's Vodka", "0.9000"},
        {"Triple Sec", "0.2500"},
        {"Vodka Well", "0.4500"},
        {"Whispering Angel", "0.7000"},
    };
}

QList<StockArticle> stockArticles()
{
    return foodStock() + beverageStock() + barStock();
}

StockRec1000 stockRecord(const StockArticle &article)
{
    StockRec1000 record;
    record.setField(StockRec1000::UnitCost, article.costPerOunce);
    record.setField(StockRec1000::StockName, article.name);
    record.setField(StockRec1000::CostUnit, "Ounce");
    return record;
}

// Writing the files.

QString hostPathOf(const QString &siteFolder, const QByteArray &sitePath)
{
    return QDir(siteFolder).filePath(QString::fromLatin1(sitePath).replace(u'\\', u'/'));
}

// The record file at the site path, emptied, its folder made on the way.
RecordFile emptiedRecordFile(const QString &siteFolder, const QByteArray &sitePath, int recordSize)
{
    const QString path = hostPathOf(siteFolder, sitePath);
    QDir().mkpath(QFileInfo(path).path());
    QFile::remove(path);
    return RecordFile(path, recordSize);
}

void writeCatalogueFile(const QString &siteFolder, const CatalogueFile &file, const QList<Slot> &records)
{
    RecordFile items = emptiedRecordFile(siteFolder, file.items, ItemRec500::size);
    RecordFile recipes = emptiedRecordFile(siteFolder, file.recipes, IvmRec1000::size);
    for (qsizetype index = 0; index < records.size(); ++index) {
        items.PutRecord(index + 1, records[index].item.bytes());
        recipes.PutRecord(index + 1, records[index].recipe.bytes());
    }
}

void writeMenuSet(const QString &siteFolder, int set, const QList<Screen> &screens)
{
    for (int place = 0; place < FilesPerMenuSet; ++place) {
        const Screen &screen = screens.at(place);
        const bool buttonScreen = place < FilesPerMenuSet - 1;
        const QList<Entry> entries = buttonScreen ? filledScreen(screen.entries) : screen.entries;
        writeCatalogueFile(siteFolder, ButtonFile(set * FilesPerMenuSet + place), slotsOf(screen.section, entries));
    }
}

void writeStockFile(const QString &siteFolder)
{
    RecordFile stock = emptiedRecordFile(siteFolder, StockFile, StockRec1000::size);
    const QList<StockArticle> articles = stockArticles();
    for (qsizetype index = 0; index < articles.size(); ++index)
        stock.PutRecord(index + 1, stockRecord(articles[index]).bytes());
}

// The generated catalogue.

Section generatedSection(int fileIndex)
{
    if (fileIndex < ButtonFileCount)
        return {.department = "Food", .category = "Main Course", .modifierList = "Mod1"};
    if (fileIndex < ButtonFileCount + int(LiquorFiles().size()))
        return drinkSection("Liquor", 1);
    return {.department = "Retail", .printer = Printer::None};
}

QByteArray fourDigits(int number)
{
    return QByteArray::number(number).rightJustified(4, '0');
}

QList<Portion> generatedRecipe(int fileIndex, int record)
{
    static const QList<StockArticle> stock = stockArticles();
    QList<Portion> recipe;
    for (int row = 0; row < record % 5; ++row)
        recipe.append({stock.at((fileIndex * 31 + record * 7 + row) % stock.size()).name, QByteArray::number(1 + row)});
    return recipe;
}

Entry generatedEntry(int fileIndex, int record)
{
    if (record % 10 == 0)
        return freeSlot();
    const int cents = 195 + (fileIndex * 37 + record * 53) % 2800;
    return {"Item " + fourDigits(fileIndex + 1) + '-' + fourDigits(record), money(cents / 100.0), generatedRecipe(fileIndex, record)};
}

QList<Slot> generatedSlots(int fileIndex, int recordCount)
{
    QList<Entry> entries;
    for (int record = 1; record <= recordCount; ++record)
        entries.append(generatedEntry(fileIndex, record));
    return slotsOf(generatedSection(fileIndex), entries);
}

} // namespace

void WriteDemoCatalogue(const QString &siteFolder)
{
    for (int set = 0; set < DemoMenuSets; ++set)
        writeMenuSet(siteFolder, set, demoMenuSet(set));
    const auto drinks = drinkFiles();
    const auto liquorFiles = LiquorFiles();
    for (std::size_t index = 0; index < drinks.size(); ++index)
        writeCatalogueFile(siteFolder, liquorFiles.at(index), drinks.at(index));
    writeCatalogueFile(siteFolder, RetailFile(), retailArticles());
    const QList<QList<Entry>> modifiers = modifierLists();
    for (int index = 0; index < modifiers.size(); ++index)
        writeCatalogueFile(siteFolder, ModifierFile(index), slotsOf(modifierSection(), modifiers.at(index)));
    writeStockFile(siteFolder);
}

void WriteGeneratedCatalogue(const QString &siteFolder, int fileCount, int recordsPerFile)
{
    const QList<CatalogueFile> files = GatheredCatalogueFiles();
    for (int index = 0; index < qMin(fileCount, int(files.size())); ++index)
        writeCatalogueFile(siteFolder, files.at(index), generatedSlots(index, recordsPerFile));
}

} // namespace qlon
