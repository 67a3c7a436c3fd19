#include "demo/DemoSite.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 2) {
        QTextStream(stderr) << "usage: qlon-demo-site FOLDER\n"
                               "Writes a demonstration site into FOLDER, the folder that drive C: stands for.\n";
        return 2;
    }
    qlon::WriteDemoSite(arguments.at(1), QDate::currentDate());
    QTextStream(stdout) << "Demo site written to " << arguments.at(1) << "/Quillon\n";
    return 0;
}
