#include "core/Version.h"
#include "web/WebCommand.h"

#include <QCoreApplication>

// `qlon-serve`: the report server and its accounts, which `qlon` runs in its place so that the
// desktop program and its reports don't load the server's libraries.
int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("qlon"));
    QCoreApplication::setApplicationVersion(QLatin1String(qlon::ProgramVersion));
    return qlon::web::RunWebCommand(argc, argv);
}
