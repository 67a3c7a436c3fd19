// The program driven end to end through its scripting mode, as a manager's nightly job would.
#include "core/RecordFile.h"
#include "demo/DemoSite.h"
#include "store/IniRec2300.h"
#include "tests/platform/StationHold.h"
#include "tests/support/PrivateCups.h"
#include "tests/support/TempSite.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

namespace qlon {
namespace {

struct Outcome
{
    int status = -1;
    QString out;
    QString err;
    QStringList lines() const { return out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
};

class ScriptTest : public ::testing::Test
{
protected:
    QStringList siteArguments() const
    {
        return {
            QStringLiteral("--drive"), QStringLiteral("C=") + site.driveFolder(), QStringLiteral("--today"), QStringLiteral("2026-11-23")};
    }

    QStringList arguments(const QStringList &extra = {}) const
    {
        return (siteOnTheCommandLine ? siteArguments() : QStringList{QStringLiteral("--today"), QStringLiteral("2026-11-23")}) +
            QStringList{QStringLiteral("--script"), QStringLiteral("-")} + extra;
    }

    Outcome run(const QString &script, const QStringList &extra = {},
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment()) const
    {
        return runProgram(arguments(extra), script, environment);
    }

    // `qlon report` as cron runs it: no display, no platform chosen, no runtime folder.
    Outcome report(const QStringList &words) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
            environment.remove(QLatin1String(name));
        return runProgram(siteArguments() + QStringList{QStringLiteral("report")} + words, {}, environment);
    }

    static Outcome runProgram(const QStringList &arguments, const QString &input, const QProcessEnvironment &environment)
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(QLON_PROGRAM), arguments);
        process.write(input.toUtf8());
        process.closeWriteChannel();
        Outcome result;
        if (!process.waitForFinished(60000))
            return result;
        result.status = process.exitCode();
        result.out = QString::fromUtf8(process.readAllStandardOutput());
        result.err = QString::fromUtf8(process.readAllStandardError());
        return result;
    }

    void writeDemoSite() const { WriteDemoSite(site.driveFolder(), QDate(2026, 11, 23)); }

    test::TempSite site;
    bool siteOnTheCommandLine = true;
};

TEST_F(ScriptTest, WithoutStartDatesThePickersStayUnfilled)
{
    site.write(QStringLiteral("Quillon/QlonINI.dat"), IniRec2300().bytes());
    const Outcome result = run(QStringLiteral("get QLONlistBuilder1.Combo1\nget QLONlistBuilder1.Combo1 count\n"
                                              "get QLONlistBuilder1.Combo2\nget QLONlistBuilder1.Combo2 count\n"
                                              "get QLONlistBuilder1.Combo3\nget QLONlistBuilder1.Label2\nget QLONlistBuilder1.Label3\n"
                                              "get QLONlistBuilder1.Label11\n"));
    EXPECT_EQ(result.status, 0) << result.err.toStdString();
    EXPECT_EQ(result.lines(),
        (QStringList{QStringLiteral("message: QLONListBuilder | Data error event hit err:"
                                    "Could not find file 'c:\\Quillon\\data\\Quillon.mdb'."),
            QStringLiteral("More"), QStringLiteral("0"), QStringLiteral("Combo2"), QStringLiteral("0"), QStringLiteral("Combo3"),
            QStringLiteral("11/23/2026"), QStringLiteral("11/23/2026"), QStringLiteral("Version 1.0.0")}));
}

TEST_F(ScriptTest, TheDemoSiteComesUpInTheFirstState)
{
    writeDemoSite();
    const Outcome result = run(QStringLiteral(
        "get QLONlistBuilder1.Combo1\nget QLONlistBuilder1.Combo1 count\nget QLONlistBuilder1.Combo1 row 2\n"
        "get QLONlistBuilder1.SSOption7\nget QLONlistBuilder1.Label2\nget QLONlistBuilder1.Label3\n"
        "get QLONlistBuilder1.Combo2\nget QLONlistBuilder1.Combo3\nget QLONlistBuilder1.Combo2 count\n"
        "get QLONlistBuilder1.Combo2 row 10\nget QLONlistBuilder1.Combo2 row 11\nget QLONlistBuilder1.Combo3 row 263\n"
        "get QLONlistBuilder1.SSCommand4 enabled\nget QLONlistBuilder1.SSCommand5 visible\nget QLONlistBuilder1.SSCommand6 visible\n"
        "get QLONlistBuilder1.SSCommand7 enabled\nget QLONlistBuilder1.SSCommand3 enabled\nget QLONlistBuilder1.SSCommand2 enabled\n"
        "get QLONlistBuilder1.MList1 count\nget QLONlistBuilder1.SSCommand7\n"
        "get QLONlistBuilder2.Label2\nget QLONlistBuilder2 visible\n"));
    ASSERT_EQ(result.status, 0) << result.err.toStdString();
    EXPECT_EQ(result.lines(),
        (QStringList{QStringLiteral("More"), QStringLiteral("8"), QStringLiteral("Liquor"), QStringLiteral("Seclect Below"),
            QStringLiteral("11/16/2026"), QStringLiteral("11/22/2026"), QStringLiteral("12:00 AM"), QStringLiteral("11:59 PM"),
            QStringLiteral("264"), QStringLiteral("12:55 am"), QStringLiteral("01:00 am"), QStringLiteral("11:55 pm"),
            QStringLiteral("false"), QStringLiteral("false"), QStringLiteral("false"), QStringLiteral("false"), QStringLiteral("false"),
            QStringLiteral("true"), QStringLiteral("0"), QStringLiteral("Export Sales"), QStringLiteral("Loading"),
            QStringLiteral("false")}));
}

TEST_F(ScriptTest, TheSiteRememberedFromAnEarlierRunServesOneWithoutDrive)
{
    writeDemoSite();
    site.write(QStringLiteral("config/qlon/qlon.ini"), "[site]\ndrives=D=/mnt/d, C=" + site.driveFolder().toUtf8() + "\n");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), site.hostPath(QStringLiteral("config")));
    siteOnTheCommandLine = false;
    const Outcome remembered = run(QStringLiteral("get QLONlistBuilder1.Combo1 count\n"), {}, environment);
    EXPECT_EQ(remembered.status, 0) << remembered.err.toStdString();
    EXPECT_EQ(remembered.lines(), QStringList{QStringLiteral("8")});

    const Outcome overruled = run(QStringLiteral("get QLONlistBuilder1.Combo1 count\n"),
        {QStringLiteral("--drive"), QStringLiteral("C=") + site.hostPath(QStringLiteral("config"))}, environment);
    ASSERT_FALSE(overruled.lines().isEmpty());
    EXPECT_EQ(overruled.lines().last(), QStringLiteral("0")) << "the command line wins: a folder without a site";
}

TEST_F(ScriptTest, TheHourListsHaveNoFiveMinuteLine)
{
    writeDemoSite();
    QString script;
    for (int row = 0; row < 264; ++row)
        script += QStringLiteral("get QLONlistBuilder1.Combo3 row %1\n").arg(row);
    const QStringList lines = run(script).lines();
    ASSERT_EQ(lines.size(), 264);
    EXPECT_EQ(lines.filter(QStringLiteral(":05")).size(), 0);
    EXPECT_EQ(lines.filter(QStringLiteral(" pm")).size(), 132);
    EXPECT_EQ(lines.first(), QStringLiteral("12:00 am"));
}

TEST_F(ScriptTest, PickersAndButtonsDoWhatTheUserSees)
{
    writeDemoSite();
    const Outcome result = run(QStringLiteral("pick QLONlistBuilder1.Combo1 Retail\nget QLONlistBuilder1.SSOption7\n"
                                              "set QLONlistBuilder1.Combo1 Wine\nget QLONlistBuilder1.SSOption7\n"
                                              "set QLONlistBuilder1.MonthView1 02/29/2024\nget QLONlistBuilder1.Label2\n"
                                              "get QLONlistBuilder1.Label3\nclick QLONlistBuilder1.SSCommand10\n"
                                              "get QLONlistBuilder1.Label2\nget QLONlistBuilder1.Label3\n"
                                              "click QLONlistBuilder1.SSOption4(2)\nget QLONlistBuilder1.SSOption4(2)\n"
                                              "click QLONlistBuilder1.SSCommand1\nget QLONlistBuilder1.Label2\n"));
    EXPECT_EQ(result.status, 0) << result.err.toStdString();
    EXPECT_EQ(result.lines(),
        (QStringList{QStringLiteral("Retail"), QStringLiteral("Wine"), QStringLiteral("2/29/2024"), QStringLiteral("11/22/2026"),
            QStringLiteral("11/23/2026"), QStringLiteral("11/23/2026"), QStringLiteral("Sales Volume")}))
        << "Done ends the program at once: the last line never runs";
}

TEST_F(ScriptTest, CalendarsAndDateBoxesTakeADateWordFromToday)
{
    writeDemoSite();
    const Outcome result = run(QStringLiteral("set QLONlistBuilder1.MonthView1 last-of-last-month\nget QLONlistBuilder1.Label2\n"
                                              "set QLONlistBuilder1.MonthView1 today-2\nget QLONlistBuilder1.Label2\n"
                                              "set QLONserverLiquor.Text6 first-of-month\nget QLONserverLiquor.Text6\n"
                                              "set QLONserverLiquor.Text7 today\nget QLONserverLiquor.Text7\n"));
    EXPECT_EQ(result.status, 0) << result.err.toStdString();
    EXPECT_EQ(result.lines(),
        (QStringList{QStringLiteral("10/31/2026"), QStringLiteral("11/21/2026"), QStringLiteral("11/1/2026"), QStringLiteral("today")}))
        << "a time box keeps the word as it is";
}

TEST_F(ScriptTest, PlainListsAndCheckBoxesAreDrivenLikeTheProgramsOwn)
{
    writeDemoSite();
    const Outcome result = run(QStringLiteral("get TCEmployee.List1 count\nget TCEmployee.List1 row 2\n"
                                              "pick TCEmployee.List1 Dave O'Brien\nget TCEmployee.txtName\n"
                                              "get TCEmployee.chkInactive checked\n"));
    EXPECT_EQ(result.status, 0) << result.err.toStdString();
    EXPECT_EQ(result.lines(),
        (QStringList{QStringLiteral("12"), QStringLiteral("Dave O'Brien"), QStringLiteral("Dave O'Brien"), QStringLiteral("false")}));
}

TEST_F(ScriptTest, EveryKindOfControlAnswersTheCommandsItTakes)
{
    writeDemoSite();
    site.write(QStringLiteral("Quillon/data/Jobs2.dat"), "\"Server\"\r\n\"Manager\"\r\n");
    const Outcome result = run(QStringLiteral(
        "get QLONlistBuilder1.SSFrame1\nget QLONlistBuilder1.MonthView1\nget QLONlistBuilder1.SSOption6 checked\n"
        "click QLONlistBuilder1.SSCheck1\nget QLONlistBuilder1.SSCheck1 checked\nget QlonExit.ProgressBar1\n"
        "rows TCEmployee.cmbType\npick TCEmployee.cmbType Manager\nget TCEmployee.cmbType\n"
        "set TCEmployee.txtNotes two words\nget TCEmployee.txtNotes\npick TCEmployee.List1 Dave O'Brien\nget TCEmployee.List1\n"
        "show QLONlistBuilder2\nget QLONlistBuilder2.datPrimaryRS\npick QLONlistBuilder2.datPrimaryRS last\n"
        "get QLONlistBuilder2.datPrimaryRS\nget QLONlistBuilder2.grdDataGrid count\nget QLONlistBuilder2.grdDataGrid row 0\n"
        "pick QLONlistBuilder2.grdDataGrid 1\nget QLONlistBuilder2.datPrimaryRS\n"));
    ASSERT_EQ(result.status, 0) << result.err.toStdString();
    const QStringList lines = result.lines();
    ASSERT_EQ(lines.size(), 15) << result.out.toStdString();
    EXPECT_EQ(lines.mid(0, 13),
        (QStringList{QStringLiteral("Report "), QStringLiteral("11/16/2026"), QStringLiteral("false"), QStringLiteral("true"),
            QStringLiteral("-1"), QStringLiteral("Server\t"), QStringLiteral("Manager\t"), QStringLiteral("Manager"),
            QStringLiteral("two words"), QStringLiteral("Dave O'Brien"), QStringLiteral("Record: 1"),
            QStringLiteral("Record: ") + lines[12], lines[12]}));
    EXPECT_GT(lines[12].toInt(), 1000) << "the sales table's rows";
    EXPECT_EQ(lines[13].count(QLatin1Char('|')), 12) << "a grid's row is its cells joined: " << lines[13].toStdString();
    EXPECT_EQ(lines[14], QStringLiteral("Record: 1")) << "picking the grid's first row moves the recordset";
}

TEST_F(ScriptTest, FocusRunsTheHandlersATabWould)
{
    writeDemoSite();
    const Outcome result = run(QStringLiteral("get QLONserverLiquor.MonthView1 visible\nfocus QLONserverLiquor.Text2\n"
                                              "get QLONserverLiquor.MonthView1 visible\nget QLONserverLiquor.Text2 focus\n"
                                              "focus QLONserverLiquor.Text1\nget QLONserverLiquor.Text2 focus\n"));
    EXPECT_EQ(result.status, 0) << result.err.toStdString();
    EXPECT_EQ(
        result.lines(), (QStringList{QStringLiteral("false"), QStringLiteral("true"), QStringLiteral("true"), QStringLiteral("false")}));
}

TEST_F(ScriptTest, ABadLineStopsTheScriptNamingTheLine)
{
    writeDemoSite();
    const struct
    {
        const char *line;
        const char *complaint;
    } cases[] = {
        {"get QLONlistBuilder1.NoSuchControl", "unknown control"},
        {"get NoSuchScreen.Label2", "unknown screen"},
        {"frobnicate QLONlistBuilder1.Label2", "unknown command"},
        {"get QLONlistBuilder1.MList1 row 3", "has no row"},
        {"click QLONlistBuilder1.Label2", "can't be clicked"},
        {"pick QLONlistBuilder1.Combo1 Nothing Like It", "has no entry"},
        {"pick TCEmployee.List1 Nobody Here", "has no row"},
        {"get QLONlistBuilder1.Label2 checked", "has no checked state"},
        {"set QLONlistBuilder1.SSCommand2 Go", "takes no text"},
        {"get QLONlistBuilder1.SSCommand2 count", "has no count"},
        {"rows QLONlistBuilder1.Label2", "is no list"},
        {"pick QLONlistBuilder2.datPrimaryRS sideways", "has no move"},
        {"pick QLONserverLiquor.datPrimaryRS last", "QLONserverLiquor.datPrimaryRS has no entries to pick"},
        {"click QLONserverLiquor.Text2", "QLONserverLiquor.Text2 can't be clicked"},
        {"start QLONlistBuilder1.Label2", "can't be clicked"},
        {"wait-until QLONlistBuilder1.Label2 colour red", "wait-until takes"},
        {"wait-until QLONlistBuilder1.Label2 text \"unclosed 5", "wait-until takes"},
        {"wait-until QLONlistBuilder1.NoSuchControl text x", "unknown control"},
        {"set QLONlistBuilder1.MonthView1 someday", "takes a date"},
    };
    for (const auto &test : cases) {
        const Outcome result = run(QStringLiteral("# a comment\n\nget QLONlistBuilder1.Label11\n") + QLatin1String(test.line) +
            QStringLiteral("\nget QLONlistBuilder1.Label11\n"));
        EXPECT_EQ(result.status, 2) << test.line;
        EXPECT_EQ(result.lines().size(), 1) << test.line;
        EXPECT_TRUE(result.err.contains(QStringLiteral("line 4"))) << result.err.toStdString();
        EXPECT_TRUE(result.err.contains(QLatin1String(test.complaint))) << result.err.toStdString();
    }
}

TEST_F(ScriptTest, AdvanceRunsTheScreensTimersAsIfTheTimeHadPassed)
{
    writeDemoSite();
    const QString load =
        QStringLiteral("click QLONlistBuilder1.SSOption6\nclick QLONlistBuilder1.SSCommand2\nget QLONlistBuilder1.MList1 count\n");
    const Outcome result = run(QStringLiteral("click QLONlistBuilder1.SSCommand8\n") + load + QStringLiteral("advance 0.1\n") + load);
    ASSERT_EQ(result.status, 0) << result.err.toStdString();
    ASSERT_EQ(result.lines().size(), 2);
    EXPECT_EQ(result.lines()[0], QStringLiteral("0")) << "the rebuild waits for its timer";
    EXPECT_GT(result.lines()[1].toInt(), 300);
    for (const char *line : {"advance soon\n", "advance nan\n", "advance -1\n"})
        EXPECT_EQ(run(QLatin1String(line)).status, 2) << line;
}

TEST_F(ScriptTest, ASecondInstanceIsRefused)
{
    writeDemoSite();
    QProcess first;
    first.start(QStringLiteral(QLON_PROGRAM), arguments());
    ASSERT_TRUE(first.waitForStarted());
    first.write("get QLONlistBuilder1.Label11\n");
    ASSERT_TRUE(first.waitForReadyRead(30000)) << "the first instance never came up";

    // The same site through a link, from a program with another temp folder.
    QTemporaryDir elsewhere;
    const QString link = elsewhere.filePath(QStringLiteral("site"));
    ASSERT_TRUE(QFile::link(site.driveFolder(), link));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), elsewhere.path());
    const Outcome second =
        runProgram({QStringLiteral("--drive"), QStringLiteral("C=") + link, QStringLiteral("--script"), QStringLiteral("-")},
            QStringLiteral("get QLONlistBuilder1.Label11\n"), environment);
    EXPECT_EQ(second.status, 1);
    EXPECT_EQ(second.lines(),
        QStringList{
            QStringLiteral("message: Already Running | List Builder is already running, You will need to run your task manager and end all "
                           "prior instances of it or reboot this computer. Should you decide to reboot - after restart you must reboot all "
                           "the other stations connected to this file server.")});
    EXPECT_TRUE(second.err.contains(QStringLiteral("qlon: Already Running: "))) << "in a nightly job's log";
    first.closeWriteChannel();
    EXPECT_TRUE(first.waitForFinished(30000));
    EXPECT_EQ(first.exitCode(), 0);
}

TEST_F(ScriptTest, ALockedConfigurationEndsTheProgramWithThePlatformsText)
{
    writeDemoSite();
    RecordFile station(site.hostPath(QStringLiteral("Quillon/QlonINI.dat")), IniRec2300::size);
    station.LockAll();
    const Outcome result = run(QStringLiteral("get QLONlistBuilder1.Label11\n"));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.lines(), QStringList{QStringLiteral("message: QLONListBuilder | Run-time error '70':\\r\\n\\r\\nPermission denied")});
    EXPECT_TRUE(result.err.contains(QStringLiteral("Permission denied"))) << result.err.toStdString();
}

// A nightly job on a month a station holds past the program's wait ends naming the file, to be
// tried again, rather than print figures without the month; let go within the wait, it is whole.
TEST_F(ScriptTest, AMonthAStationHoldsEndsTheReportNamingItUnlessReleasedWithinTheWait)
{
    writeDemoSite();
    const QStringList itemsSold{QStringLiteral("items-sold")};
    const Outcome whole = report(itemsSold);
    ASSERT_EQ(whole.status, 0) << whole.err.toStdString();
    const QString month = site.hostPath(QStringLiteral("Quillon/data/ItemsSold112026.DAT"));
    {
        const test::StationHold writing(month, std::chrono::seconds(2));
        ASSERT_TRUE(writing.held());
        const Outcome released = report(itemsSold);
        EXPECT_EQ(released.status, 0) << released.err.toStdString();
        EXPECT_EQ(released.out, whole.out);
    }
    const test::StationHold station(month);
    ASSERT_TRUE(station.held());
    const Outcome held = report(itemsSold);
    EXPECT_EQ(held.status, 1);
    EXPECT_TRUE(held.err.contains(QStringLiteral("Permission denied (C:\\QUILLON\\data\\ItemsSold112026.DAT, ") + month + QLatin1Char(')')))
        << held.err.toStdString();
}

// A configuration record whose data root is `dataRoot`, over the demo site's.
void setDataRoot(const test::TempSite &site, const QByteArray &dataRoot)
{
    RecordFile file(site.hostPath(QStringLiteral("Quillon/QlonINI.dat")), IniRec2300::size);
    IniRec2300 configuration(file.GetRecord(1));
    configuration.setField(IniRec2300::DataRootField, dataRoot);
    file.PutRecord(1, configuration.bytes());
}

TEST_F(ScriptTest, HostileSiteFilesEndCleanlyAndNothingOutsideTheSiteIsWritten)
{
    writeDemoSite();
    const QByteArray modifiers = site.read(QStringLiteral("Quillon/data/LIQMODIFIERS.IVM"));
    const QString outside = QFileInfo(site.driveFolder()).dir().filePath(QStringLiteral("ESCAPE"));

    setDataRoot(site, QByteArray("C:\\Quillon\\data\\LIQMODIFIERS.IVM\0", 34));
    Outcome result = run(QStringLiteral("click QLONlistBuilder1.Command3\n"));
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.out.contains(QStringLiteral("Run-time error '52'"))) << result.out.toStdString();
    EXPECT_TRUE(result.err.contains(QStringLiteral("LIQMODIFIERS.IVM\\x00"))) << result.err.toStdString();
    EXPECT_EQ(site.read(QStringLiteral("Quillon/data/LIQMODIFIERS.IVM")), modifiers) << "the station's file is never opened";

    setDataRoot(site, "C:\\..\\ESCAPE\\");
    result = run(QStringLiteral("click QLONlistBuilder1.SSCommand8\nwait\nshow QlonUpDept\n"));
    EXPECT_FALSE(QFileInfo::exists(outside)) << "\"..\" at the drive's root stays at the root";
    EXPECT_EQ(result.status, 1) << "no ESCAPE\\data folder on the drive: " << result.err.toStdString();

    // A screen whose load fails ends the program through the one place that handles failures.
    setDataRoot(site, "C:\\Quillon\\");
    QDir(site.hostPath(QStringLiteral("Quillon/data"))).removeRecursively();
    site.write(QStringLiteral("Quillon/data/Departments.dat/x"), {});
    result = run(QStringLiteral("show QlonItemsSold\n"));
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.err.contains(
        QStringLiteral("(C:\\QUILLON\\data\\Departments.dat, ") + site.hostPath(QStringLiteral("Quillon/data/Departments.dat"))))
        << "the file as the site names it and where it lies: " << result.err.toStdString();
}

// The rows of MList1 after rebuilding and loading with one category option.
QStringList loadedRows(const QStringList &lines)
{
    QStringList rows;
    for (const QString &line : lines)
        rows.append(line.section(QLatin1Char('\t'), 0, 0));
    return rows;
}

TEST_F(ScriptTest, RebuildThenLoadEachCategoryOfTheDemoSite)
{
    writeDemoSite();
    const QString rebuild = QStringLiteral("click QLONlistBuilder1.SSCommand8\nwait\n");
    const auto load = [&](const QString &choose) {
        return loadedRows(
            run(rebuild + choose + QStringLiteral("\nclick QLONlistBuilder1.SSCommand2\nrows QLONlistBuilder1.MList1\n")).lines());
    };
    const QStringList all = load(QStringLiteral("click QLONlistBuilder1.SSOption6"));
    const QStringList food = load(QStringLiteral("click QLONlistBuilder1.SSOption1"));
    const QStringList bar = load(QStringLiteral("click QLONlistBuilder1.SSOption2"));
    const QStringList both = load(QStringLiteral("click QLONlistBuilder1.SSOption3"));
    const QStringList retail = load(QStringLiteral("click QLONlistBuilder1.SSOption5"));
    const QStringList wine = load(QStringLiteral("pick QLONlistBuilder1.Combo1 Wine\nclick QLONlistBuilder1.SSOption7"));
    const QStringList retailBelow = load(QStringLiteral("pick QLONlistBuilder1.Combo1 Retail\nclick QLONlistBuilder1.SSOption7"));

    EXPECT_GT(all.size(), 300);
    EXPECT_EQ(both.size() + retail.size(), all.size());
    EXPECT_EQ(retailBelow, retail);
    EXPECT_FALSE(food.isEmpty());
    EXPECT_FALSE(bar.isEmpty());
    EXPECT_FALSE(wine.isEmpty());
    for (const auto &[rows, type] : {std::pair{food, QStringLiteral("Food")}, std::pair{bar, QStringLiteral("Beverage")},
             std::pair{retail, QStringLiteral("Retail")}, std::pair{wine, QStringLiteral("Wine")}})
        EXPECT_EQ(rows.filter(QLatin1Char('|') + type + QLatin1Char('|')).size(), rows.size()) << type.toStdString();
    EXPECT_TRUE(all.contains(QStringLiteral("JoeMs Wings|Food|9.95|0|0")) || !all.filter(QStringLiteral("JoeMs Wings|")).isEmpty());
    EXPECT_EQ(all.filter(QStringLiteral("House Salad|")), QStringList{QStringLiteral("House Salad|Food|6.95|0|0")});
    EXPECT_EQ(all.filter(QStringLiteral("Boiled Lobster|")).value(0).section(QLatin1Char('|'), 2, 2), QStringLiteral("0"));
    EXPECT_EQ(all.filter(QStringLiteral("Daily Feature|")).value(0).section(QLatin1Char('|'), 1, 1), QStringLiteral("Food"));
    EXPECT_EQ(all.filter(QStringLiteral("'")).size(), 0) << "apostrophes become M";
    EXPECT_EQ(all.filter(QStringLiteral("Available|")).size(), 0) << "free in the button files";
    EXPECT_EQ(retail.filter(QStringLiteral("Logo Koozie|")).size(), 1) << "an item in the retail file, under its kitchen text";
}

// `start` clicks and lets the script go on while the run yields, so Stop can be pressed half-way,
// and the run leaves what a user's Stop leaves.
TEST_F(ScriptTest, AStartedRunIsStoppedHalfWay)
{
    writeDemoSite();
    // Stop at the first yield of Calculate Sales: the row in work is finished, and no more.
    const Outcome sales = run(QStringLiteral(
        "click QLONlistBuilder1.SSCommand8\nwait\n"
        "click QLONlistBuilder1.SSOption6\nclick QLONlistBuilder1.SSCommand2\n"
        "start QLONlistBuilder1.SSCommand4\nget QLONlistBuilder1.SSCommand5 visible\nclick QLONlistBuilder1.SSCommand5\nwait\n"
        "get QLONlistBuilder1.Label7\nget QLONlistBuilder1.SSCommand5 visible\nget QLONlistBuilder1.SSCommand4 enabled\n"
        "rows QLONlistBuilder1.MList1\n"));
    ASSERT_EQ(sales.status, 0) << sales.err.toStdString();
    const QStringList lines = sales.lines();
    ASSERT_GT(lines.size(), 300);
    EXPECT_EQ(
        lines.mid(0, 4), (QStringList{QStringLiteral("true"), QStringLiteral("Stop"), QStringLiteral("false"), QStringLiteral("true")}))
        << "Stop shows during the run and goes with it";
    EXPECT_EQ(lines.filter(QStringLiteral("**")).size(), 0) << "no total rows";
    EXPECT_EQ(lines.mid(5).filter(QRegularExpression(QStringLiteral("^([^|]*\\|){3}0\\|"))).size(), lines.size() - 5)
        << "the rows not reached keep their 0";
    EXPECT_EQ(site.read(QStringLiteral("Quillon/TempItems.dat")).count('\n'), 2) << "the heading and the one row's line";

    // Items Sold heard half-way through the sales files shows nothing of them.
    const QString span =
        QStringLiteral("show QlonItemsSold\nset QlonItemsSold.MonthView1 08/01/2026\nset QlonItemsSold.MonthView2 11/22/2026\n");
    const Outcome stopped = run(span +
        QStringLiteral("answer No\nstart QlonItemsSold.SSCommand4\nwait-until QlonItemsSold.ProgressBar1 text 5\n"
                       "click QlonItemsSold.SSCommand11\nwait\nget QlonItemsSold.SSPanel1\n"
                       "get QlonItemsSold.MList1 count\nget QlonItemsSold.SSCommand11 visible\n"
                       "get QlonItemsSold.ProgressBar1 visible\nget QlonItemsSold.SSCommand4 enabled\n"));
    ASSERT_EQ(stopped.status, 0) << stopped.err.toStdString();
    EXPECT_EQ(stopped.lines(),
        (QStringList{QStringLiteral("User Stopped"), QStringLiteral("0"), QStringLiteral("false"), QStringLiteral("false"),
            QStringLiteral("true")}));

    // A wait that never ends ends the script, naming what it waited for and what it found.
    const Outcome inVain =
        run(span + QStringLiteral("wait-until QlonItemsSold.SSPanel1 text \"Report Complete\" 0.2\nget QlonItemsSold\n"));
    EXPECT_EQ(inVain.status, 1);
    EXPECT_EQ(inVain.out, QString());
    EXPECT_TRUE(
        inVain.err.contains(QStringLiteral("line 4: waited 0.2 s for QlonItemsSold.SSPanel1 text to be Report Complete; it is Items Sold")))
        << inVain.err.toStdString();
}

TEST_F(ScriptTest, TheMainJobPrintsAReadablePdfAndExportsTheRun)
{
    writeDemoSite();
    const QString pdf = site.hostPath(QStringLiteral("report.pdf"));
    const QString csv = site.hostPath(QStringLiteral("export.csv"));
    const Outcome result = run(QStringLiteral("click QLONlistBuilder1.SSCommand8\nwait\nclick QLONlistBuilder1.SSOption6\n"
                                              "click QLONlistBuilder1.SSCommand2\nclick QLONlistBuilder1.SSCommand4\n"
                                              "click QLONlistBuilder1.SSOption4(0)\nprint-to-pdf ") +
        pdf + QStringLiteral("\nclick QLONlistBuilder1.SSCommand6\nsave-as ") + csv +
        QStringLiteral("\nclick QLONlistBuilder1.SSCommand7\n"));
    ASSERT_EQ(result.status, 0) << result.err.toStdString();
    EXPECT_FALSE(result.out.contains(QStringLiteral("message:"))) << "where the report went is our own note";
    EXPECT_TRUE(result.err.contains(QStringLiteral("qlon: The report is in ") + pdf)) << result.err.toStdString();
    EXPECT_EQ(site.read(QStringLiteral("export.csv")), site.read(QStringLiteral("Quillon/TempItems.dat")));
    EXPECT_TRUE(site.read(QStringLiteral("report.pdf")).startsWith("%PDF"));

    // Rendered as a person would see it: the first page has ink on it.
    QProcess render;
    render.start(QStringLiteral("pdftoppm"),
        {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("40"), QStringLiteral("-f"), QStringLiteral("1"),
            QStringLiteral("-l"), QStringLiteral("1"), pdf, site.hostPath(QStringLiteral("page"))});
    // pdftoppm comes with the project's packages: without it this test fails rather than passing unseen.
    ASSERT_TRUE(render.waitForFinished(60000) && render.exitCode() == 0) << "pdftoppm could not render the report";
    const QImage page(site.hostPath(QStringLiteral("page-1.png")));
    ASSERT_FALSE(page.isNull());
    int dark = 0;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            dark += qGray(page.pixel(x, y)) < 128;
    }
    EXPECT_GT(dark, 500) << "the page shows text";

    QProcess information;
    information.start(QStringLiteral("pdfinfo"), {pdf});
    ASSERT_TRUE(information.waitForFinished(60000));
    EXPECT_TRUE(QString::fromUtf8(information.readAllStandardOutput()).contains(QRegularExpression(QStringLiteral("Title: +report\n"))))
        << "the document is titled by its name";
}

// A printed document's page size in points and the boxes of its words, as poppler reads them.
struct PrintedDocument
{
    QSizeF page;
    int pages = 0;
    QString text;
    QList<QRectF> words;
};

PrintedDocument readPrinted(const QString &path)
{
    PrintedDocument document;
    QProcess bbox;
    bbox.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), path, QStringLiteral("-")});
    bbox.waitForFinished(60000);
    const QString html = QString::fromUtf8(bbox.readAllStandardOutput());
    static const QRegularExpression page(QStringLiteral("<page width=\"([\\d.]+)\" height=\"([\\d.]+)\""));
    static const QRegularExpression word(
        QStringLiteral("<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">"));
    for (const QRegularExpressionMatch &match : page.globalMatch(html)) {
        document.page = QSizeF(match.captured(1).toDouble(), match.captured(2).toDouble());
        ++document.pages;
    }
    for (const QRegularExpressionMatch &match : word.globalMatch(html)) {
        document.words.append(QRectF(QPointF(match.captured(1).toDouble(), match.captured(2).toDouble()),
            QPointF(match.captured(3).toDouble(), match.captured(4).toDouble())));
    }
    // The text as laid out, so that a name in a column stays whole; the font's ligatures ("ﬀ") as
    // their letters.
    QProcess layout;
    layout.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")});
    layout.waitForFinished(60000);
    document.text = QString::fromUtf8(layout.readAllStandardOutput()).normalized(QString::NormalizationForm_KC);
    return document;
}

// Printed to a print service's queue of each paper, a report is laid out for that paper: every
// row and every page's footer on it, nothing past an edge.
TEST_F(ScriptTest, ReportsPrintWholeOnTheQueuesPaper)
{
    test::PrivateCups cups;
    ASSERT_TRUE(cups.start()) << cups.error().toStdString();
    ASSERT_TRUE(cups.addQueue(QStringLiteral("Letter"), QStringLiteral("Letter"))) << cups.error().toStdString();
    ASSERT_TRUE(cups.addQueue(QStringLiteral("A4"), QStringLiteral("A4"))) << cups.error().toStdString();
    writeDemoSite();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("CUPS_SERVER"), cups.server());
    const QString script =
        QStringLiteral("click QLONlistBuilder1.SSCommand8\nwait\nclick QLONlistBuilder1.SSOption6\n"
                       "click QLONlistBuilder1.SSCommand2\nclick QLONlistBuilder1.SSCommand4\nwait\n"
                       "rows QLONlistBuilder1.MList1\nclick QLONlistBuilder1.SSCommand6\n"
                       "click QLONlistBuilder1.SSCommand9\nwait\npick QLONserverLiquor.Combo1 1005\n"
                       "click QLONserverLiquor.Command1\nrows QLONserverLiquor.MList1\nclick QLONserverLiquor.SSCommand3\n");
    for (const auto &[queue, paper] : {std::pair{"Letter", QSizeF(612, 792)}, std::pair{"A4", QSizeF(595, 842)}}) {
        ASSERT_TRUE(cups.setDefault(QLatin1String(queue))) << cups.error().toStdString();
        const qsizetype before = cups.jobDocuments().size();
        const Outcome printed = run(script, {}, environment);
        ASSERT_EQ(printed.status, 0) << printed.err.toStdString();
        const QStringList jobs = cups.jobDocuments().mid(before);
        ASSERT_EQ(jobs.size(), 2) << queue << ": the report and the server's paper";
        const QStringList rows = printed.lines();
        const QStringList items = rows.filter(QRegularExpression(QStringLiteral("^[^*|\t][^|]*\\|[^|]*\\|[^|]*\\|[1-9]")));
        const QStringList sales = rows.filter(QRegularExpression(QStringLiteral("^1005,")));
        ASSERT_GT(items.size(), 100);
        ASSERT_GT(sales.size(), 5);
        for (int job = 0; job < 2; ++job) {
            const PrintedDocument document = readPrinted(jobs[job]);
            EXPECT_EQ(document.page, paper) << queue << " job " << job;
            for (const QRectF &word : document.words)
                ASSERT_TRUE(QRectF(QPointF(0, 0), paper).contains(word)) << queue << " job " << job << ": a word past the edge";
            for (const QString &row : job == 0 ? items : sales) {
                const QString name = job == 0 ? row.section(QLatin1Char('|'), 0, 0) : row.section(QLatin1Char(','), 2, -4);
                EXPECT_TRUE(document.text.contains(name.simplified())) << queue << ": " << name.toStdString();
            }
        }
        const PrintedDocument report = readPrinted(jobs[0]);
        EXPECT_GT(report.pages, 1);
        for (int page = 1; page <= report.pages; ++page)
            EXPECT_TRUE(report.text.contains(QRegularExpression(QStringLiteral("Page %1\\s").arg(page))))
                << queue << ": the footer of page " << page;
    }
}

TEST_F(ScriptTest, IndividualSalesFindsOneServersSalesOfTheWeek)
{
    writeDemoSite();
    const Outcome result = run(QStringLiteral("click QLONlistBuilder1.SSCommand9\nwait\nget QLONserverLiquor.Combo1 count\n"
                                              "pick QLONserverLiquor.Combo1 1005\nclick QLONserverLiquor.Command1\n"
                                              "get QLONserverLiquor.Label2\nget QLONserverLiquor.MList1 count\n"
                                              "get QLONserverLiquor.Text3\nget QLONserverLiquor.SSPanel4 visible\n"));
    ASSERT_EQ(result.status, 0) << result.err.toStdString();
    const QStringList lines = result.lines();
    ASSERT_EQ(lines.size(), 5) << result.out.toStdString();
    EXPECT_EQ(lines[0], QStringLiteral("10")) << "the servers and bartenders, the inactive one too, not the cook";
    EXPECT_EQ(lines[1], QStringLiteral("Search Completed"));
    EXPECT_GT(lines[2].toInt(), 50);
    EXPECT_TRUE(lines[3].startsWith(QLatin1Char('$'))) << lines[3].toStdString();
    EXPECT_EQ(lines[4], QStringLiteral("false")) << "the keypad went away after the opening";
    EXPECT_TRUE(site.read(QStringLiteral("Quillon/Temp/TempList.Tmp")).contains("  Server 1005\r\n"));
}

TEST_F(ScriptTest, WithoutTheDatabaseASearchEndsTheProgramInsteadOfReportingNothingSold)
{
    writeDemoSite();
    QFile::remove(site.hostPath(QStringLiteral("Quillon/data/Quillon.mdb")));
    const Outcome result = run(QStringLiteral("click QLONlistBuilder1.SSCommand9\nwait\npick QLONserverLiquor.Combo1 1005\n"
                                              "click QLONserverLiquor.Command1\nget QLONserverLiquor.Label2\n"));
    EXPECT_EQ(result.status, 1);
    const QString closed = QStringLiteral("message: QLONListBuilder | Run-time error %1%2%1:").arg(QLatin1Char('\'')).arg(3704);
    EXPECT_TRUE(result.out.contains(closed)) << result.out.toStdString();
    EXPECT_FALSE(result.out.contains(QStringLiteral("Search Completed")));
    EXPECT_TRUE(result.err.contains(QStringLiteral("Quillon.mdb"))) << result.err.toStdString();

    const Outcome worker = run(QStringLiteral("show QLONlistBuilder2\nclick QLONlistBuilder2.Command1\nget QLONlistBuilder2.Label2\n"));
    EXPECT_EQ(worker.status, 1);
    EXPECT_TRUE(worker.out.contains(closed)) << worker.out.toStdString();
    EXPECT_FALSE(worker.out.contains(QStringLiteral("Search Completed")));
}

TEST_F(ScriptTest, KeyboardStartsTheDesktopsKeyboardAndEndsTheProgramOnlyWhereThereIsNone)
{
    writeDemoSite();
    // A stand-in for the desktop's keyboard, that leaves a mark when it starts.
    site.write(QStringLiteral("bin/onboard"), "#!/bin/sh\n: >\"$0.started\"\n");
    const QString keyboard = site.hostPath(QStringLiteral("bin/onboard"));
    QFile::setPermissions(keyboard, QFile::permissions(keyboard) | QFileDevice::ExeOwner);
    const QString script = QStringLiteral("click QLONlistBuilder1.SSCommand9\nwait\nclick QLONserverLiquor.SSCommand4\n");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"), site.hostPath(QStringLiteral("bin")));
    EXPECT_EQ(run(script, {}, environment).status, 0);
    QDeadlineTimer deadline(10000);
    while (!QFile::exists(keyboard + QStringLiteral(".started")) && !deadline.hasExpired())
        QThread::msleep(50);
    EXPECT_TRUE(QFile::exists(keyboard + QStringLiteral(".started")));

    // One that is there but can't be started is passed over.
    site.write(QStringLiteral("bin/onboard"), "not a program\n");
    EXPECT_EQ(run(script, {}, environment).status, 0);

    environment.insert(QStringLiteral("PATH"), site.hostPath(QStringLiteral("Quillon")));
    const Outcome none = run(script, {}, environment);
    EXPECT_EQ(none.status, 1);
    EXPECT_TRUE(none.out.contains(QStringLiteral("File not found"))) << none.out.toStdString();
    EXPECT_TRUE(none.err.contains(QStringLiteral("osk.exe"))) << none.err.toStdString();
}

TEST_F(ScriptTest, TheBackOfficeStartsInPlaceOfTheMainScreenAndOpensEveryOther)
{
    writeDemoSite();
    const Outcome result = run(QStringLiteral("get BackOffice visible\nget QLONlistBuilder1 visible\n"
                                              "click BackOffice.cmdItemsSold\nget QlonItemsSold visible\n"
                                              "click BackOffice.cmdEmployees\nget TCEmployee visible\n"
                                              "click BackOffice.cmdItemButtons\nget ButtonView.Label1\nget ButtonView.Label2\n"
                                              "click ButtonView.cmdEdit\nget FItemButtonFood visible\nget FItemButtonFood.lblRecord\n"
                                              "click BackOffice.cmdListBuilder\nget QLONlistBuilder1 visible\n"
                                              "click QlonItemsSold.SSCommand3\nget QlonItemsSold visible\n"
                                              "click QLONlistBuilder1.cmdItemsSold\nget QlonItemsSold visible\n"),
        {QStringLiteral("--open"), QStringLiteral("BackOffice")});
    ASSERT_EQ(result.status, 0) << result.err.toStdString();
    EXPECT_EQ(result.lines(),
        (QStringList{QStringLiteral("true"), QStringLiteral("false"), QStringLiteral("true"), QStringLiteral("true"),
            QStringLiteral("C:\\QUILLON\\ini\\Button0.dat"), QStringLiteral("12 records"), QStringLiteral("true"), QStringLiteral("1"),
            QStringLiteral("true"), QStringLiteral("false"), QStringLiteral("true")}));
    EXPECT_EQ(result.err, QString()) << "a run without a window prints only what its script asks for";
}

TEST_F(ScriptTest, ScreenshotsShowTheScreen)
{
    writeDemoSite();
    const QString picture = site.hostPath(QStringLiteral("main.png"));
    const Outcome result = run(QString(), {QStringLiteral("--screenshot"), QStringLiteral("QLONlistBuilder1=") + picture});
    EXPECT_EQ(result.status, 0) << result.err.toStdString();
    const QImage image(picture);
    EXPECT_GT(image.width(), 600);
    EXPECT_GT(image.height(), 300);
}

// The program's screens, as it names them when asked for one it doesn't have.
QStringList screenNames()
{
    QProcess process;
    process.start(QStringLiteral(QLON_PROGRAM), {QStringLiteral("--list-controls"), QStringLiteral("NoSuchScreen")});
    process.waitForFinished(60000);
    EXPECT_EQ(process.exitCode(), 2);
    const QString answer = QString::fromUtf8(process.readAllStandardError()).trimmed();
    return answer.section(QStringLiteral("the screens are "), 1).split(QStringLiteral(", "), Qt::SkipEmptyParts);
}

TEST(ListControlsTest, EveryScreenListsItsControlsWithoutASite)
{
    const QStringList screens = screenNames();
    EXPECT_GE(screens.size(), 10);
    QStringList listed;
    for (const QString &screen : screens) {
        QProcess process;
        process.start(QStringLiteral(QLON_PROGRAM), {QStringLiteral("--list-controls"), screen});
        ASSERT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitCode(), 0) << screen.toStdString() << process.readAllStandardError().toStdString();
        const QStringList lines = QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        ASSERT_GE(lines.size(), 3) << screen.toStdString() << ": the screen and its controls";
        EXPECT_TRUE(lines.first().startsWith(screen + QStringLiteral("\tscreen\t"))) << lines.first().toStdString();
        for (const QString &line : lines) {
            EXPECT_EQ(line.count(QLatin1Char('\t')), 3) << line.toStdString();
            listed.append(screen + QLatin1Char('.') + line);
        }
    }
    for (const char *expected : {"QLONlistBuilder1.SSCommand2\tbutton\tLoad List\tclick, start, get",
             "QLONlistBuilder1.MList1\tlist\t\tpick, rows, get, get count, get row N, get tag N", "QLONlistBuilder1.MonthView1\tcalendar",
             "QLONlistBuilder2.datPrimaryRS\tdata control", "TCEmployee.List1\tplain list\t\tpick, rows, get, get count, get row N",
             "TCEmployee.chkInactive\tcheck box\tIN-Active\tclick, start, get, get checked", "QLONserverLiquor.Text2\ttext box",
             "PrinterStatus.List1\tplain list"})
        EXPECT_EQ(listed.filter(QLatin1String(expected)).size(), 1) << expected;
    // Only what the screen acts on: the server screen neither moves its data control nor hears a click on Text2.
    const auto commandsOf = [&listed](const char *control) {
        return listed.filter(QRegularExpression(QLatin1Char('^') + QLatin1String(control) + QLatin1Char('\t')))
            .value(0)
            .section(QLatin1Char('\t'), 3);
    };
    EXPECT_EQ(commandsOf("QLONlistBuilder2.datPrimaryRS"), QStringLiteral("pick, get"));
    EXPECT_EQ(commandsOf("QLONserverLiquor.datPrimaryRS"), QStringLiteral("get"));
    EXPECT_EQ(commandsOf("QLONserverLiquor.Text6"), QStringLiteral("click, start, set, get"));
    EXPECT_EQ(commandsOf("QLONserverLiquor.Text2"), QStringLiteral("set, get"));
}

// The figures a report prints: its standard output, with our own notes on standard error.
// The JSON form holds the figures the text form prints, with numbers as numbers.
TEST_F(ScriptTest, ReportsInJsonHoldTheFiguresOfTheText)
{
    writeDemoSite();
    const auto json = [&](QStringList words) {
        const Outcome run = report(words << QStringLiteral("--format") << QStringLiteral("json"));
        EXPECT_EQ(run.status, 0) << run.err.toStdString();
        return QJsonDocument::fromJson(run.out.toUtf8()).object();
    };
    const QStringList text = report({QStringLiteral("main")}).lines();
    const QJsonObject main = json({QStringLiteral("main")});
    EXPECT_EQ(main[QStringLiteral("report")].toString(), QStringLiteral("main"));
    EXPECT_EQ(main[QStringLiteral("exit")].toString(), QStringLiteral("done"));
    const QJsonObject span = main[QStringLiteral("span")].toObject();
    EXPECT_EQ(QStringLiteral("Site: %1").arg(main[QStringLiteral("site")].toString()), text[0]);
    EXPECT_EQ(
        QStringLiteral("Span: %1 to %2").arg(span[QStringLiteral("from")].toString(), span[QStringLiteral("to")].toString()), text[1]);
    EXPECT_EQ(
        QStringLiteral("Hours: %1 to %2").arg(span[QStringLiteral("startTime")].toString(), span[QStringLiteral("endTime")].toString()),
        text[2]);
    const QJsonArray rows = main[QStringLiteral("rows")].toArray();
    ASSERT_GT(rows.size(), 100);
    const QStringList first = text[3].section(QLatin1Char('\t'), 0, 0).split(QLatin1Char('|'));
    EXPECT_EQ(rows[0][QStringLiteral("name")].toString(), first[0]);
    EXPECT_EQ(rows[0][QStringLiteral("units")].toDouble(), first[3].toDouble());
    EXPECT_TRUE(rows[0][QStringLiteral("volume")].isDouble());
    const QJsonArray departments = main[QStringLiteral("departments")].toArray();
    ASSERT_FALSE(departments.isEmpty());
    const QString food = text.filter(QStringLiteral("**Food|Total|")).constFirst();
    EXPECT_EQ(departments[0][QStringLiteral("volume")].toDouble(),
        food.section(QLatin1Char('|'), 4, 4).remove(QRegularExpression(QStringLiteral("[$,]"))).toDouble());

    QStringList soldText = report({QStringLiteral("items-sold")}).lines();
    const QJsonObject sold = json({QStringLiteral("items-sold")});
    EXPECT_EQ(sold[QStringLiteral("notReported")].toInt(), soldText.last().toInt());
    EXPECT_EQ(sold[QStringLiteral("total")].toDouble(),
        soldText[soldText.size() - 2].remove(QRegularExpression(QStringLiteral("[$,]"))).toDouble());
    EXPECT_EQ(sold[QStringLiteral("messages")].toArray().size(), 1) << "the Items Not Reported question";

    const QJsonObject server = json({QStringLiteral("server"), QStringLiteral("--server"), QStringLiteral("1005")});
    const QJsonArray sales = server[QStringLiteral("sales")].toArray();
    ASSERT_FALSE(sales.isEmpty());
    double notLiquor = 0;
    for (const QJsonValue &sale : sales)
        notLiquor += sale[QStringLiteral("class")].toString() == QLatin1String("L") ? 0 : sale[QStringLiteral("price")].toDouble();
    EXPECT_NEAR(server[QStringLiteral("food")].toDouble(), notLiquor, 0.005)
        << "the food figure is the sum of the sales that aren't liquor";

    // A PDF that can't be opened when the report prints, here a folder by its name: the run that
    // ends on it, and the one whose screen passes over it, both end with 1 naming the file.
    const QString blocked = site.hostPath(QStringLiteral("blocked.pdf"));
    ASSERT_TRUE(QDir().mkpath(blocked));
    const Outcome failed =
        report({QStringLiteral("main"), QStringLiteral("--pdf"), blocked, QStringLiteral("--format"), QStringLiteral("json")});
    EXPECT_EQ(failed.status, 1);
    const QJsonObject failure = QJsonDocument::fromJson(failed.out.toUtf8()).object();
    EXPECT_EQ(failure[QStringLiteral("exit")].toString(), QStringLiteral("error"));
    EXPECT_EQ(failure[QStringLiteral("error")].toString(), QStringLiteral("Run-time error '75': Path/File access error"));
    EXPECT_TRUE(failed.err.contains(blocked)) << failed.err.toStdString();
    const Outcome passedOver = report({QStringLiteral("items-sold"), QStringLiteral("--pdf"), blocked});
    EXPECT_EQ(passedOver.status, 1);
    EXPECT_TRUE(passedOver.err.endsWith(QStringLiteral("qlon: report: %1 was not written\n").arg(blocked))) << passedOver.err.toStdString();
    EXPECT_FALSE(passedOver.err.contains(QStringLiteral("Painter not active"))) << "the print stops at the file";
}

TEST_F(ScriptTest, ReportsGiveTheFiguresOfTheHandScript)
{
    writeDemoSite();
    const QString pdf = site.hostPath(QStringLiteral("items-%Y-%m-%d.pdf"));
    const QString csv = site.hostPath(QStringLiteral("items-%Y-%m-%d.csv"));
    // The last writes its files, which no later run overwrites. Every report's text starts with
    // the site, the span and the hours in one form.
    const struct
    {
        QStringList words;
        QString handScript;
        QString spanAndHours;
    } cases[] = {
        {{QStringLiteral("main"), QStringLiteral("--department"), QStringLiteral("wINE")},
            QStringLiteral("click QLONlistBuilder1.SSCommand8\nwait\npick QLONlistBuilder1.Combo1 Wine\n"
                           "click QLONlistBuilder1.SSOption7\nclick QLONlistBuilder1.SSCommand2\nclick QLONlistBuilder1.SSCommand4\n"
                           "rows QLONlistBuilder1.MList1\n"),
            QStringLiteral("Span: 2026-11-16 to 2026-11-22\nHours: 12:00 am to 11:59 pm\n")},
        {{QStringLiteral("items-sold")},
            QStringLiteral("show QlonItemsSold\nset QlonItemsSold.MonthView1 11/16/2026\nset QlonItemsSold.MonthView2 11/22/2026\n"
                           "answer No\nclick QlonItemsSold.SSCommand4\nwait\n"
                           "rows QlonItemsSold.MList1\nget QlonItemsSold.Label7\nget QlonItemsSold.List4 count\n"),
            QStringLiteral("Span: 2026-11-16 to 2026-11-22\nHours: 12:00 am to 11:59 pm\n")},
        {{QStringLiteral("server"), QStringLiteral("--server"), QStringLiteral("1005"), QStringLiteral("--end-time"),
             QStringLiteral("9:00 pm")},
            QStringLiteral(
                "set QLONlistBuilder1.Combo3 9:00 pm\nclick QLONlistBuilder1.SSCommand9\nwait\n"
                "pick QLONserverLiquor.Combo1 1005\nclick QLONserverLiquor.Command1\nget QLONserverLiquor.Label2\n"
                "get QLONserverLiquor.Text3\nget QLONserverLiquor.Text4\nget QLONserverLiquor.Text5\nrows QLONserverLiquor.MList1\n"),
            QStringLiteral("Span: 2026-11-16 to 2026-11-22\nHours: 12:00 am to 9:00 pm\n")},
        {{QStringLiteral("main"), QStringLiteral("--from"), QStringLiteral("2026-11-17"), QStringLiteral("--to"),
             QStringLiteral("yesterday"), QStringLiteral("--category"), QStringLiteral("food"), QStringLiteral("--start-time"),
             QStringLiteral("11:00 am"), QStringLiteral("--pdf"), pdf, QStringLiteral("--csv"), csv},
            QStringLiteral("click QLONlistBuilder1.SSCommand8\nwait\nset QLONlistBuilder1.MonthView1 11/17/2026\n"
                           "set QLONlistBuilder1.MonthView2 11/22/2026\nset QLONlistBuilder1.Combo2 11:00 am\n"
                           "click QLONlistBuilder1.SSOption1\nclick QLONlistBuilder1.SSCommand2\nclick QLONlistBuilder1.SSCommand4\n"
                           "rows QLONlistBuilder1.MList1\n"),
            QStringLiteral("Span: 2026-11-17 to 2026-11-22\nHours: 11:00 am to 11:59 pm\n")},
    };
    for (const auto &test : cases) {
        const Outcome byHand = run(test.handScript);
        const Outcome byReport = report(test.words);
        ASSERT_EQ(byHand.status, 0) << byHand.err.toStdString();
        EXPECT_EQ(byReport.status, 0) << byReport.err.toStdString();
        EXPECT_GT(byHand.lines().size(), 5);
        EXPECT_EQ(byReport.out, QStringLiteral("Site: Harbour Lights Grill & Bar\n") + test.spanAndHours + byHand.out)
            << test.words.join(QLatin1Char(' ')).toStdString();
        EXPECT_FALSE(byReport.err.contains(QStringLiteral("propagateSizeHints"))) << "only our own notes";
    }
    EXPECT_TRUE(site.read(QStringLiteral("items-2026-11-23.pdf")).startsWith("%PDF"));
    EXPECT_EQ(site.read(QStringLiteral("items-2026-11-23.csv")), site.read(QStringLiteral("Quillon/TempItems.dat")));

    // Each file of the site with its size and the time it was last written.
    const auto siteState = [&] {
        QStringList state;
        for (const QString &path : test::FilesBelow(site.driveFolder())) {
            const QFileInfo file(site.driveFolder() + QLatin1Char('/') + path);
            state.append(QStringLiteral("%1 %2 %3").arg(path).arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch()));
        }
        return state;
    };
    const QStringList stateBefore = siteState();
    const struct
    {
        QStringList words;
        int status;
        QString printed;
    } refusals[] = {
        {{QStringLiteral("main"), QStringLiteral("--department"), QStringLiteral("Nope")}, 2,
            QStringLiteral("qlon: report: unknown department 'Nope' (the site's: Food, Beverage, Liquor, ")},
        {{QStringLiteral("items-sold"), QStringLiteral("--department"), QStringLiteral("Nope"), QStringLiteral("--pdf"), pdf}, 2,
            QStringLiteral("qlon: report: unknown department 'Nope'")},
        {{QStringLiteral("main"), QStringLiteral("--pdf"), site.hostPath(QStringLiteral("no-folder/items.pdf"))}, 2,
            QStringLiteral("qlon: report: --pdf: folder ") + site.hostPath(QStringLiteral("no-folder")) +
                QStringLiteral(" does not exist")},
        {{QStringLiteral("main"), QStringLiteral("--csv"), site.hostPath(QStringLiteral("no-folder/items.csv"))}, 2,
            QStringLiteral("qlon: report: --csv: folder ")},
    };
    for (const auto &refusal : refusals) {
        const Outcome refused = report(refusal.words);
        EXPECT_EQ(refused.status, refusal.status) << refused.err.toStdString();
        EXPECT_TRUE(refused.err.startsWith(refusal.printed)) << refused.err.toStdString();
        EXPECT_EQ(refused.out, QString()) << "refused before any screen ran";
    }
    EXPECT_EQ(siteState(), stateBefore) << "a refused line writes no file";

    // A site that never had a template of its own prints through the program's, and still has none.
    const QString templatePath = site.hostPath(QStringLiteral("Quillon/ItemsSold.vrd"));
    ASSERT_TRUE(QFile::remove(templatePath));
    EXPECT_EQ(report({QStringLiteral("main"), QStringLiteral("--pdf"), site.hostPath(QStringLiteral("untemplated.pdf"))}).status, 0);
    EXPECT_TRUE(site.read(QStringLiteral("untemplated.pdf")).startsWith("%PDF"));
    EXPECT_FALSE(QFile::exists(templatePath));

    const Outcome script = report({QStringLiteral("items-sold"), QStringLiteral("--print-script")});
    EXPECT_EQ(script.status, 0);
    EXPECT_TRUE(script.out.startsWith(QStringLiteral("# The Items Sold analysis"))) << script.out.toStdString();
    EXPECT_TRUE(script.out.contains(QStringLiteral("set QlonItemsSold.MonthView1 11/16/2026\n"))) << "the site's start date";

    // Without the sales database, the missing file is what a report of it tells, and all it tells.
    ASSERT_TRUE(QFile::rename(site.hostPath(QStringLiteral("Quillon/data/Quillon.mdb")), site.hostPath(QStringLiteral("sales.bak"))));
    const Outcome withoutDatabase = report({QStringLiteral("server"), QStringLiteral("--server"), QStringLiteral("1005")});
    EXPECT_EQ(withoutDatabase.status, 1);
    EXPECT_EQ(withoutDatabase.err, QStringLiteral("qlon: report: Could not find file 'C:\\QUILLON\\data\\Quillon.mdb'.\n"));
}

} // namespace
} // namespace qlon
