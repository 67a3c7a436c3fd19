#include "app/ChainCommands.h"
#include "core/Version.h"

#include <QCoreApplication>

// `qlon-chain`: the chain database's commands, which `qlon` runs in its place so that the desktop
// program and its reports don't load the database's client.
int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("qlon"));
    QCoreApplication::setApplicationVersion(QLatin1String(qlon::ProgramVersion));
    return qlon::RunChainCommand(argc, argv);
}
