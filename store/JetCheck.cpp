#include "store/JetCheck.h"

#include "core/Ansi.h"
#include "core/RuntimeError.h"
#include "store/JetSalesStore.h"
#include "store/SalesStore.h"

#include <QProcess>

namespace qlon {

namespace {

struct Checker
{
    QString path;
    int milliseconds = 0;
};

Checker &checker()
{
    static Checker installed;
    return installed;
}

} // namespace

void SetJetChecker(const QString &programPath, int milliseconds)
{
    checker() = {programPath, milliseconds};
}

void CheckJetFile(const QString &hostPath, QByteArrayView table)
{
    if (checker().path.isEmpty())
        return;
    QProcess child;
    child.setStandardOutputFile(QProcess::nullDevice());
    child.setStandardErrorFile(QProcess::nullDevice());
    child.start(checker().path, {hostPath, FromAnsi(table)});
    const bool finished = child.waitForStarted() && child.waitForFinished(checker().milliseconds);
    if (!finished) {
        child.kill();
        child.waitForFinished();
        throw UnrecognizedFormatError(hostPath);
    }
    if (child.exitStatus() != QProcess::NormalExit || child.exitCode() == 1)
        throw UnrecognizedFormatError(hostPath);
}

int CheckJetFileHere(const QString &hostPath, QByteArrayView table)
{
    try {
        JetTable(hostPath, table, {}, JetTable::Pages::File);
        return 0;
    } catch (const RuntimeError &error) {
        return error.description() == UnrecognizedFormatError(hostPath).description() ? 1 : 2;
    }
}

} // namespace qlon
