#include "demo/DemoSite.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Writes a demonstration site into FOLDER, the folder that drive C: stands for."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("FOLDER"), QStringLiteral("The folder to hold the site's Quillon folder."));
    // An option is never a folder's name, even one this program doesn't know.
    const bool parsed = parser.parse(application.arguments());
    if (parsed && parser.isSet(QStringLiteral("help"))) {
        QTextStream(stdout) << parser.helpText();
        return 0;
    }
    if (!parsed || parser.positionalArguments().size() != 1) {
        const QString why = parsed ? QStringLiteral("give one FOLDER") : parser.errorText();
        QTextStream(stderr) << "qlon-demo-site: " << why << "\nTry 'qlon-demo-site --help'.\n";
        return 2;
    }
    const QString folder = QDir(parser.positionalArguments().constFirst()).absolutePath();
    qlon::WriteDemoSite(folder, QDate::currentDate());
    QTextStream(stdout) << "Demo site written to " << folder << "/Quillon\nOpen it with: qlon --drive C=" << folder << "\n";
    return 0;
}
