#include "itemssold/QlonItemsSold.h"

#include "core/Ansi.h"
#include "core/Clock.h"
#include "core/Conversions.h"
#include "core/ErrorIgnoring.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/HostPath.h"
#include "core/Yield.h"
#include "itemssold/logic/DepartmentFilter.h"
#include "itemssold/logic/ItemsSoldPrint.h"
#include "itemssold/logic/SalesFileScan.h"
#include "listbuilder/ItemsSoldEngine.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "store/Departments.h"
#include "store/ProgramGlobals.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/Dialogs.h"
#include "ui/LinePrinter.h"
#include "ui/MList.h"
#include "ui/Program.h"
#include "ui/Sound.h"
#include "ui/VbComboBox.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QGraphicsOpacityEffect>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qlon {

namespace {

QRadioButton *option(QWidget *parent, const QString &name, const QString &caption)
{
    return Named(new QRadioButton(caption, parent), name);
}

QListWidget *hiddenList(QWidget *parent, const QString &name)
{
    auto *list = Named(new QListWidget(parent), name);
    list->hide();
    return list;
}

QByteArray dateText(QDate date)
{
    return Format(date, "MM/DD/YY");
}

} // namespace

QlonItemsSold::QlonItemsSold(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Items Sold"));
    setAttribute(Qt::WA_DeleteOnClose);
    MonthView1 = MakeCalendar(this, QStringLiteral("MonthView1"));
    MonthView2 = MakeCalendar(this, QStringLiteral("MonthView2"));
    Label2 = MakeLabel(this, QStringLiteral("Label2"));
    Label3 = MakeLabel(this, QStringLiteral("Label3"));
    Label4 = MakeLabel(this, QStringLiteral("Label4"));
    Label5 = MakeLabel(this, QStringLiteral("Label5"));
    for (int index = 0; index < 2; ++index) {
        const QString caption = index == 0 ? QStringLiteral("+") : QStringLiteral("-");
        SSCommand1[index] = MakeButton(this, ArrayName("SSCommand1", index), caption);
        SSCommand2[index] = MakeButton(this, ArrayName("SSCommand2", index), caption);
        Combo1[index] = Named(new VbComboBox(this), ArrayName("Combo1", index));
    }
    SSOption1 = option(this, QStringLiteral("SSOption1"), QStringLiteral("Food"));
    SSOption2 = option(this, QStringLiteral("SSOption2"), QStringLiteral("Bar"));
    SSOption3 = option(this, QStringLiteral("SSOption3"), QStringLiteral("Both"));
    SSOption5 = option(this, QStringLiteral("SSOption5"), QStringLiteral("Retail"));
    SSOption6 = option(this, QStringLiteral("SSOption6"), QStringLiteral("All"));
    SSOption6->setChecked(true);
    const QString sortCaptions[] = {
        QStringLiteral("Total Sold"), QStringLiteral("Item Name"), QStringLiteral("Sales Volume"), QStringLiteral("No Sort")};
    for (int index = 0; index < int(SSOption4.size()); ++index)
        SSOption4[index] = option(this, ArrayName("SSOption4", index), sortCaptions[index]);
    Check2 = Named(new QCheckBox(QStringLiteral("Numeric Sort"), this), QStringLiteral("Check2"));
    Combo2 = Named(new VbComboBox(this), QStringLiteral("Combo2"));
    SSCommand9 = MakeButton(
        this, QStringLiteral("SSCommand9"), QStringLiteral("Update"), QStringLiteral("Updat the list using only the above deprtment."));
    SSCommand10 = MakeButton(this, QStringLiteral("SSCommand10"), QStringLiteral("Edit"), QStringLiteral("Edit the list of departments"));
    SSCommand4 =
        MakeButton(this, QStringLiteral("SSCommand4"), QStringLiteral("Update List"), QStringLiteral("Update the list using these dates"));
    SSCommand11 = MakeButton(this, QStringLiteral("SSCommand11"), QStringLiteral("Stop"));
    KeepPlaceWhenHidden(SSCommand11);
    SSCommand11->hide();
    SSCommand5 = MakeButton(this, QStringLiteral("SSCommand5"), QStringLiteral("Print"), QStringLiteral("Use receipt Printer"));
    SSCommand6 = MakeButton(this, QStringLiteral("SSCommand6"), QStringLiteral("Print"), QStringLiteral("Chose printer to Use"));
    SSCommand8 = MakeButton(this, QStringLiteral("SSCommand8"), QStringLiteral("Show Inventory Used"));
    SSCommand3 = MakeButton(this, QStringLiteral("SSCommand3"), QStringLiteral("Done"), QStringLiteral("Back to main menu"));
    SSPanel1 = MakeLabel(this, QStringLiteral("SSPanel1"), QStringLiteral("Items Sold "));
    SSPanel1->setFrameShape(QFrame::Panel);
    ProgressBar1 = Named(new QProgressBar(this), QStringLiteral("ProgressBar1"));
    KeepPlaceWhenHidden(ProgressBar1);
    ProgressBar1->hide();
    Label7 = MakeLabel(this, QStringLiteral("Label7"));
    MList1 = Named(new MList(this), QStringLiteral("MList1"));
    MList1->setColumns({{QStringLiteral("Sold"), 50}, {QStringLiteral("Item"), 160}, {QStringLiteral("Amount"), 90},
        {QStringLiteral("Price"), 70}, {QStringLiteral("Department"), 120}});
    List1 = hiddenList(this, QStringLiteral("List1"));
    List2 = hiddenList(this, QStringLiteral("List2"));
    List4 = hiddenList(this, QStringLiteral("List4"));
    layOut();
    connectHandlers();
}

void QlonItemsSold::layOut()
{
    auto *layout = new QGridLayout(this);
    layout->addWidget(SSPanel1, 0, 0, 1, 4);
    const auto dateColumn = [&](int column, QCalendarWidget *calendar, QLabel *date, QLabel *day,
                                const std::array<QPushButton *, 2> &steps) {
        layout->addWidget(calendar, 1, column, 1, 2);
        layout->addWidget(date, 2, column);
        layout->addWidget(day, 2, column + 1);
        layout->addWidget(steps[0], 3, column);
        layout->addWidget(steps[1], 3, column + 1);
    };
    dateColumn(0, MonthView1, Label2, Label4, SSCommand1);
    dateColumn(2, MonthView2, Label3, Label5, SSCommand2);
    layout->addWidget(MakeLabel(this, {}, QStringLiteral("Time Sold")), 4, 0);
    layout->addWidget(Combo1[0], 4, 1);
    layout->addWidget(Combo1[1], 4, 2);
    auto *report = Named(new QGroupBox(QStringLiteral("Report "), this), QStringLiteral("SSFrame1"));
    auto *reportOptions = new QVBoxLayout(report);
    for (QRadioButton *choice : {SSOption1, SSOption2, SSOption3, SSOption5, SSOption6})
        reportOptions->addWidget(choice);
    auto *sort = Named(new QGroupBox(QStringLiteral("Sort By"), this), QStringLiteral("SSFrame2"));
    auto *sortOptions = new QVBoxLayout(sort);
    for (QRadioButton *choice : SSOption4)
        sortOptions->addWidget(choice);
    sortOptions->addWidget(Check2);
    layout->addWidget(report, 5, 0, 1, 2);
    layout->addWidget(sort, 5, 2, 1, 2);
    layout->addWidget(MakeLabel(this, {}, QStringLiteral("Show only this Department")), 6, 0);
    layout->addWidget(Combo2, 6, 1);
    layout->addWidget(SSCommand9, 6, 2);
    layout->addWidget(SSCommand10, 6, 3);
    layout->addWidget(MList1, 0, 4, 8, 1);
    layout->addWidget(MakeLabel(this, {}, QStringLiteral("Total Sales Volume")), 8, 4);
    layout->addWidget(Label7, 9, 4);
    layout->addWidget(MakeLabel(this, {}, QStringLiteral("Gift Cards are NOT included in total")), 10, 4);
    QLabel *sortNote =
        MakeLabel(this, {}, QStringLiteral("Best selling Items are at the top of the list when list is sorted by Total Sales."));
    sortNote->setWordWrap(true);
    layout->addWidget(sortNote, 11, 4);
    layout->addWidget(ProgressBar1, 7, 0, 1, 4);
    auto *commands = new QHBoxLayout;
    for (QPushButton *command : {SSCommand4, SSCommand11, SSCommand5, SSCommand6, SSCommand8, SSCommand3})
        commands->addWidget(command);
    layout->addLayout(commands, 12, 0, 1, 5);
    layout->setColumnStretch(4, 1);
    resize(1000, 700);
}

void QlonItemsSold::connectHandlers()
{
    OnEvent(MonthView1, &QCalendarWidget::clicked, this, [this] { showDates(); });
    OnEvent(MonthView2, &QCalendarWidget::clicked, this, [this] { showDates(); });
    OnEvent(SSCommand1[0], &QPushButton::clicked, this, [this] { stepDate(MonthView1, 1); });
    OnEvent(SSCommand1[1], &QPushButton::clicked, this, [this] { stepDate(MonthView1, -1); });
    OnEvent(SSCommand2[0], &QPushButton::clicked, this, [this] { stepDate(MonthView2, 1); });
    OnEvent(SSCommand2[1], &QPushButton::clicked, this, [this] { stepDate(MonthView2, -1); });
    OnEvent(SSCommand4, &QPushButton::clicked, this, [this] { UpdateList(); });
    OnEvent(SSCommand11, &QPushButton::clicked, this, [this] { SSCommand11_Click(); });
    for (int index = 0; index < int(SSOption4.size()); ++index)
        OnEvent(SSOption4[index], &QRadioButton::clicked, this, [this, index] { SSOption4_Click(index); });
    OnEvent(Check2, &QCheckBox::clicked, this, [this] { Check2_Click(); });
    OnEvent(SSCommand9, &QPushButton::clicked, this, [this] { SSCommand9_Click(); });
    OnEvent(SSCommand5, &QPushButton::clicked, this, [this] { SSCommand5_Click(); });
    OnEvent(SSCommand6, &QPushButton::clicked, this, [this] { SSCommand6_Click(); });
    OnEvent(SSCommand8, &QPushButton::clicked, this, [this] { SSCommand8_Click(); });
    OnEvent(SSCommand10, &QPushButton::clicked, this, [] {
        if (QWidget *editor = Screens().touch(QStringLiteral("QlonUpDept")))
            editor->show();
    });
    OnEvent(SSCommand3, &QPushButton::clicked, this, [this] { close(); });
}

void QlonItemsSold::Form_Load()
{
    MList1->setComparer(&m_comparer);
    // The old list took "a a" for a sort key; ours refuses an order without a column, and keeps its order.
    SkipOnFailure([this] { MList1->setSortKey("a a"); });
    MList1->setSorted(true);
    MonthView1->setSelectedDate(Today());
    MonthView2->setSelectedDate(Today());
    showDates();
    m_buttonTable = LoadButtonTable();
    for (VbComboBox *times : Combo1) {
        for (const QByteArray &line : TimeOfDayLines())
            times->addEntry(line);
        times->addEntry("11:59 pm");
    }
    Combo1[0]->setText("12:00 am");
    Combo1[1]->setText("11:59 pm");
    // The departments file under the site root.
    const QString departments = HostPath(Site().DataRoot + "data\\Departments.dat");
    EnsureDepartmentsFile(departments, ItemsSoldDepartments());
    for (const QByteArray &name : ReadDepartmentNames(departments))
        Combo2->addEntry(name);
    Combo2->setText("All");
    EnableButtons();
}

void QlonItemsSold::showDates()
{
    Label2->setText(FromAnsi(dateText(MonthView1->selectedDate())));
    Label4->setText(FromAnsi(Format(MonthView1->selectedDate(), "DDDD")));
    Label3->setText(FromAnsi(dateText(MonthView2->selectedDate())));
    Label5->setText(FromAnsi(Format(MonthView2->selectedDate(), "DDDD")));
}

void QlonItemsSold::stepDate(QCalendarWidget *calendar, int days)
{
    calendar->setSelectedDate(calendar->selectedDate().addDays(days));
    showDates();
}

void QlonItemsSold::setButtonsEnabled(bool enabled)
{
    QList<QWidget *> buttons = {SSCommand1[0], SSCommand1[1], SSCommand2[0], SSCommand2[1], SSCommand4, SSCommand5, SSCommand6, SSCommand3,
        SSCommand8, SSCommand9, SSCommand10, SSOption1, SSOption2, SSOption3, SSOption5, SSOption6};
    for (QRadioButton *sort : SSOption4)
        buttons.append(sort);
    for (QWidget *button : buttons)
        button->setEnabled(enabled);
}

ReportOptions QlonItemsSold::reportOptions() const
{
    return {SSOption1->isChecked(), SSOption2->isChecked(), SSOption3->isChecked(), SSOption5->isChecked(), SSOption6->isChecked()};
}

// The last report option that is on, starting from "B".
QByteArray QlonItemsSold::modeLetter() const
{
    QByteArray mode = "B";
    const std::pair<QRadioButton *, const char *> letters[] = {
        {SSOption1, "F"}, {SSOption2, "L"}, {SSOption3, "B"}, {SSOption5, "R"}, {SSOption6, "A"}};
    for (const auto &[choice, letter] : letters) {
        if (choice->isChecked())
            mode = letter;
    }
    return mode;
}

// After each stage: a stop shows on the status line.
bool QlonItemsSold::stopped()
{
    if (!Shared().StopRequested)
        return false;
    SSCommand11->hide();
    SSPanel1->setText(QStringLiteral("User Stopped"));
    return true;
}

void QlonItemsSold::UpdateList()
{
    Shared().StopRequested = false;
    m_yield.restart();
    m_monthStatus.clear();
    SSCommand11->show();
    List4->clear();
    DisableButtons();
    SSOption4[3]->setChecked(true);
    SSOption4[3]->setEnabled(true);
    MList3.clear();
    SSPanel1->setText(QStringLiteral("Retreving Sold Items"));
    // From here on a failing statement is left out: a catalogue file that can't be read gives
    // no rows, and the run goes on.
    SkipOnFailure([this] {
        for (const QByteArray &row : ReadCatalogue(reportOptions(), *this).rows)
            MList3.addRow(row);
    });
    if (stopped())
        return;
    SortCatalogue();
    if (stopped())
        return;
    RemoveDuplicateRows();
    if (stopped())
        return;
    SSPanel1->setText(QStringLiteral("Retreving Sales Data"));
    SkipOnFailure([this] { ReadSalesFiles(); });
    if (stopped())
        return;
    MList2.clear();
    for (int row = 0; row < MList1->rowCount(); ++row)
        MList2.addRow(MList1->rowText(row));
    SSCommand9->setEnabled(true);
    SSCommand11->hide();
    SSPanel1->setText(QStringLiteral("Report Complete"));
}

// The start of every scan: the hourglass, the buttons off, "WORKING" in place of the status,
// which comes back, and the lists emptied.
QString QlonItemsSold::beginScan()
{
    setCursor(Qt::WaitCursor);
    DisableButtons();
    m_yield.restart();
    const QString savedStatus = SSPanel1->text();
    SSPanel1->setText(QStringLiteral("WORKING"));
    MList1->clear();
    List1->clear();
    List2->clear();
    ProgressBar1->show();
    return savedStatus;
}

void QlonItemsSold::ReadSalesFiles()
{
    const QString savedStatus = beginScan();
    List4->clear();
    QByteArrayList catalogue;
    for (int row = 0; row < MList3.rowCount(); ++row)
        catalogue.append(MList3.rowText(row));
    const SalesScan scan = ScanSalesFiles(
        catalogue, scanSpan(), [this] { return modeLetter(); }, *this);
    showScan(scan, savedStatus);
}

void QlonItemsSold::ReadFoodFile()
{
    SSPanel1->setText(QStringLiteral("Retreving Food Items"));
    runOlderScan(OlderScan::Food);
    SortCatalogue();
    RemoveDuplicateRows();
    SSPanel1->setText(QStringLiteral("Items Sold"));
}

void QlonItemsSold::SortCatalogue()
{
    SSPanel1->setText(QStringLiteral("Sorting Items"));
    MList3.setSortKey("0a ");
    MList3.setSorted(true);
}

void QlonItemsSold::RemoveDuplicateRows()
{
    SSPanel1->setText(QStringLiteral("Removing Duplicates"));
    QByteArrayList rows;
    for (int row = 0; row < MList3.rowCount(); ++row)
        rows.append(MList3.rowText(row));
    RemoveDuplicates(rows);
    MList3.setSorted(false);
    MList3.clear();
    for (const QByteArray &row : rows)
        MList3.addRow(row);
}

void QlonItemsSold::ReadBarFile()
{
    runOlderScan(OlderScan::Bar);
}

void QlonItemsSold::ReadBothFile()
{
    runOlderScan(OlderScan::Both);
}

void QlonItemsSold::runOlderScan(OlderScan kind)
{
    const QString savedStatus = beginScan();
    SalesScan scan;
    // Failures are passed over, as in the full scan.
    SkipOnFailure([&] { scan = RunOlderScan(kind, m_buttonTable, scanSpan(), *this); });
    showScan(scan, savedStatus);
}

ScanSpan QlonItemsSold::scanSpan() const
{
    return {ToAnsi(Label2->text()), ToAnsi(Label3->text()), Combo1[0]->text(), Combo1[1]->text()};
}

// The display step of every scan: the report rows, the print lists, the total, the gift row
// after it, and the items not reported.
void QlonItemsSold::showScan(const SalesScan &scan, const QString &savedStatus)
{
    if (scan.stopped) {
        SSCommand11->hide();
        SSPanel1->setText(QStringLiteral("User Stopped"));
        CloseAll();
        return;
    }
    double total = 0;
    int index = -1;
    for (const ReportLine &line : ReportLines(scan)) {
        const int row = MList1->addRow(line.listText);
        List1->addItem(FromAnsi(line.printText));
        List2->addItem(FromAnsi(line.printText));
        MList1->setRowTag(row, QByteArray::number(++index));
        total += line.amount;
    }
    ProgressBar1->hide();
    Label7->setText(FromAnsi(Currency(total)));
    EnableButtons();
    // Gift cards stand in the list and never in the total.
    if (scan.giftCount != 0)
        MList1->addRow(GiftRow(scan));
    SSTransition1_Play();
    SSPanel1->setText(savedStatus);
    unsetCursor();
    for (const QByteArray &item : scan.notReported)
        List4->addItem(FromAnsi(item));
    // Deliberately the kind of the last catalogue row, or the gift total that took its place.
    if (List4->count() > 0)
        tellNotReported(scan.giftCount != 0 ? Currency(scan.giftTotal) : scan.lastClass);
    CloseAll();
}

// The transition: the report fades in over 800 ms, and its sound plays as it starts; a sound file
// that isn't there is passed over.
void QlonItemsSold::SSTransition1_Play()
{
    auto *fade = new QGraphicsOpacityEffect(MList1);
    MList1->setGraphicsEffect(fade);
    auto *animation = new QPropertyAnimation(fade, "opacity", MList1);
    animation->setDuration(800);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    connect(animation, &QPropertyAnimation::finished, MList1, [this] { MList1->setGraphicsEffect(nullptr); });
    animation->start(QAbstractAnimation::DeleteWhenStopped);
    SkipOnFailure([] { PlaySound(HostPath(Site().DataRoot + "data\\whoosh.wav")); });
}

void QlonItemsSold::tellNotReported(const QByteArray &kind)
{
    const QString count = QString::number(List4->count());
    const QString question = QStringLiteral(" that are not on this report\rWould you like to view then now ?");
    QString message;
    if (kind == "F")
        message = QStringLiteral("You have ") + count + QStringLiteral(" Food Items") + question;
    else if (kind == "L")
        message = QStringLiteral("You have ") + count + QStringLiteral(" Liquor Items") + question;
    else if (kind == "B" || kind == "R")
        message = QStringLiteral("You have ") + count + QStringLiteral(" Items") + question;
    // The list window that Yes was to open never came to be: either answer ends the scan.
    Dialogs::showMessage(this, QStringLiteral("Items Not Reported"), message, MessageButtons::YesNo);
}

void QlonItemsSold::SSCommand11_Click()
{
    Shared().StopRequested = true;
    SSCommand11->hide();
    unsetCursor();
    EnableButtons();
    ProgressBar1->hide();
}

void QlonItemsSold::SSOption4_Click(int index)
{
    SSOption4[3]->setEnabled(false);
    setCursor(Qt::WaitCursor);
    SkipOnFailure([&] {
        switch (index) {
        case 0:
            MList1->setSortKey("0d ");
            Check2->setChecked(true);
            Check2_Click();
            break;
        case 1:
            Check2->setChecked(false);
            MList1->setSortKey("1a");
            MList1->setSorted(true);
            break;
        case 2:
            MList1->setSorted(false);
            MList1->setSorted(true);
            MList1->setSortKey("2d");
            MList1->setSorted(true);
            Check2->setChecked(true);
            Check2_Click();
            break;
        default: break;
        }
    });
    RebuildPrintList();
    unsetCursor();
}

// The comparer's numeric flag changes nothing in its comparison; the list sorts anew.
void QlonItemsSold::Check2_Click()
{
    MList1->setSorted(false);
    MList1->setSorted(true);
}

// List1 in the order shown: each row's tag is its line in List2. The gift row has none.
void QlonItemsSold::RebuildPrintList()
{
    List1->clear();
    for (int row = 0; row < MList1->rowCount(); ++row) {
        bool isIndex = false;
        const int line = MList1->rowTag(row).toInt(&isIndex);
        if (isIndex && line < List2->count())
            List1->addItem(List2->item(line)->text());
    }
}

void QlonItemsSold::SSCommand9_Click()
{
    MList1->clear();
    QByteArrayList rows;
    for (int row = 0; row < MList2.rowCount(); ++row)
        rows.append(MList2.rowText(row));
    const DepartmentRows chosen = RowsOfDepartment(rows, Combo2->text());
    for (const int row : chosen.kept)
        addKeepingEveryRow(rows[row]);
    Label7->setText(FromAnsi(Currency(chosen.total)));
}

// The numeric comparer that "Total Sold" left on the list fails on the names that "Item Name"
// sorts: a row the list can't place goes in at the end, with sorting off, so that no row is lost.
void QlonItemsSold::addKeepingEveryRow(const QByteArray &text)
{
    try {
        MList1->addRow(text);
    } catch (const RuntimeError &) {
        MList1->setSorted(false);
        MList1->addRow(text);
    }
}

void QlonItemsSold::SSCommand5_Click()
{
    DisableButtons();
    SelectReportPrinter(); // SelectReceiptPrinter
    printSlip();
    EnableButtons();
}

void QlonItemsSold::SSCommand6_Click()
{
    DisableButtons();
    // Failures of the report routines are passed over; the buttons come back whatever happens.
    SkipOnFailure([this] {
        if (Site().DataRoot.isEmpty())
            Site().DataRoot = DefaultSiteRoot;
        // The test and the report name the template in two spellings, both required.
        if (FileExists(HostPath(Site().DataRoot + "ItemSold.vrd")))
            printThroughEngine();
        else
            printSlip();
    });
    EnableButtons();
}

void QlonItemsSold::printSlip()
{
    SlipContent content{Shared().SiteName, ToAnsi(Label2->text()), ToAnsi(Label3->text()), {}, ToAnsi(Label7->text())};
    for (int row = 0; row < List1->count(); ++row)
        content.printRows.append(ToAnsi(List1->item(row)->text()));
    QString pdfPath;
    LinePrintJob job(ChooseReportOutput(HostPath(DataPath("ItemsSoldSlip.pdf")), &pdfPath));
    for (const SlipLine &line : ItemsSoldSlip(content)) {
        job.setFontSize(line.fontSize);
        job.print(FromAnsi(line.text));
    }
    job.endDoc();
    TellWherePrinted(this, pdfPath);
}

void QlonItemsSold::printThroughEngine()
{
    ItemsSoldEngine engine(QStringLiteral("ItemsSold.pdf"));
    engine.fillCell("top", QStringLiteral("T1"), ToAnsi(Label2->text()));
    engine.fillCell("top", QStringLiteral("T2"), ToAnsi(Label3->text()));
    engine.fillCell("top", QStringLiteral("T3"), Shared().SiteName);
    engine.report().PrintSection(QStringLiteral("top"));
    // The engine prints the list as it stands, filtered or not, with the gift row.
    QByteArrayList rows;
    for (int row = 0; row < MList1->rowCount(); ++row)
        rows.append(MList1->rowText(row));
    for (const QList<EngineRow> &block : EngineBlocks(rows)) {
        for (int row = 1; row <= 3; ++row) {
            for (int field = 1; field <= 3; ++field)
                engine.fillCell(
                    "mid", QStringLiteral("T%1%2").arg(row).arg(field), row <= block.size() ? block[row - 1][field - 1] : QByteArray());
        }
        engine.report().PrintSection(QStringLiteral("mid"));
    }
    engine.fillCell("Bottom", QStringLiteral("TS"), ToAnsi(Label7->text()));
    engine.report().PrintSection(QStringLiteral("Bottom"));
    engine.report().EndReport();
    TellWherePrinted(this, engine.pdfPath());
}

// No inventory window exists here, so the door always answers with its message and leaves the
// list and totals as they are.
void QlonItemsSold::SSCommand8_Click()
{
    try {
        showInventory();
    } catch (const RuntimeError &) {
        Dialogs::showMessage(this, QStringLiteral("Option Error"), QStringLiteral("This option is only avaliable from the Back Office"));
    }
}

void QlonItemsSold::showInventory()
{
    if (!m_inventory)
        throw RuntimeError(RuntimeError::ObjectNotSet);
    m_inventory->Show();
    m_inventory->setLabel2Caption(0, Label2->text());
    m_inventory->setLabel2Caption(1, Label3->text());
    m_inventory->setLabel2Caption(2, Label7->text());
    QString kind;
    for (const auto &[option, number] : {std::pair{SSOption1, "1"}, std::pair{SSOption2, "2"}, std::pair{SSOption3, "3"}}) {
        if (option->isChecked())
            kind = QString::fromLatin1(number);
    }
    m_inventory->setLabel3Caption(kind);
    for (int row = 0; row < MList1->rowCount(); ++row)
        m_inventory->MList1_AddItem(MList1->rowText(row));
}

void QlonItemsSold::setMaximum(int maximum)
{
    ProgressBar1->setMaximum(maximum);
}

void QlonItemsSold::setValue(int value)
{
    ProgressBar1->setValue(value);
    if (!m_monthStatus.isEmpty())
        SSPanel1->setText(m_monthStatus + QLatin1Char(' ') + QString::number(value) + QLatin1Char('%'));
}

bool QlonItemsSold::stopRequested()
{
    m_yield();
    return Shared().StopRequested;
}

void QlonItemsSold::monthStarted(QDate month)
{
    m_monthStatus = QStringLiteral("Reading Sales from ") + FromAnsi(Format(month, "MMMM"));
}

} // namespace qlon
