#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace qlon::test {

// A PostgreSQL server of its own in a temporary folder, reached only through a Unix socket there,
// run as `nobody` when the test runs as root (the server refuses root), stopped at the end.
class ChainServer
{
public:
    ChainServer();
    ~ChainServer();
    ChainServer(const ChainServer &) = delete;
    ChainServer &operator=(const ChainServer &) = delete;

    bool started() const { return m_started; }
    // The log of the server and of its start, for a failure's message.
    QString log() const;
    // A URL of a new, empty database on the server.
    QByteArray createDatabase(const QByteArray &name);

private:
    bool runAsOwner(const QString &program, const QStringList &arguments);

    QTemporaryDir m_folder;
    bool m_started = false;
    QString m_output;
};

} // namespace qlon::test
