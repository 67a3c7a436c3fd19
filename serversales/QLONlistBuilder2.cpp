#include "serversales/QLONlistBuilder2.h"

#include "core/Ansi.h"
#include "core/CarriedFields.h"
#include "core/Clock.h"
#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/ErrorIgnoring.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/HostPath.h"
#include "core/Yield.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "listbuilder/logic/ItemsSoldReport.h"
#include "serversales/DataControl.h"
#include "serversales/SalesGridModel.h"
#include "serversales/ServerPaper.h"
#include "serversales/logic/CalculatedItem.h"
#include "store/ProgramGlobals.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/DataControl.h"
#include "ui/Dialogs.h"
#include "ui/MList.h"
#include "ui/Program.h"
#include "ui/VbComboBox.h"
#include "ui/VbTextBox.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace qlon {

namespace {

std::unique_ptr<SalesStore> openSalesDatabase()
{
    return OpenSiteSalesStore(DataPath(SalesDatabaseFile));
}

} // namespace

QLONlistBuilder2::QLONlistBuilder2(QWidget *parent)
    : QWidget(parent)
    , m_gridModel(new SalesGridModel(m_recordset, this))
{
    setWindowTitle(QStringLiteral("Servers Individual Sales"));
    // "Done" and "Close" unload the form; the next touch loads it afresh.
    setAttribute(Qt::WA_DeleteOnClose);
    Text1 = MakeTextBox(this, QStringLiteral("Text1"), QStringLiteral("1000"));
    Text2 = Named(new VbTextBox(QStringLiteral("01/22/2005"), this), QStringLiteral("Text2"));
    Text2->setHoldsDate(true);
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
    MonthView1 = MakeCalendar(this, QStringLiteral("MonthView1"));
    MonthView1->setWindowFlags(Qt::Popup);
    Command1 = MakeButton(this, QStringLiteral("Command1"), QStringLiteral("Update"));
    Command2 = MakeButton(this, QStringLiteral("Command2"), QStringLiteral("Command2"));
    SSCommand1 = MakeButton(this, QStringLiteral("SSCommand1"), QStringLiteral("Done"));
    SSCommand2 = MakeButton(this, QStringLiteral("SSCommand2"), QStringLiteral("Print"));
    SSCommand3 = MakeButton(this, QStringLiteral("SSCommand3"), QStringLiteral("Print List"));

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(buildGridColumn(), 3);
    layout->addLayout(buildFields(), 2);
    connectHandlers();
    resize(1000, 600);
}

QWidget *QLONlistBuilder2::buildGridColumn()
{
    auto *column = new QWidget(this);
    grdDataGrid = Named(new DataGrid(column), QStringLiteral("grdDataGrid"));
    datPrimaryRS = Named(new DataControl(column), QStringLiteral("datPrimaryRS"));
    picButtons = Named(new QWidget(column), QStringLiteral("picButtons"));
    cmdAdd = MakeButton(picButtons, QStringLiteral("cmdAdd"), QStringLiteral("&Add"));
    cmdUpdate = MakeButton(picButtons, QStringLiteral("cmdUpdate"), QStringLiteral("&Update"));
    cmdDelete = MakeButton(picButtons, QStringLiteral("cmdDelete"), QStringLiteral("&Delete"));
    cmdRefresh = MakeButton(picButtons, QStringLiteral("cmdRefresh"), QStringLiteral("&Refresh"));
    cmdClose = MakeButton(picButtons, QStringLiteral("cmdClose"), QStringLiteral("&Close"));
    auto *buttons = new QHBoxLayout(picButtons);
    buttons->setContentsMargins(0, 0, 0, 0);
    for (QPushButton *button : {cmdAdd, cmdUpdate, cmdDelete, cmdRefresh, cmdClose})
        buttons->addWidget(button);
    // The grid's height follows the form's (see resizeEvent); the two bars sit below it.
    auto *stack = new QVBoxLayout(column);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addWidget(grdDataGrid);
    stack->addSpacing(Pixels(30));
    stack->addWidget(datPrimaryRS);
    stack->addWidget(picButtons);
    stack->addStretch();
    return column;
}

QLayout *QLONlistBuilder2::buildFields()
{
    auto *fields = new QGridLayout;
    const QList<QWidget *> boxes = {Label3[0], Text1, Label3[1], Text2, Label3[3], Text3, Label3[2], Text4, Label3[4], Text5};
    for (int index = 0; index < boxes.size(); ++index)
        fields->addWidget(boxes[index], index / 2, index % 2);
    fields->addWidget(Label1, 5, 0);
    fields->addWidget(Label2, 5, 1);
    fields->addWidget(Label4, 6, 0);
    fields->addWidget(Label5, 6, 1);
    fields->addWidget(MList1, 7, 0, 1, 2);
    fields->setRowStretch(7, 1);
    auto *commands = new QHBoxLayout;
    for (QPushButton *command : {Command1, Command2, SSCommand2, SSCommand3, SSCommand1})
        commands->addWidget(command);
    fields->addLayout(commands, 8, 0, 1, 2);
    return fields;
}

void QLONlistBuilder2::connectHandlers()
{
    m_recordset.onMove([this] { Recordset_MoveComplete(); });
    OnEvent(datPrimaryRS, &DataControl::moveFirst, this, [this] { m_recordset.moveFirst(); });
    OnEvent(datPrimaryRS, &DataControl::movePrevious, this, [this] { m_recordset.moveTo(m_recordset.current() - 1); });
    OnEvent(datPrimaryRS, &DataControl::moveNext, this, [this] { m_recordset.moveNext(); });
    OnEvent(datPrimaryRS, &DataControl::moveLast, this, [this] { m_recordset.moveLast(); });
    OnEvent(grdDataGrid, &DataGrid::newRowWanted, this, [this] { recordsetOperation([this] { m_gridModel->addNew(); }); });
    OnEvent(cmdAdd, &QPushButton::clicked, this, [this] {
        recordsetOperation([this] {
            m_recordset.moveLast();
            grdDataGrid->setFocus();
            QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
            QCoreApplication::sendEvent(grdDataGrid, &down);
        });
    });
    OnEvent(cmdDelete, &QPushButton::clicked, this, [this] { recordsetOperation([this] { m_gridModel->deleteCurrent(); }); });
    OnEvent(cmdRefresh, &QPushButton::clicked, this, [this] { recordsetOperation([this] { m_gridModel->refresh(); }); });
    OnEvent(cmdUpdate, &QPushButton::clicked, this, [this] { recordsetOperation([this] { m_recordset.updateBatch(); }); });
    OnEvent(cmdClose, &QPushButton::clicked, this, [this] { close(); });
    OnEvent(SSCommand1, &QPushButton::clicked, this, [this] { close(); });
    OnEvent(Text2, &VbTextBox::GotFocus, this, [this] {
        MonthView1->move(Text2->mapToGlobal(QPoint(0, Text2->height())));
        MonthView1->show();
    });
    connect(MonthView1, &QCalendarWidget::clicked, this, [this](QDate date) {
        RunHandler([this, date] {
            Text2->setText(FromAnsi(ShortDate(date)));
            MonthView1->hide();
        });
    });
    OnEvent(Command1, &QPushButton::clicked, this, [this] {
        MList1->clear();
        BLD_DATA();
    });
    OnEvent(Command2, &QPushButton::clicked, this, [this] { BLD_DATA3(); });
    OnEvent(SSCommand2, &QPushButton::clicked, this, [this] {
        TellWherePrinted(this, PrintServerSummary({Text1->text(), Text2->text(), Text3->text(), Text4->text(), Text5->text()}));
    });
    OnEvent(SSCommand3, &QPushButton::clicked, this, [this] { TellWherePrinted(this, PrintWorkerList(MList1->rows())); });
}

// The grid follows the recordset, and the recordset the row a user picks in the grid.
void QLONlistBuilder2::connectGrid()
{
    grdDataGrid->setModel(m_gridModel);
    connect(grdDataGrid->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex &current) {
        if (current.isValid() && !m_gridModel->isChanging() && current.row() != m_recordset.current())
            RunHandler([this, row = current.row()] { m_recordset.moveTo(row); });
    });
}

void QLONlistBuilder2::Recordset_MoveComplete()
{
    datPrimaryRS->showPosition(m_recordset.absolutePosition());
    if (grdDataGrid->model() && grdDataGrid->currentIndex().row() != m_recordset.current())
        grdDataGrid->setCurrentIndex(m_gridModel->index(m_recordset.current(), std::max(grdDataGrid->currentIndex().column(), 0)));
    // Unlike the server screen's, this handler lets the event loop run at every move.
    Yield();
}

void QLONlistBuilder2::recordsetOperation(const std::function<void()> &operation)
{
    try {
        operation();
    } catch (const RuntimeError &error) {
        Dialogs::showMessage(this, ProgramTitle, error.description());
    }
}

void QLONlistBuilder2::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // The table is fetched when somebody first looks at it, with the rows it had at the load.
    if (!grdDataGrid->model()) {
        RunHandler([this] {
            m_gridModel->reload();
            connectGrid();
        });
    }
}

// The grid takes the form's inner height less the two bars and a gap of 30 twips. The platform
// refuses a negative height, and the error is passed over: the grid keeps the height it had.
void QLONlistBuilder2::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const int gridHeight = height() - datPrimaryRS->sizeHint().height() - Pixels(30) - picButtons->sizeHint().height();
    if (gridHeight >= 0)
        grdDataGrid->setFixedHeight(gridHeight);
}

void QLONlistBuilder2::closeEvent(QCloseEvent *event)
{
    unsetCursor();
    QWidget::closeEvent(event);
}

void QLONlistBuilder2::Form_Load()
{
    EnsureDataRoot();
    // The database is opened read-only on purpose: it belongs to the stations.
    OpenDataControl(this, m_recordset);
    // The opening puts the recordset on its first row, a move like any other.
    if (m_recordset.isOpen())
        m_recordset.moveFirst();
    MonthView1->setSelectedDate(Today());
}

void QLONlistBuilder2::BeginRun()
{
    m_spanSales.reset();
    EndRun();
}

void QLONlistBuilder2::EndRun()
{
    m_tempItems.close();
    m_trace.close();
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
    const QByteArray tracePath = DataPath("TempItemsRec.dat");
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
    m_trace.append(tracePath, sales.trace.joined());

    const CalculatedItem item = CalculateItem(sales, name, main->MList1->rowTag(shared.CurrentRow), type, price);
    shared.LastItemSales = item.sales;
    shared.LastItemType = type;
    QByteArray line;
    AppendQuotedLine(line, {item.tempItemsLine.at(0), item.tempItemsLine.at(1), item.tempItemsLine.at(2)});
    m_tempItems.append(shared.TempItemsPath, line);
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
        MList1->addRow(SearchedRowLine(columns));
        dump.WriteFields(line);
        return true;
    });
    CloseAll();
    Label2->setText(QStringLiteral("Search Completed"));
}

void QLONlistBuilder2::requireRecordset() const
{
    // The search's recordset calls fail when the database never opened.
    if (!m_recordset.isOpen())
        throw RuntimeError(RuntimeError::ObjectClosed, HostPath(DataPath(SalesDatabaseFile)));
}

void QLONlistBuilder2::Get_Sales2()
{
    searchItem(ItemMatch::Exact);
}

void QLONlistBuilder2::ItemSearch()
{
    searchItem(ItemMatch::Containing);
}

void QLONlistBuilder2::searchItem(ItemMatch match)
{
    QLONlistBuilder1 *main = MainScreen();
    const QByteArray key = TrimBlanks(ToAnsi(Label1->text()));
    Label2->setText(QStringLiteral("Searching"));
    const QByteArray from = ToAnsi(main->Label2->text());
    const QByteArray to = ToAnsi(main->Label3->text());
    Parse_ListRow();
    Yield();
    Label2->setText(QStringLiteral("Searching - Just A Moment"));
    Yield();
    requireRecordset();
    const ItemCount count = CountItemRows(m_recordset, match, key, from, to);
    const int row = Shared().CurrentRow;
    main->MList1->setRowText(row, ItemSearchRow(key, ToAnsi(Label4->text()), ToAnsi(Label5->text()), count));
    main->MList1->setRowTag(row, key);
    Label2->setText(QStringLiteral("Search Completed"));
}

void QLONlistBuilder2::enableRunButtons(bool enabled)
{
    for (QPushButton *button : {SSCommand2, SSCommand3, Command1})
        button->setEnabled(enabled);
}

void QLONlistBuilder2::BLD_DATA()
{
    enableRunButtons(false);
    const QByteArray key = TrimBlanks(ToAnsi(Label1->text()));
    Label2->setText(QStringLiteral("Searching - Just A Moment"));
    Yield();
    requireRecordset();
    // A row of the day goes on the list before the move past it; the totals follow the move.
    SearchServerDay(m_recordset, key, ToAnsi(Text2->text()),
        {[this](const QByteArray &row) { MList1->addRow(row); },
            [this](const DaySales &sales) {
                Text3->setText(FromAnsi(Currency(sales.total)));
                Text4->setText(FromAnsi(Currency(sales.liquor)));
                Text5->setText(FromAnsi(Currency(sales.total - sales.liquor)));
            }});
    Label2->setText(QStringLiteral("Search Completed"));
    enableRunButtons(true);
}

} // namespace qlon
