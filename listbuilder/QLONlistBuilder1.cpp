#include "listbuilder/QLONlistBuilder1.h"

#include "core/Ansi.h"
#include "core/Clock.h"
#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/ErrorIgnoring.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/HostPath.h"
#include "core/Version.h"
#include "core/Yield.h"
#include "listbuilder/ItemsSoldEngine.h"
#include "listbuilder/SalesWorker.h"
#include "listbuilder/ServerSalesScreen.h"
#include "listbuilder/logic/ItemsSoldReport.h"
#include "platform/InstanceGuard.h"
#include "store/CarriedColumns.h"
#include "store/Departments.h"
#include "store/ItemRec500.h"
#include "store/ProgramGlobals.h"
#include "store/SalesStore.h"
#include "store/SiteConfig.h"
#include "store/StartDates.h"
#include "ui/Controls.h"
#include "ui/Dialogs.h"
#include "ui/MList.h"
#include "ui/Program.h"
#include "ui/ScreenKeys.h"
#include "ui/VbComboBox.h"

#include <QButtonGroup>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qlon {

namespace {

const QString alreadyRunningText =
    QStringLiteral("List Builder is already running, You will need to run your task manager and end all prior instances of it or "
                   "reboot this computer. Should you decide to reboot - after restart you must reboot all the other stations "
                   "connected to this file server.");

// The row in work stands out in red; afterwards it takes the look of the others again.
constexpr quint32 rowInWorkColour = 255;

// The time between two times of day in the form "HH:MM:SS"; a run over midnight shows the
// distance between the two.
QString elapsedBetween(const QString &start, const QString &end)
{
    const std::optional<QTime> from = ToTime(ToAnsi(start));
    const std::optional<QTime> to = ToTime(ToAnsi(end));
    if (!from || !to)
        return QStringLiteral("00:00:00");
    const int seconds = std::abs(from->secsTo(*to));
    return FromAnsi(Format(QTime(0, 0).addSecs(seconds), "HH:MM:SS"));
}

void showScreen(const QString &name)
{
    if (QWidget *screen = Screens().touch(name))
        screen->show();
}

} // namespace

QLONlistBuilder1::QLONlistBuilder1(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Items Sold"));
    createControls();
    layOutControls();
    connectHandlers();
}

void QLONlistBuilder1::createControls()
{
    MList1 = Named(new MList(this), QStringLiteral("MList1"));
    MList1->setColumns(
        {{QStringLiteral("Item"), 150}, {QStringLiteral("Type"), 60}, {QStringLiteral("Price"), 75}, {QStringLiteral("Sold"), 70},
            {QStringLiteral("Volume"), 150}, {QStringLiteral("unit"), 40}, {QStringLiteral("Vol"), 40}, {QStringLiteral("Actual"), 20}});

    SSFrame1 = Named(new QGroupBox(QStringLiteral("Report "), this), QStringLiteral("SSFrame1"));
    SSOption1 = Named(new QRadioButton(QStringLiteral("Food"), SSFrame1), QStringLiteral("SSOption1"));
    SSOption2 = Named(new QRadioButton(QStringLiteral("Bar"), SSFrame1), QStringLiteral("SSOption2"));
    SSOption3 = Named(new QRadioButton(QStringLiteral("Both"), SSFrame1), QStringLiteral("SSOption3"));
    SSOption5 = Named(new QRadioButton(QStringLiteral("Retail"), SSFrame1), QStringLiteral("SSOption5"));
    SSOption6 = Named(new QRadioButton(QStringLiteral("All"), SSFrame1), QStringLiteral("SSOption6"));
    SSOption7 = Named(new QRadioButton(QStringLiteral("Seclect Below"), SSFrame1), QStringLiteral("SSOption7"));
    // Its caption is a department's name from the site's list: the option keeps its width
    // however long the name.
    SSOption7->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    SSOption7->setMinimumWidth(120);
    Combo1 = Named(new VbComboBox(SSFrame1), QStringLiteral("Combo1"));
    Combo1->setText("More");
    Command3 = MakeButton(SSFrame1, QStringLiteral("Command3"), QStringLiteral("Edit"));
    SSCommand2 = MakeButton(this, QStringLiteral("SSCommand2"), QStringLiteral("Load List"));

    Shape1 = Named(new QFrame(this), QStringLiteral("Shape1"));
    Shape2 = Named(new QFrame(this), QStringLiteral("Shape2"));
    MonthView1 = MakeCalendar(Shape1, QStringLiteral("MonthView1"));
    MonthView2 = MakeCalendar(Shape2, QStringLiteral("MonthView2"));
    Label2 = MakeLabel(Shape1, QStringLiteral("Label2"), QStringLiteral("02-02-02"));
    Label3 = MakeLabel(Shape2, QStringLiteral("Label3"), QStringLiteral("02-02-02"));
    SSCommand10 = MakeButton(this, QStringLiteral("SSCommand10"), QStringLiteral("Today"));
    Combo2 = Named(new VbComboBox(this), QStringLiteral("Combo2"));
    Combo2->setText("Combo2");
    Combo3 = Named(new VbComboBox(this), QStringLiteral("Combo3"));
    Combo3->setText("Combo3");

    SSCommand4 = MakeButton(this, QStringLiteral("SSCommand4"), QStringLiteral("Calculate Sales"));
    Command1 = MakeButton(this, QStringLiteral("Command1"), QStringLiteral("Calculate Sales"));
    SSCommand5 = MakeButton(this, QStringLiteral("SSCommand5"), QStringLiteral("Stop"));
    SSCommand6 = MakeButton(this, QStringLiteral("SSCommand6"), QStringLiteral("PRINT"));
    SSCommand3 = MakeButton(this, QStringLiteral("SSCommand3"), QStringLiteral("Remove Items with no Units Sales"));
    SSCommand7 = MakeButton(
        this, QStringLiteral("SSCommand7"), QStringLiteral("Export Sales"), QStringLiteral("Export Sales to a comma seperated value file"));
    SSCommand8 =
        MakeButton(this, QStringLiteral("SSCommand8"), QStringLiteral("Rebuild Items"), QStringLiteral("Build a new list of Items"));
    SSCommand9 =
        MakeButton(this, QStringLiteral("SSCommand9"), QStringLiteral("Individual Sales"), QStringLiteral("Build a new list of Items"));
    // Our own way in to the Items Sold analysis, below the form's commands so that none of them moves.
    cmdItemsSold = MakeButton(this, QStringLiteral("cmdItemsSold"), QStringLiteral("Items Sold"),
        QStringLiteral("The Items Sold analysis of the monthly sales files"));
    SSCommand1 = MakeButton(this, QStringLiteral("SSCommand1"), QStringLiteral("Done"));
    const QString sortCaptions[] = {
        QStringLiteral("Total Sold"), QStringLiteral("Item Name"), QStringLiteral("Sales Volume"), QStringLiteral("No Sort")};
    for (int index = 0; index < 4; ++index)
        SSOption4[index] = Named(new QRadioButton(sortCaptions[index], this), ArrayName("SSOption4", index));
    SSCheck1 = Named(new QCheckBox(QStringLiteral("Don't Show Zero Sales"), this), QStringLiteral("SSCheck1"));
    Command2 = MakeButton(this, QStringLiteral("Command2"), QStringLiteral("Command2"));
    Command4 = MakeButton(this, QStringLiteral("Command4"), QStringLiteral("Command4"));

    const QString captions[] = {QStringLiteral("From "), QStringLiteral("To "), QStringLiteral("Start Time"), QStringLiteral("End Time"),
        QStringLiteral("Sort By"), QStringLiteral("Elapsed Time")};
    for (int index = 0; index < int(Label1.size()); ++index)
        Label1[index] = MakeLabel(this, ArrayName("Label1", index), captions[index]);
    Label4[0] = MakeLabel(this, ArrayName("Label4", 0), QStringLiteral("Current"));
    Label4[1] = MakeLabel(this, ArrayName("Label4", 1), QStringLiteral("Item Count"));
    Label5 = MakeLabel(this, QStringLiteral("Label5"), QString());
    Label6 = MakeLabel(this, QStringLiteral("Label6"), QString());
    Label7 = MakeLabel(this, QStringLiteral("Label7"), QStringLiteral("Label7"));
    Label8 = MakeLabel(this, QStringLiteral("Label8"), QStringLiteral("Label8"));
    Label9 = MakeLabel(this, QStringLiteral("Label9"), QStringLiteral("Label9"));
    Label10 = MakeLabel(this, QStringLiteral("Label10"), QStringLiteral("00:00:00"));
    Label11 = MakeLabel(this, QStringLiteral("Label11"), QStringLiteral("Version"));
    SSPanel3 = Named(new QFrame(this), QStringLiteral("SSPanel3"));

    // The first state: nothing loaded yet.
    SSCommand4->setEnabled(false);
    SSCommand7->setEnabled(false);
    SSCommand3->setEnabled(false);
    for (QWidget *shownByARun : {static_cast<QWidget *>(SSCommand5), static_cast<QWidget *>(SSCommand6), static_cast<QWidget *>(SSCheck1),
             static_cast<QWidget *>(Label10), static_cast<QWidget *>(Label1[5])}) {
        KeepPlaceWhenHidden(shownByARun);
        shownByARun->hide();
    }
}

void QLONlistBuilder1::layOutControls()
{
    auto *reportLayout = new QGridLayout(SSFrame1);
    const std::array<QRadioButton *, 6> reportOptions = {SSOption1, SSOption2, SSOption3, SSOption5, SSOption6, SSOption7};
    m_reportOptions = new QButtonGroup(this);
    for (int index = 0; index < int(reportOptions.size()); ++index) {
        m_reportOptions->addButton(reportOptions[index]);
        reportLayout->addWidget(reportOptions[index], index / 2, index % 2);
    }
    reportLayout->addWidget(Combo1, 3, 0);
    reportLayout->addWidget(Command3, 3, 1);

    for (auto [shape, caption, calendar, dateLabel] :
        {std::tuple{Shape1, Label1[0], MonthView1, Label2}, std::tuple{Shape2, Label1[1], MonthView2, Label3}}) {
        shape->setFrameShape(QFrame::Box);
        auto *dateLayout = new QVBoxLayout(shape);
        caption->setParent(shape);
        dateLayout->addWidget(caption);
        dateLayout->addWidget(calendar);
        dateLayout->addWidget(dateLabel);
    }

    auto *times = new QGridLayout;
    times->addWidget(Label1[2], 0, 0);
    times->addWidget(Combo2, 0, 1);
    times->addWidget(Label1[3], 1, 0);
    times->addWidget(Combo3, 1, 1);
    times->addWidget(SSCommand10, 2, 0, 1, 2);

    auto *commands = new QVBoxLayout;
    for (QWidget *command : {static_cast<QWidget *>(SSCommand2), static_cast<QWidget *>(SSCommand4), static_cast<QWidget *>(SSCommand5),
             static_cast<QWidget *>(SSCommand6), static_cast<QWidget *>(SSCommand3), static_cast<QWidget *>(SSCommand7),
             static_cast<QWidget *>(SSCommand8), static_cast<QWidget *>(SSCommand9), static_cast<QWidget *>(SSCommand1)})
        commands->addWidget(command);

    auto *sorting = new QVBoxLayout;
    m_sortOptions = new QButtonGroup(this);
    sorting->addWidget(Label1[4]);
    for (QRadioButton *option : SSOption4) {
        m_sortOptions->addButton(option);
        sorting->addWidget(option);
    }
    sorting->addWidget(SSCheck1);

    // One column beside the calendars and the list, so that the screen fits a 1024 pixel display.
    auto *side = new QVBoxLayout;
    side->addLayout(times);
    side->addLayout(commands);
    side->addSpacing(Pixels(120));
    side->addLayout(sorting);
    side->addStretch();
    side->addWidget(cmdItemsSold);

    auto *status = new QHBoxLayout;
    for (QWidget *part : {static_cast<QWidget *>(Label4[0]), static_cast<QWidget *>(Label6), static_cast<QWidget *>(Label4[1]),
             static_cast<QWidget *>(Label5), static_cast<QWidget *>(Label7), static_cast<QWidget *>(Label8), static_cast<QWidget *>(Label9),
             static_cast<QWidget *>(Label1[5]), static_cast<QWidget *>(Label10)})
        status->addWidget(part);
    status->addStretch();
    for (QWidget *part : {static_cast<QWidget *>(Label11), static_cast<QWidget *>(Command1), static_cast<QWidget *>(Command2),
             static_cast<QWidget *>(Command4), static_cast<QWidget *>(SSPanel3)})
        status->addWidget(part);
    SSPanel3->setFrameShape(QFrame::Panel);
    SSPanel3->setFrameShadow(QFrame::Sunken);
    SSPanel3->setFixedSize(24, 24);

    auto *screen = new QGridLayout(this);
    screen->addWidget(SSFrame1, 0, 0);
    screen->addWidget(Shape1, 0, 1);
    screen->addWidget(Shape2, 0, 2);
    screen->addLayout(side, 0, 3, 2, 1);
    screen->addWidget(MList1, 1, 0, 1, 3);
    screen->addLayout(status, 2, 0, 1, 4);
    screen->setRowStretch(1, 1);
}

void QLONlistBuilder1::connectHandlers()
{
    OnEvent(SSCommand2, &QPushButton::clicked, this, [this] { SSCommand2_Click(); });
    OnEvent(SSCommand4, &QPushButton::clicked, this, [this] { SSCommand4_Click(); });
    OnEvent(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    OnEvent(SSCommand5, &QPushButton::clicked, this, [this] { SSCommand5_Click(); });
    OnEvent(SSCommand7, &QPushButton::clicked, this, [this] { SSCommand7_Click(); });
    OnEvent(SSCommand6, &QPushButton::clicked, this, [this] { SSCommand6_Click(); });
    OnEvent(SSCommand3, &QPushButton::clicked, this, [this] { SSCommand3_Click(); });
    OnEvent(Command4, &QPushButton::clicked, this, [this] { BLD_DATA2(); });
    for (int index = 0; index < int(SSOption4.size()); ++index)
        OnEvent(SSOption4[index], &QRadioButton::clicked, this, [this, index] { SSOption4_Click(index); });
    OnEvent(Combo1, &VbComboBox::Change, this, [this] { Combo1_Change(); });
    OnEvent(Combo1, &VbComboBox::Click, this, [this] { Combo1_Change(); });
    OnEvent(MonthView1, &QCalendarWidget::selectionChanged, this, [this] { MonthView_Click(); });
    OnEvent(MonthView2, &QCalendarWidget::selectionChanged, this, [this] { MonthView_Click(); });
    OnEvent(SSCommand10, &QPushButton::clicked, this, [this] { SSCommand10_Click(); });
    OnEvent(Command3, &QPushButton::clicked, this, [this] { Command3_Click(); });
    OnEvent(Command2, &QPushButton::clicked, this, [] { showScreen(QStringLiteral("QLONlistBuilder3")); });
    OnEvent(SSCommand8, &QPushButton::clicked, this, [] { showScreen(QStringLiteral("QlonExit")); });
    OnEvent(SSCommand9, &QPushButton::clicked, this, [] {
        if (auto *screen = dynamic_cast<ServerSalesScreen *>(Screens().touch(QStringLiteral("QLONserverLiquor"))))
            screen->OpenServerSales();
    });
    OnEvent(SSCommand1, &QPushButton::clicked, this, [this] { SSCommand1_Click(); });
    MarkAsProgramsEnd(SSCommand1);
    OnEvent(cmdItemsSold, &QPushButton::clicked, this, [] { ShowScreenInFront(QStringLiteral("QlonItemsSold")); });
}

void QLONlistBuilder1::Form_Load()
{
    if (AnotherInstanceRuns()) {
        Dialogs::showMessage(this, QStringLiteral("Already Running"), alreadyRunningText);
        Dialogs::noteForScript(QStringLiteral("Already Running: another qlon works on this site; try again once it has ended"));
        EndProgram(1);
    }
    Label11->setText(QStringLiteral("Version ") + QLatin1String(ProgramVersion));
    ReadConfiguration();
    // Composed before the worker's load fills in an empty DataRoot, deliberately: a site without
    // QlonINI.dat looks for its start dates in the working folder, and so doesn't find them.
    const QString startDatesPath = HostPath(Site().DataRoot + "data\\ListbuilderINI.dat");
    Screens().touch(QStringLiteral("QLONlistBuilder2"));

    if (!FileExists(startDatesPath)) {
        // The pickers deliberately stay unfilled: Calculate Sales copes with "Combo2" and "Combo3".
        MonthView1->setSelectedDate(Today());
        MonthView2->setSelectedDate(Today());
        showCalendarDates();
        return;
    }
    // From here on a failing statement is left out.
    StartDates dates;
    SkipOnFailure([&] {
        CloseAll();
        dates = ReadStartDates(startDatesPath);
    });
    CloseAll();
    if (const std::optional<QDate> from = ToDate(dates.from.value_or(QByteArray())))
        MonthView1->setSelectedDate(*from);
    if (const std::optional<QDate> to = ToDate(dates.to.value_or(QByteArray())))
        MonthView2->setSelectedDate(*to);
    showCalendarDates();
    EnsureDataRoot();
    SkipOnFailure([this] { loadDepartments(); });
    Fill_Times();
}

void QLONlistBuilder1::loadDepartments()
{
    const QString path = HostPath(DataPath("data\\Departments.dat"));
    if (!FileExists(path)) {
        CloseAll();
        EnsureDepartmentsFile(path, MainScreenDepartments());
    }
    // Blank lines take no position, so Combo1 and CategoryTable stay in step.
    int position = -1;
    for (const QByteArray &name : ReadDepartmentNames(path)) {
        const QByteArray trimmed = TrimBlanks(name);
        if (trimmed.isEmpty())
            continue;
        ++position;
        Combo1->addEntry(trimmed);
        SkipOnFailure([&] { Shared().CategoryTable.at(position, 0) = name; });
    }
}

QLONlistBuilder1 *MainScreen()
{
    return Screens().touch<QLONlistBuilder1>(QStringLiteral("QLONlistBuilder1"));
}

QByteArrayList TimeOfDayLines()
{
    const char *minutes[] = {"00", "10", "15", "20", "25", "30", "35", "40", "45", "50", "55"}; // deliberately no "05"
    QByteArrayList lines;
    for (const char *halfOfDay : {"am", "pm"}) {
        for (int hour = 0; hour < 12; ++hour) {
            const QByteArray hourText = QByteArray::number(hour == 0 ? 12 : hour).rightJustified(2, '0');
            for (const char *minute : minutes)
                lines.append(hourText + ':' + minute + ' ' + halfOfDay);
        }
    }
    return lines;
}

void QLONlistBuilder1::Fill_Times()
{
    for (const QByteArray &line : TimeOfDayLines()) {
        Combo2->addEntry(line);
        Combo3->addEntry(line);
    }
    // Deliberately in capitals, and "11:59 PM" is not among the lines.
    Combo2->setText("12:00 AM");
    Combo3->setText("11:59 PM");
}

void QLONlistBuilder1::showCalendarDates()
{
    Label2->setText(FromAnsi(ShortDate(MonthView1->selectedDate())));
    Label3->setText(FromAnsi(ShortDate(MonthView2->selectedDate())));
}

CategoryChoice QLONlistBuilder1::categoryChoice() const
{
    CategoryChoice choice;
    choice.all = SSOption6->isChecked();
    choice.retail = SSOption5->isChecked();
    choice.both = SSOption3->isChecked();
    choice.food = SSOption1->isChecked();
    choice.bar = SSOption2->isChecked();
    choice.department = SSOption7->isChecked();
    choice.departmentCaption = ToAnsi(SSOption7->text());
    return choice;
}

void QLONlistBuilder1::SSCommand2_Click()
{
    setCursor(Qt::WaitCursor);
    MList1->clear();
    const QByteArray listBuilderCopy = DataPath("Temp\\TempInvLB.dat");
    Shared().ItemListPath = FileExists(HostPath(listBuilderCopy)) ? listBuilderCopy : DataPath("Temp\\TempInv.dat");
    RecordFile &catalogue = Files().OpenRandom(1, HostPath(Shared().ItemListPath), ItemRec500::size);
    catalogue.LockAll();
    for (const ListedItem &item : ListItems(catalogue, categoryChoice())) {
        MList1->addRow(item.text);
        MList1->setRowTag(MList1->lastAddedRow(), item.tag);
    }
    catalogue.UnlockAll();
    Files().Close(1);
    Label5->setText(QString::number(MList1->rowCount()));
    unsetCursor();
    SSCommand4->setEnabled(true);
}

void QLONlistBuilder1::SSCommand4_Click()
{
    ProgramGlobals &shared = Shared();
    shared.ScreenMode.clear();
    for (ListRows *rows : {&MList2, &MList3, &MList4})
        rows->clear();
    // The values for a screen whose hour lists were never filled.
    if (Combo2->text() == "Combo2")
        Combo2->setText("12:00 am");
    if (Combo3->text() == "Combo3")
        Combo3->setText("11:59 pm");
    for (int row = 0; row < categoryRows; ++row) {
        shared.CategoryTable.at(row, 1) = "0";
        MList2.addRow("0");
        MList3.addRow("0");
    }
    Label7->clear();
    Label10->setText(QStringLiteral("00:00:00"));
    SSCommand7->setEnabled(true);
    SSCommand5->show();
    Label8->setText(FromAnsi(Format(TimeOfDay(), "HH:MM:SS")));

    shared.TempItemsPath = DataPath("TempItems.dat");
    CloseAll();
    TextFile(HostPath(shared.TempItemsPath), TextFile::Mode::Output).WriteFields({"ITEMNAME", "UNITS SOLD", "SALES TOTAL"});
    CloseAll();
    {
        TextFile trace(HostPath(DataPath("TempItemsRec.dat")), TextFile::Mode::Output);
        trace.WriteFields({"This the DB REcord Number as the item is added to the list", "", ""});
        trace.WriteFields({"ITEMNAME", "DB REcord", "UnitSold", "OrderDate", "ReceiptID", " Order Number", "SaleType"});
    }
    CloseAll();
    removeRunRows();
    Yield();
    Command1_Click();
    Yield();
}

void QLONlistBuilder1::removeRunRows()
{
    // The old walk began again from the top after each removal; removing every such row in one
    // pass leaves the same rows in the same order.
    for (int row = MList1->rowCount() - 1; row >= 0; --row) {
        const QByteArray text = MList1->rowText(row);
        if (text.isEmpty() || text.startsWith("**"))
            MList1->removeRow(row);
    }
}

void QLONlistBuilder1::Command1_Click()
{
    ProgramGlobals &shared = Shared();
    SSCommand3->setEnabled(true);
    setCursor(Qt::WaitCursor);
    for (int entry = 0; entry < Combo1->entryCount(); ++entry)
        Combo1->setEntryNumber(entry, 0);
    auto *worker = dynamic_cast<SalesWorker *>(Screens().touch(QStringLiteral("QLONlistBuilder2")));
    worker->BeginRun();
    const int rows = MList1->rowCount();
    for (shared.CurrentRow = 0; shared.CurrentRow < rows; ++shared.CurrentRow) {
        const int row = shared.CurrentRow;
        const QByteArray tag = MList1->rowTag(row);
        MList1->setRowColour(row, rowInWorkColour);
        MList1->setRowSelected(row, true);
        Label6->setText(QString::number(row + 1));
        worker->WriteLabels(FromAnsi(tag), QStringLiteral("Searching - Just A Moment"));
        worker->Get_Sales();
        MList1->setRowColour(row, ListRows::buttonFace);
        if (Label7->text() == QLatin1String("Stop")) {
            worker->EndRun();
            unsetCursor();
            return;
        }
    }
    worker->EndRun();
    unsetCursor();
    SSCommand5->hide();
    Label9->setText(FromAnsi(Format(TimeOfDay(), "HH:MM:SS")));
    Label10->setText(elapsedBetween(Label8->text(), Label9->text()));
    Label10->show();
    Label1[5]->show();
    SSCommand6->show();
    // From here on a failing statement is left out.
    addTotalRows();
}

void QLONlistBuilder1::addTotalRows()
{
    const QByteArray separator(20, '*');
    MList1->addRow(QByteArray());
    MList1->addRow(separator);
    MList4.addRow(separator);
    QByteArrayList departments;
    for (int entry = 0; entry < Combo1->entryCount(); ++entry)
        departments.append(Combo1->entryText(entry));
    for (const QByteArray &total : DepartmentTotalRows(MList2, MList3, departments)) {
        MList1->addRow(total);
        MList4.addRow(total);
    }
    SkipOnFailure([this] { MList1->setRowSelected(MList1->rowCount() - 1, true); });
}

void QLONlistBuilder1::SSCommand5_Click()
{
    SSCommand5->hide();
    Shared().ScreenMode = "Stop";
    Label7->setText(QStringLiteral("Stop"));
    Yield();
}

void QLONlistBuilder1::SSOption4_Click(int index)
{
    setCursor(Qt::WaitCursor);
    SSOption4[3]->setEnabled(false);
    // Setting the hourglass of the analysis screen creates it without showing it; its pointer
    // stays so, deliberately.
    if (QWidget *itemsSold = Screens().touch(QStringLiteral("QlonItemsSold")))
        itemsSold->setCursor(Qt::WaitCursor);
    switch (index) {
    case 0: Sort_ByTotalSold(); break;
    case 1: Sort_ByItemName(); break;
    case 2: Sort_BySalesVolume(); break;
    default: break;
    }
    unsetCursor();
}

void QLONlistBuilder1::SSCommand7_Click()
{
    const QString exportName = QStringLiteral("ExportSales.CSV");
    QString target = Dialogs::askSaveFileName(this, exportName, QStringLiteral("Comma separated values (*.CSV *.csv)"));
    // Deliberately kept: a cancelled dialog still holds its name, so the copy goes there.
    if (target.isEmpty())
        target = HostPath(ToAnsi(exportName));
    FileCopy(HostPath(DataPath("tempitems.dat")), target);
}

void QLONlistBuilder1::SSCommand6_Click()
{
    // The other template name is only tested for being a text; that file is never opened.
    if (!DataPath("ItemSold.vrd").isEmpty())
        Print_ItemsSold();
    if (m_report && m_report->report().pageNumber() > 0)
        TellWherePrinted(this, m_report->pdfPath());
}

void QLONlistBuilder1::Inilize_Print()
{
    try {
        m_report.reset();
        m_report = std::make_unique<ItemsSoldEngine>(QStringLiteral("ItemsSold.pdf"));
        unsetCursor();
    } catch (const RuntimeError &) {
        // Deliberately kept: the old handler passed its title where the buttons go, so its own
        // message failed with a type mismatch and the program ended with that.
        throw RuntimeError(RuntimeError::TypeMismatch);
    }
}

namespace {

// Prints one "mid" line of three items.
void printLine(ItemsSoldEngine &engine, const std::array<PrintedItem, 3> &line)
{
    for (int group = 1; group <= 3; ++group) {
        const PrintedItem &item = line[group - 1];
        for (const auto &[part, value] : {std::pair{1, item.units}, std::pair{2, item.name}, std::pair{3, item.volume}})
            engine.fillCell("mid", QStringLiteral("T%1%2").arg(group).arg(part), value);
    }
    engine.report().PrintSection(QStringLiteral("mid"));
}

} // namespace

void QLONlistBuilder1::Print_ItemsSold()
{
    Inilize_Print();
    ItemsSoldEngine &engine = *m_report;
    engine.fillCell("top", QStringLiteral("T1"), ToAnsi(Label2->text()));
    engine.fillCell("top", QStringLiteral("T2"), ToAnsi(Label3->text()));
    // The site name is known only once the printer status screen has read the configuration.
    engine.fillCell("top", QStringLiteral("T3"), Shared().SiteName);
    engine.report().PrintSection(QStringLiteral("top"));
    const PrintedList printed = ItemsSoldPrintLayout(MList1->rows());
    for (const std::array<PrintedItem, 3> &line : printed.lines)
        printLine(engine, line);
    engine.fillCell("Bottom", QStringLiteral("TS"), Currency(printed.grandTotal));
    engine.report().PrintSection(QStringLiteral("Bottom"));
    engine.report().EndReport();
}

void QLONlistBuilder1::SSCommand3_Click()
{
    setCursor(Qt::WaitCursor);
    SSCommand3->setEnabled(false);
    // The walk selects each row it looks at, as the user sees it end. It runs on plain rows and
    // the list takes what is left at once: a relayout of the view per removal would make a long
    // list slow beyond use.
    ListRows rows;
    for (int row = 0; row < MList4.rowCount(); ++row)
        rows.addRow(MList4.rowText(row));
    std::optional<int> selected;
    RemoveRowsWithoutUnits(rows, [&](int row, int rowCount) {
        if (row < rowCount)
            selected = row;
    });
    // A selected row that the walk removed hands the selection on to the row that takes its
    // place, or to the new last row, as the list does.
    if (selected && *selected >= rows.rowCount())
        selected = rows.rowCount() > 0 ? std::optional(rows.rowCount() - 1) : std::nullopt;
    MList1->clear();
    for (int row = 0; row < rows.rowCount(); ++row)
        MList1->addRow(rows.rowText(row));
    if (selected)
        MList1->setRowSelected(*selected, true);
    unsetCursor();
}

void QLONlistBuilder1::BLD_DATA2()
{
    ProgramGlobals &shared = Shared();
    // Joined with a backslash of its own: "C:\Quillon\\data\TempItems.dat".
    shared.TempItemsPath = DataPath("\\data\\TempItems.dat");
    CloseAll();
    TextFile dump(HostPath(shared.TempItemsPath), TextFile::Mode::Output);
    const std::unique_ptr<SalesStore> store = OpenSiteSalesStore(DataPath(SalesDatabaseFile));
    DumpSpanSales(*store, ToAnsi(Label2->text()), ToAnsi(Label3->text()), Combo3->text(), dump);
    CloseAll();
}

void QLONlistBuilder1::Sort_ByTotalSold()
{
    SkipOnFailure([this] { MList1->setSortKey("5d "); });
    SkipOnFailure([this] { MList1->setSorted(true); });
}

void QLONlistBuilder1::Sort_ByItemName()
{
    MList1->setSortKey("0a");
    MList1->setSorted(true);
}

void QLONlistBuilder1::Sort_BySalesVolume()
{
    Yield();
    MList1->setSorted(false);
    SkipOnFailure([this] { MList1->setSorted(true); });
    SkipOnFailure([this] { MList1->setSortKey("6d"); });
    SkipOnFailure([this] { MList1->setSorted(true); });
}

void QLONlistBuilder1::Sort_BySold()
{
    for (int pass = 0; pass < 2; ++pass) {
        MList1->setSortKey("3d ");
        MList1->setSorted(true);
    }
}

void QLONlistBuilder1::Sort_ByPrice()
{
    MList1->setSortKey("2d ");
    MList1->setSorted(false);
    MList1->setSorted(true);
    MList1->setComparer(&m_comparer);
    MList1->setSorted(false);
    MList1->setSorted(true);
}

void QLONlistBuilder1::Combo1_Change()
{
    SSOption7->setText(FromAnsi(Combo1->text()));
}

void QLONlistBuilder1::MonthView_Click()
{
    showCalendarDates();
}

void QLONlistBuilder1::SSCommand10_Click()
{
    MonthView1->setSelectedDate(Today());
    MonthView2->setSelectedDate(Today());
    showCalendarDates();
}

void QLONlistBuilder1::Command3_Click()
{
    Shared().ScreenMode = "UPCHARGE2";
    showScreen(QStringLiteral("QlonUpDept"));
}

void QLONlistBuilder1::SSCommand1_Click()
{
    DoneWithScreen(this);
}

} // namespace qlon
