#include "serversales/QLONserverLiquor.h"

#include "core/Ansi.h"
#include "core/Clock.h"
#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/HostPath.h"
#include "core/RuntimeError.h"
#include "core/TextFile.h"
#include "core/Yield.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "platform/ProgramStart.h"
#include "serversales/DataControl.h"
#include "serversales/ServerPaper.h"
#include "serversales/logic/SalesRecordset.h"
#include "serversales/logic/ServerSearch.h"
#include "store/EmployeeRec1000.h"
#include "store/ProgramGlobals.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/DataControl.h"
#include "ui/MList.h"
#include "ui/Program.h"
#include "ui/VbComboBox.h"
#include "ui/VbTextBox.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace qlon {

namespace {

constexpr std::array<const char *, 15> keypadCaptions = {"0", "8", "7", "6", "4", "3", "2", "1", "5", "9", ":", "/", "AM", "PM", "C"};
constexpr int clearKey = 14;
constexpr int keypadOnScreen = 800;
constexpr int keypadPutAway = 12000;
constexpr int keypadLeft = 270;

const QByteArray tildeLine(30, '~');
const QByteArray underscoreLine(32, '_');

VbTextBox *keypadBox(QWidget *parent, const QString &name, const QString &text = {})
{
    return Named(new VbTextBox(text, parent), name);
}

QByteArray ansiText(const QLineEdit *box)
{
    return ToAnsi(box->text());
}

} // namespace

QLONserverLiquor::QLONserverLiquor(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Servers Individual Sales"));
    setAttribute(Qt::WA_DeleteOnClose);
    Combo1 = Named(new VbComboBox(this), QStringLiteral("Combo1"));
    Combo1->setText("1000");
    Text1 = MakeTextBox(this, QStringLiteral("Text1"), QStringLiteral("1000"));
    Text2 = keypadBox(this, QStringLiteral("Text2"), QStringLiteral("01/22/2005"));
    Text3 = MakeTextBox(this, QStringLiteral("Text3"), QStringLiteral("0"));
    Text4 = MakeTextBox(this, QStringLiteral("Text4"), QStringLiteral("0"));
    Text5 = MakeTextBox(this, QStringLiteral("Text5"), QStringLiteral("0"));
    Text6 = keypadBox(this, QStringLiteral("Text6"));
    Text7 = keypadBox(this, QStringLiteral("Text7"));
    Text8 = keypadBox(this, QStringLiteral("Text8"));
    Text9 = keypadBox(this, QStringLiteral("Text9"));
    for (VbTextBox *date : {Text2, Text6, Text8})
        date->setHoldsDate(true);
    const QString captions[] = {QStringLiteral("Server"), QStringLiteral("Date"), QStringLiteral("Total Liquor Sales"),
        QStringLiteral("Total Sales"), QStringLiteral("Total Food Sales")};
    for (int index = 0; index < int(Label3.size()); ++index)
        Label3[index] = MakeLabel(this, ArrayName("Label3", index), captions[index]);
    Label1 = MakeLabel(this, QStringLiteral("Label1"), QStringLiteral("1000"));
    Label2 = MakeLabel(this, QStringLiteral("Label2"), QStringLiteral("Loading"));
    Label7 = MakeLabel(this, QStringLiteral("Label7"), QStringLiteral("Label7"));
    Label7->hide();
    Label8 = MakeLabel(this, QStringLiteral("Label8"), QStringLiteral("0"));
    MList1 = Named(new MList(this), QStringLiteral("MList1"));
    MList1->setSeparator(',');
    MList1->setColumns({{QStringLiteral("Emp ID"), 80}, {QStringLiteral("Date"), 100}, {QStringLiteral("Item"), 150},
        {QStringLiteral("Price"), 100}, {QStringLiteral("Type"), 100}, {QStringLiteral("Tender Time"), 60}});
    MList2 = Named(new MList(this), QStringLiteral("MList2"));
    MList2->setSeparator('|');
    MList2->setColumns({{QStringLiteral("Item"), 120}, {QStringLiteral("Volume"), 90}, {QStringLiteral("Units"), 50}});
    MonthView1 = MakeCalendar(this, QStringLiteral("MonthView1"));
    MonthView1->hide();
    Command1 = MakeButton(this, QStringLiteral("Command1"), QStringLiteral("Update"));
    SSCommand1 = MakeButton(this, QStringLiteral("SSCommand1"), QStringLiteral("Done"));
    SSCommand2 = MakeButton(this, QStringLiteral("SSCommand2"), QStringLiteral("Print"));
    SSCommand3 = MakeButton(this, QStringLiteral("SSCommand3"), QStringLiteral("Print List"));
    SSCommand4 = MakeButton(this, QStringLiteral("SSCommand4"), QStringLiteral("Keyboard"));
    picButtons = Named(new QWidget(this), QStringLiteral("picButtons"));
    cmdAdd = MakeButton(picButtons, QStringLiteral("cmdAdd"), QStringLiteral("&Add"));
    cmdUpdate = MakeButton(picButtons, QStringLiteral("cmdUpdate"), QStringLiteral("&Update"));
    cmdDelete = MakeButton(picButtons, QStringLiteral("cmdDelete"), QStringLiteral("&Delete"));
    cmdRefresh = MakeButton(picButtons, QStringLiteral("cmdRefresh"), QStringLiteral("&Refresh"));
    cmdClose = MakeButton(picButtons, QStringLiteral("cmdClose"), QStringLiteral("&Close"));
    picButtons->hide();
    datPrimaryRS = Named(new DataControl(this), QStringLiteral("datPrimaryRS"));
    datPrimaryRS->hide();

    auto *layout = new QGridLayout(this);
    const QList<QWidget *> fields = {Label3[0], Combo1, Label3[1], Text2, MakeLabel(this, {}, QStringLiteral("Starting Date")), Text6,
        MakeLabel(this, {}, QStringLiteral("Starting Time")), Text7, MakeLabel(this, {}, QStringLiteral("Ending Date")), Text8,
        MakeLabel(this, {}, QStringLiteral("Ending Time")), Text9, Label3[3], Text3, Label3[2], Text4, Label3[4], Text5};
    for (int index = 0; index < fields.size(); ++index)
        layout->addWidget(fields[index], index / 2, index % 2);
    layout->addWidget(Text1, 9, 1);
    layout->addWidget(Label2, 10, 0, 1, 2);
    layout->addWidget(Label1, 11, 0);
    layout->addWidget(Label8, 11, 1);
    layout->addWidget(MList1, 0, 2, 8, 3);
    layout->addWidget(MList2, 8, 2, 4, 3);
    layout->addWidget(MonthView1, 0, 5, 6, 1);
    layout->setColumnStretch(2, 1);
    auto *commands = new QHBoxLayout;
    for (QPushButton *command : {Command1, SSCommand2, SSCommand3, SSCommand4, SSCommand1})
        commands->addWidget(command);
    layout->addLayout(commands, 12, 0, 1, 6);
    buildKeypad();
    connectHandlers();
    resize(1000, 640);
}

void QLONserverLiquor::buildKeypad()
{
    SSPanel4 = Named(new QFrame(this), QStringLiteral("SSPanel4"));
    SSPanel4->setFrameShape(QFrame::Panel);
    SSPanel4->setAutoFillBackground(true);
    auto *keys = new QGridLayout(SSPanel4);
    for (int index = 0; index < int(SSCommand6.size()); ++index) {
        SSCommand6[index] = MakeButton(SSPanel4, ArrayName("SSCommand6", index), QString::fromLatin1(keypadCaptions[index]));
        keys->addWidget(SSCommand6[index], index / 5, index % 5);
    }
    SSCommand7 = MakeButton(SSPanel4, QStringLiteral("SSCommand7"), QStringLiteral("Space"));
    SSCommand5 = MakeButton(SSPanel4, QStringLiteral("SSCommand5"), QStringLiteral("DONE"));
    keys->addWidget(SSCommand7, 3, 0, 1, 3);
    keys->addWidget(SSCommand5, 3, 3, 1, 2);
    SSPanel4->adjustSize();
    // Over the lists, so that the box being typed into stays in sight.
    SSPanel4->move(keypadLeft, 0);
    placeKeypad(keypadPutAway);
}

void QLONserverLiquor::connectHandlers()
{
    const auto mirrorServer = [this] { Text1->setText(FromAnsi(Combo1->text())); };
    OnEvent(Combo1, &VbComboBox::Change, this, mirrorServer);
    OnEvent(Combo1, &VbComboBox::Click, this, mirrorServer);
    OnEvent(Command1, &QPushButton::clicked, this, [this] { RunServerSearch(); });
    OnEvent(Text2, &VbTextBox::GotFocus, this, [this] { MonthView1->show(); });
    OnEvent(MonthView1, &QCalendarWidget::clicked, this, [this] {
        Text2->setText(FromAnsi(ShortDate(MonthView1->selectedDate())));
        MonthView1->hide();
    });
    OnEvent(SSCommand1, &QPushButton::clicked, this, [this] { close(); });
    OnEvent(SSCommand2, &QPushButton::clicked, this, [this] {
        TellWherePrinted(this, PrintServerSummary({Text1->text(), Text2->text(), Text3->text(), Text4->text(), Text5->text()}));
    });
    OnEvent(SSCommand3, &QPushButton::clicked, this, [this] { TellWherePrinted(this, PrintServerList()); });
    OnEvent(SSCommand4, &QPushButton::clicked, this, [] {
        // The system's on-screen keyboard, whose start isn't looked at; a machine without any is
        // the error nobody handles.
        if (StartOnScreenKeyboard() == ProgramStart::NoneInstalled)
            throw RuntimeError(RuntimeError::FileNotFound, QStringLiteral("c:\\Windows\\system32\\osk.exe"));
    });
    OnEvent(SSCommand5, &QPushButton::clicked, this, [this] {
        SSPanel4->hide();
        placeKeypad(keypadPutAway);
    });
    for (int index = 0; index < int(SSCommand6.size()); ++index)
        OnEvent(SSCommand6[index], &QPushButton::clicked, this, [this, index] { SSCommand6_Click(index); });
    OnEvent(SSCommand7, &QPushButton::clicked, this, [this] {
        if (VbTextBox *box = activeBox())
            box->setText(box->text() + QLatin1Char(' '));
    });
    // Only Text6 and Text9 have change handlers, and Text9's leaves the keypad where it stands:
    // deliberately, as the screen's opening relies on it.
    OnEvent(Text6, &QLineEdit::textChanged, this, [this] { showKeypad(keypadOnScreen, 6); });
    OnEvent(Text9, &QLineEdit::textChanged, this, [this] { showKeypad(m_keypadTop, 9); });
    const std::array<VbTextBox *, 4> spanBoxes = {Text6, Text7, Text8, Text9};
    for (int field = 6; field <= 9; ++field)
        OnEvent(spanBoxes[field - 6], &VbTextBox::Click, this, [this, field] { showKeypad(keypadOnScreen, field); });
}

void QLONserverLiquor::Form_Load()
{
    EnsureDataRoot();
    m_store = OpenDataControl(this);
    if (m_store) {
        // The recordset holds the table as it stands now; rows added later show at the next load.
        m_loadedRows = m_store->MarkRows();
        // Unlike the worker's, this data control lets nothing run at a move.
        datPrimaryRS->showPosition(m_loadedRows.empty ? SalesRecordset::PositionAtEnd : 1);
    }
    MonthView1->setSelectedDate(Today());
    SSPanel4->hide();
    const VbComboBox *departments = MainScreen()->Combo1;
    // The screen's own copy of the department table: Calculate Sales keeps its running sums in
    // the same cells of the program's table, and must not wipe out this screen's names.
    m_departments = Shared().CategoryTable;
    CategoryValues &table = m_departments;
    for (int row = 1; row < departments->entryCount(); ++row) {
        const QByteArray name = departments->entryText(row);
        if (TrimBlanks(name).isEmpty())
            continue;
        table.at(row, 1) = name;
        table.at(row, 2) = "0";
        table.at(row, 3) = "0";
    }
    Label8->setText(QString::number(departments->entryCount() - 1));
    // Timer1: once, 200 ms after the load, the keypad that the opening brought up goes away.
    StartOneShot(this, 200, [this] {
        SSPanel4->hide();
        placeKeypad(keypadOnScreen);
    });
}

void QLONserverLiquor::OpenServerSales()
{
    show();
    const QLONlistBuilder1 *main = MainScreen();
    Text2->setText(main->Label2->text());
    Text6->setText(main->Label2->text());
    Text7->setText(FromAnsi(main->Combo2->text()));
    Text8->setText(main->Label3->text());
    Text9->setText(FromAnsi(main->Combo3->text()));
    Fill_Employees();
}

// The list is only added to, so opening the screen again while it stays open repeats every
// server: deliberately, as the old screen did.
void QLONserverLiquor::Fill_Employees()
{
    for (const QByteArray &server : ServerNumbers(HostPath(Site().EmployeeRoot + EmployeeFile)))
        Combo1->addEntry(server);
}

void QLONserverLiquor::showKeypad(int top, int field)
{
    SSPanel4->show();
    SSPanel4->raise();
    placeKeypad(top);
    Label7->setText(QString::number(field));
}

void QLONserverLiquor::placeKeypad(int top)
{
    m_keypadTop = top;
    SSPanel4->move(SSPanel4->x(), Pixels(top));
}

VbTextBox *QLONserverLiquor::activeBox() const
{
    switch (int(NumericValue(ToAnsi(Label7->text())))) {
    case 6: return Text6;
    case 7: return Text7;
    case 8: return Text8;
    case 9: return Text9;
    default: return nullptr;
    }
}

void QLONserverLiquor::SSCommand6_Click(int index)
{
    VbTextBox *box = activeBox();
    if (!box)
        return;
    if (index == clearKey) {
        box->clear();
        return;
    }
    const QString caption = QString::fromLatin1(keypadCaptions[index]);
    // "AM" and "PM" come after a blank, so that a time reads 12:30 PM.
    box->setText(box->text() + (caption.size() == 2 ? QLatin1Char(' ') + caption : caption));
}

void QLONserverLiquor::RunServerSearch()
{
    MList2->clear();
    MList1->clear();
    for (QLineEdit *total : {Text3, Text4, Text5})
        total->setText(QStringLiteral("0"));
    Get_Drink2();
}

void QLONserverLiquor::enableRunButtons(bool enabled)
{
    for (QPushButton *button : {SSCommand2, SSCommand3, Command1})
        button->setEnabled(enabled);
}

namespace {

void writeHeading(TextFile &file, const QLONserverLiquor &screen)
{
    file.PrintLine(tildeLine);
    file.PrintLine("  Server " + screen.Combo1->text());
    file.PrintLine(ansiText(screen.Text6) + " to " + ansiText(screen.Text8));
    file.PrintLine(ansiText(screen.Text7) + " to " + ansiText(screen.Text9));
    file.PrintLine(tildeLine);
}

void writeTotals(TextFile &file, const QLONserverLiquor &screen)
{
    file.PrintLine(underscoreLine);
    file.PrintLine("Grand Total Sales\t" + ansiText(screen.Text3));
    file.PrintLine(ToAnsi(screen.Label3[2]->text()) + '\t' + ansiText(screen.Text4));
    file.PrintLine(ToAnsi(screen.Label3[4]->text()) + '\t' + ansiText(screen.Text5));
}

QString tempListPath(QByteArrayView name)
{
    return HostPath(Site().SiteRoot + "Temp\\" + name.toByteArray());
}

} // namespace

void QLONserverLiquor::Get_Drink2()
{
    enableRunButtons(false);
    std::optional<TextFile> list(std::in_place, tempListPath("TempList.Tmp"), TextFile::Mode::Output);
    writeHeading(*list, *this);
    const int departments = MainScreen()->Combo1->entryCount();
    Label8->setText(QString::number(departments));
    CategoryValues &table = m_departments;
    for (int row = 1; row < departments; ++row) {
        table.at(row, 2) = "0";
        table.at(row, 3) = "0";
    }
    const QByteArray server = TrimBlanks(Combo1->text());
    Label2->setText(QStringLiteral("Searching sales for -") + FromAnsi(server));
    Yield();
    // The search's first recordset call, asking whether it can find, fails when the database never
    // opened: the program ends with the platform's text rather than report a server who sold nothing.
    if (!m_store)
        throw RuntimeError(RuntimeError::ObjectClosed, HostPath(DataPath(SalesDatabaseFile)));
    // Deliberately left as the old screen left it: the buttons stay off, the file holds its heading.
    if (server.isEmpty())
        return;
    const SalesSpan span{ansiText(Text6), ansiText(Text8), ansiText(Text7), ansiText(Text9)};
    const ServerSales sales = SearchServerSales(*m_store, m_loadedRows, {server, span, int(NumericValue(ToAnsi(Label8->text())))}, table);
    for (const QByteArrayList &row : sales.accepted) {
        MList1->addRow(row.join(','));
        list->PrintLine(row[2] + '\t' + row[3] + '\t' + row[4]);
    }
    if (sales.visitedAny) {
        Text3->setText(FromAnsi(Currency(sales.totalSales)));
        Text4->setText(FromAnsi(Currency(sales.liquorSales)));
        Text5->setText(FromAnsi(Currency(sales.totalSales - sales.liquorSales)));
    }
    datPrimaryRS->showPosition(SalesRecordset::PositionAtEnd); // the search leaves the recordset past its last row
    Label2->setText(QStringLiteral("Search Completed"));
    enableRunButtons(true);
    writeTotals(*list, *this);
    list.reset();

    TextFile departmentList(tempListPath("TempList2.Tmp"), TextFile::Mode::Output);
    writeHeading(departmentList, *this);
    MList2->clear();
    for (int row = 1; row < departments; ++row) {
        const QByteArray volume = Currency(NumericValue(table.at(row, 2)));
        MList2->addRow(table.at(row, 1) + '|' + volume + '|' + table.at(row, 3));
        departmentList.PrintLine(table.at(row, 1) + "\t\t" + volume);
    }
    writeTotals(departmentList, *this);
}

void QLONserverLiquor::closeEvent(QCloseEvent *event)
{
    unsetCursor();
    QWidget::closeEvent(event);
}

} // namespace qlon
