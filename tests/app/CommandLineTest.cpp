// What the program answers before it opens a window: help, its version and a command line it
// can't use, over SSH with no display and no platform chosen.
#include "core/Version.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

namespace qlon {
namespace {

struct Answer
{
    QStringList arguments;
    int status;
    QString printed; // on standard output when the status is 0, else on standard error
};

TEST(CommandLineTest, HelpVersionAndOptionErrorsNeedNoDisplay)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(name));
    const Answer answers[] = {
        {{QStringLiteral("--help")}, 0, QStringLiteral("--drive <LETTER=FOLDER>")},
        {{QStringLiteral("--version")}, 0, QStringLiteral("qlon ") + QLatin1String(ProgramVersion)},
        {{QStringLiteral("--no-such-option")}, 2, QStringLiteral("qlon: Unknown option 'no-such-option'.\nTry 'qlon --help'.")},
        {{QStringLiteral("--today"), QStringLiteral("23/11/2026")}, 2, QStringLiteral("qlon: --today takes a date as YYYY-MM-DD")},
        {{QStringLiteral("--drive"), QStringLiteral("/srv/pos")}, 2, QStringLiteral("qlon: --drive takes LETTER=FOLDER")},
        {{QStringLiteral("--drive"), QStringLiteral("C=/no/such/site")}, 2,
            QStringLiteral("qlon: --drive C=/no/such/site: there is no folder /no/such/site")},
        {{QStringLiteral("--open"), QStringLiteral("Backoffice")}, 2,
            QStringLiteral("qlon: --open: there is no screen Backoffice; the screens are BackOffice, ")},
        {{QStringLiteral("summary")}, 2, QStringLiteral("qlon: unknown word summary")},
        {{QStringLiteral("report"), QStringLiteral("weekly")}, 2,
            QStringLiteral("qlon: report: unknown report 'weekly' (main, items-sold, server)")},
        {{QStringLiteral("report"), QStringLiteral("server")}, 2, QStringLiteral("qlon: report: the server report needs --server N")},
        {{QStringLiteral("report"), QStringLiteral("main"), QStringLiteral("--from"), QStringLiteral("31/12/2026")}, 2,
            QStringLiteral("qlon: report: --from '31/12/2026' is no date")},
        {{QStringLiteral("report"), QStringLiteral("main"), QStringLiteral("--to"), QString()}, 2,
            QStringLiteral("qlon: report: --to '' is no date")},
        {{QStringLiteral("report"), QStringLiteral("main"), QStringLiteral("--from"), QStringLiteral("2026-11-20"), QStringLiteral("--to"),
             QStringLiteral("11/18/2026")},
            2, QStringLiteral("qlon: report: --to 11/18/2026 lies before --from 11/20/2026")},
        {{QStringLiteral("report"), QStringLiteral("main"), QStringLiteral("--start-time"), QStringLiteral("6pm")}, 2,
            QStringLiteral("qlon: report: --start-time '6pm' is no time of day")},
        {{QStringLiteral("report"), QStringLiteral("main"), QStringLiteral("--end-time"), QStringLiteral("25:00")}, 2,
            QStringLiteral("qlon: report: --end-time '25:00' is no time of day")},
        {{QStringLiteral("report"), QStringLiteral("items-sold"), QStringLiteral("--category"), QStringLiteral("Nope")}, 2,
            QStringLiteral("qlon: report: unknown category 'Nope' (food, bar, both, retail, all; a department goes with --department)")},
        {{QStringLiteral("report"), QStringLiteral("main"), QStringLiteral("--category"), QStringLiteral("food"),
             QStringLiteral("--department"), QStringLiteral("Wine")},
            2, QStringLiteral("qlon: report: the main report takes --category or --department, not both")},
        {{QStringLiteral("report"), QStringLiteral("items-sold"), QStringLiteral("--csv"), QStringLiteral("x.csv")}, 2,
            QStringLiteral("qlon: report: --csv is for the main report")},
    };
    for (const Answer &answer : answers) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(QLON_PROGRAM), answer.arguments);
        ASSERT_TRUE(process.waitForFinished(60000));
        const QString out = QString::fromUtf8(process.readAllStandardOutput());
        const QString err = QString::fromUtf8(process.readAllStandardError());
        const QString arguments = answer.arguments.join(QLatin1Char(' '));
        EXPECT_EQ(process.exitCode(), answer.status) << arguments.toStdString() << ": " << err.toStdString();
        EXPECT_TRUE((answer.status == 0 ? out : err).contains(answer.printed)) << arguments.toStdString();
        EXPECT_EQ(answer.status == 0 ? err : out, QString()) << arguments.toStdString();
    }
}

} // namespace
} // namespace qlon
