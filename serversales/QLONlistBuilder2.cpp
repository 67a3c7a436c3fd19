#include "serversales/QLONlistBuilder2.h"

#include "core/Ansi.h"
#include "core/CarriedFields.h"
#include "core/Clock.h"
#include "core/Conversions.h"
#include "core/ErrorIgnoring.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/HostPath.h"
#include "core/Yield.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "listbuilder/logic/ItemsSoldReport.h"
#include "serversales/DataControl.h"
#include "serversales/logic/CalculatedItem.h"
#include "store/ProgramGlobals.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/Dialogs.h"
#include "ui/MList.h"
#include "ui/Program.h"
#include "ui/VbComboBox.h"

#include <QCalendarWidget>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace qlon {

namespace {

std::unique_ptr<SalesStore> openSalesDatabase()
{
    return OpenSiteSalesStore(DataPath(SalesDatabaseFile));
}

} // namespace

QLONlistBuilder2::QLONlistBuilder2(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Servers Individual Sales"));
    Text1 = MakeTextBox(this, QStringLiteral("Text1"), QStringLiteral("1000"));
    Text2 = MakeTextBox(this, QStringLiteral("Text2"), QStringLiteral("01/22/2005"));
    Text3 = MakeTextBox(this, QStringLiteral("Text3"));
    Text4 = MakeTextBox(this, QStringLiteral("Text4"));
    Text5 = MakeTextBox(this, QStringLiteral("Text5"));
    Label1 = MakeLabel(this, QStringLiteral("Label1"), QStringLiteral("1000"));
    Label2 = MakeLabel(this, QStringLiteral("Label2"), QStringLiteral("Loading"));
    const QString captions[] = {QStringLiteral("Server"), QStringLiteral("Date"), QStringLiteral("Total Liquor Sales"),
        QStringLiteral("Total Sales"), QStringLiteral("Total Food Sales")};
    for (int index = 0; index < int(Label3.size()); ++index)
        Label3[index] = MakeLabel(this, ArrayName("Label3", index), captions[index]);
    Label4 = MakeLabel(this, QStringLiteral("Label4"));
    Label5 = MakeLabel(this, QStringLiteral("Label5"));
    MList1 = Named(new MList(this), QStringLiteral("MList1"));
    MList1->setSeparator(',');
    MonthView1 = Named(new QCalendarWidget(this), QStringLiteral("MonthView1"));
    MonthView1->hide();
    Command1 = MakeButton(this, QStringLiteral("Command1"), QStringLiteral("Update"));
    Command2 = MakeButton(this, QStringLiteral("Command2"), QStringLiteral("Command2"));
    SSCommand1 = MakeButton(this, QStringLiteral("SSCommand1"), QStringLiteral("Done"));
    SSCommand2 = MakeButton(this, QStringLiteral("SSCommand2"), QStringLiteral("Print"));
    SSCommand3 = MakeButton(this, QStringLiteral("SSCommand3"), QStringLiteral("Print List"));

    auto *layout = new QGridLayout(this);
    const QList<QWidget *> fields = {Label3[0], Text1, Label3[1], Text2, Label3[3], Text3, Label3[2], Text4, Label3[4], Text5};
    for (int index = 0; index < fields.size(); ++index)
        layout->addWidget(fields[index], index / 2, index % 2);
    layout->addWidget(MList1, 0, 2, 6, 1);
    layout->addWidget(Label1, 5, 0);
    layout->addWidget(Label2, 5, 1);
    layout->addWidget(Label4, 6, 0);
    layout->addWidget(Label5, 6, 1);
    for (QPushButton *command : {Command1, Command2, SSCommand2, SSCommand3, SSCommand1})
        layout->addWidget(command);
    OnEvent(Command2, &QPushButton::clicked, this, [this] { BLD_DATA3(); });
}

void QLONlistBuilder2::Form_Load()
{
    EnsureDataRoot();
    // The data control opens at start, though no path of this screen reads its rows.
    OpenDataControl(this);
    MonthView1->setSelectedDate(Today());
}

void QLONlistBuilder2::BeginRun()
{
    m_spanSales.reset();
}

void QLONlistBuilder2::WriteLabels(const QString &item, const QString &status)
{
    Label2->setText(status);
    Label1->setText(item);
}

const ItemSales &QLONlistBuilder2::salesOf(const QByteArray &name, const SalesSpan &span)
{
    if (!m_spanSales || !(m_readSpan == span)) {
        const std::unique_ptr<SalesStore> store = openSalesDatabase();
        m_spanSales = std::make_unique<SpanSales>(*store, span);
        m_readSpan = span;
    }
    return m_spanSales->of(name);
}

void QLONlistBuilder2::Parse_ListRow()
{
    const QByteArray row = MainScreen()->MList1->rowText(Shared().CurrentRow);
    // A field counts where a separator closes it; a row short of fields leaves the labels with
    // what the row before left there.
    CarriedFields fields(3, CarriedFields::LastField::NeedsSeparator);
    fields.read(row);
    if (fields.fieldsRead() > 1)
        Label4->setText(FromAnsi(fields[1]));
    if (fields.fieldsRead() > 2)
        Label5->setText(FromAnsi(fields[2]));
}

void QLONlistBuilder2::Get_Sales()
{
    QLONlistBuilder1 *main = MainScreen();
    ProgramGlobals &shared = Shared();
    const QString tracePath = HostPath(DataPath("TempItemsRec.dat"));
    const QByteArray name = TrimBlanks(ToAnsi(Label1->text()));
    Label2->setText(QStringLiteral("Searching"));
    const SalesSpan span{ToAnsi(main->Label2->text()), ToAnsi(main->Label3->text()), main->Combo2->text(), main->Combo3->text()};
    Parse_ListRow();
    Yield();
    // A row without a tag looks for a name that no item has.
    const QByteArray searched = name.isEmpty() ? QByteArrayLiteral("1000") : name;
    const QByteArray type = ToAnsi(Label4->text());
    const QByteArray price = ToAnsi(Label5->text());
    Label2->setText(QStringLiteral("Searching - Just A Moment"));
    Yield();

    const ItemSales &sales = salesOf(searched, span);
    TextFile(tracePath, TextFile::Mode::Append).WriteLines(sales.trace);

    const CalculatedItem item = CalculateItem(sales, name, main->MList1->rowTag(shared.CurrentRow), type, price);
    shared.LastItemSales = item.sales;
    shared.LastItemType = type;
    TextFile(HostPath(shared.TempItemsPath), TextFile::Mode::Append).WriteFields(item.tempItemsLine);
    CloseAll();

    countInCategory(type, item.sales, item.units);

    main->MList1->setRowText(shared.CurrentRow, item.rowText);
    main->MList1->setRowTag(shared.CurrentRow, name);
    if (item.units != 0)
        main->MList4.addRow(item.rowText);
    Label2->setText(QStringLiteral("Search Completed"));
}

void QLONlistBuilder2::countInCategory(const QByteArray &type, double sales, double units)
{
    QLONlistBuilder1 *main = MainScreen();
    VbComboBox *categories = main->Combo1;
    // An item of a type that no entry bears is counted in the first category, with the running
    // number of the last entry and nothing added: deliberately as the old program did.
    int position = 0;
    double number = 0;
    for (int entry = 0; entry < categories->entryCount(); ++entry) {
        number = categories->entryNumber(entry);
        if (TrimBlanks(categories->entryText(entry)) == type) {
            number += sales;
            position = entry;
            break;
        }
    }
    const QByteArray formatted = Format(number, "########.##");
    SkipOnFailure([&] {
        if (const std::optional<qint32> whole = ToInteger(QByteArrayView(formatted)))
            categories->setEntryNumber(position, *whole);
    });
    SkipOnFailure([&] {
        CategoryValues &table = Shared().CategoryTable;
        table.at(position, 1) = formatted;
        table.at(position, 0) = type;
        table.at(position, 2) = PlainNumber(units);
    });
    AddToDepartment(main->MList2, main->MList3, position, sales, units);
}

void QLONlistBuilder2::BLD_DATA3()
{
    ProgramGlobals &shared = Shared();
    shared.TempItemsPath = DataPath("TempItems.dat");
    CloseAll();
    TextFile dump(HostPath(shared.TempItemsPath), TextFile::Mode::Output);
    Label2->setText(QStringLiteral("Searching - Just A Moment"));
    const std::unique_ptr<SalesStore> store = openSalesDatabase();
    // The dates are fixed: this is a test of the store, not a report.
    CarriedColumns columns;
    store->SelectSpan("6/22/2003", "6/24/2003", DumpColumns, [&](const SalesRow &row) {
        columns.take(row, DumpColumns);
        const QByteArrayList line = DumpLine(columns);
        MList1->addRow(
            columns[EmpNumber] + ',' + columns[OrderDate] + ',' + columns[Item] + ',' + columns[UnitPrice] + ',' + columns[ItemType]);
        dump.WriteFields(line);
        return true;
    });
    CloseAll();
    Label2->setText(QStringLiteral("Search Completed"));
}

} // namespace qlon
