#include "tests/chain/ChainServer.h"

#include "chain/logic/ChainDatabase.h"

#include <QFile>
#include <QProcess>

#include <unistd.h>

namespace qlon::test {

namespace {

const QString binaries = QStringLiteral(QLON_POSTGRES_BIN);
constexpr int startMilliseconds = 60000;

} // namespace

ChainServer::ChainServer()
{
    const QString data = m_folder.filePath(QStringLiteral("data"));
    if (getuid() == 0 && QProcess::execute(QStringLiteral("chown"), {QStringLiteral("nobody:nogroup"), m_folder.path()}) != 0)
        return;
    m_started = runAsOwner(binaries + QStringLiteral("/initdb"),
                    {QStringLiteral("-D"), data, QStringLiteral("-U"), QStringLiteral("qlon"), QStringLiteral("--auth=trust"),
                        QStringLiteral("-E"), QStringLiteral("UTF8"), QStringLiteral("--no-sync")}) &&
        runAsOwner(binaries + QStringLiteral("/pg_ctl"),
            {QStringLiteral("-D"), data, QStringLiteral("-l"), m_folder.filePath(QStringLiteral("server.log")), QStringLiteral("-w"),
                QStringLiteral("-t"), QString::number(startMilliseconds / 1000), QStringLiteral("-o"),
                QStringLiteral("-c listen_addresses='' -c fsync=off -k ") + m_folder.path(), QStringLiteral("start")});
}

ChainServer::~ChainServer()
{
    if (m_started) {
        runAsOwner(binaries + QStringLiteral("/pg_ctl"),
            {QStringLiteral("-D"), m_folder.filePath(QStringLiteral("data")), QStringLiteral("-m"), QStringLiteral("immediate"),
                QStringLiteral("-w"), QStringLiteral("stop")});
    }
}

QString ChainServer::log() const
{
    QFile file(m_folder.filePath(QStringLiteral("server.log")));
    return m_output + (file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString());
}

QByteArray ChainServer::createDatabase(const QByteArray &name)
{
    const QByteArray host = "host=" + m_folder.path().toUtf8() + " user=qlon dbname=";
    ChainDatabase(host + "postgres").exec("CREATE DATABASE " + name);
    return host + name;
}

bool ChainServer::runAsOwner(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(m_folder.path());
    if (getuid() == 0) {
        process.start(QStringLiteral("setpriv"),
            QStringList{QStringLiteral("--reuid=nobody"), QStringLiteral("--regid=nogroup"), QStringLiteral("--clear-groups"), program} +
                arguments);
    } else {
        process.start(program, arguments);
    }
    const bool ended = process.waitForFinished(startMilliseconds);
    m_output += QString::fromUtf8(process.readAll());
    return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

} // namespace qlon::test
