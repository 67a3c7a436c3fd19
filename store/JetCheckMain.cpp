// qlon-jet-check FILE TABLE: reads a Jet file's catalogue and a table's columns, for a program
// that keeps libmdb's failures on damaged files out of its own process.
#include "store/JetCheck.h"

#include <QCoreApplication>
#include <QStringList>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 3)
        return 1;
    return qlon::CheckJetFileHere(arguments.at(1), arguments.at(2).toLatin1());
}
