#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace qlon::test {

// A print service of the test's own: cupsd on a Unix socket in a temporary folder, whose queues
// keep every job as the program sent it. Programs reach it through CUPS_SERVER=server().
class PrivateCups
{
public:
    PrivateCups() = default;
    ~PrivateCups();
    PrivateCups(const PrivateCups &) = delete;
    PrivateCups &operator=(const PrivateCups &) = delete;

    // False, with the reason in error(), when no cupsd runs here.
    bool start();
    // A queue of a printer whose paper is `paper` (Letter or A4).
    bool addQueue(const QString &name, const QString &paper);
    bool setDefault(const QString &name);

    QString server() const { return m_folder.filePath(QStringLiteral("cups.sock")); }
    QString error() const { return m_error; }
    // The documents of the jobs sent so far, oldest first.
    QStringList jobDocuments() const;

private:
    bool admin(const QStringList &arguments);

    QTemporaryDir m_folder;
    QProcess m_cupsd;
    QString m_error;
};

} // namespace qlon::test
