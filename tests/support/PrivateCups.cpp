#include "tests/support/PrivateCups.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QThread>

namespace qlon::test {

namespace {

bool writeText(const QString &path, const QString &text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) == text.toUtf8().size();
}

// Everything in the test's folder; jobs stay in the spool after they are printed.
QString schedulerConfiguration(const QString &folder)
{
    return QStringLiteral("Listen %1/cups.sock\nPreserveJobFiles Yes\nLogLevel warn\nWebInterface No\nBrowsing Off\n"
                          "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
                          "<Policy default>\n  <Limit All>\n    Order deny,allow\n  </Limit>\n</Policy>\n")
        .arg(folder);
}

QString filesConfiguration(const QString &folder)
{
    return QStringLiteral("ServerRoot %1\nRequestRoot %1/spool\nCacheDir %1/cache\nStateDir %1/state\nTempDir %1/tmp\n"
                          "ErrorLog %1/error_log\nAccessLog %1/access_log\nPageLog %1/page_log\nSystemGroup root\n")
        .arg(folder);
}

} // namespace

PrivateCups::~PrivateCups()
{
    m_cupsd.terminate();
    if (!m_cupsd.waitForFinished(5000))
        m_cupsd.kill();
    m_cupsd.waitForFinished(5000);
}

bool PrivateCups::start()
{
    const QString cupsd = QStandardPaths::findExecutable(QStringLiteral("cupsd"), {QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")});
    if (cupsd.isEmpty() || QStandardPaths::findExecutable(QStringLiteral("lpadmin"), {QStringLiteral("/usr/sbin")}).isEmpty()) {
        m_error = QStringLiteral("cupsd and lpadmin aren't installed");
        return false;
    }
    const QString folder = m_folder.path();
    for (const char *sub : {"spool", "cache", "state", "tmp", "ppd"})
        QDir(folder).mkpath(QLatin1String(sub));
    // The scheduler drops to its own user for what it runs in the temporary folder.
    QFile::setPermissions(folder,
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner | QFileDevice::ReadOther | QFileDevice::ExeOther |
            QFileDevice::ReadGroup | QFileDevice::ExeGroup);
    QFile::setPermissions(folder + QStringLiteral("/tmp"), QFileDevice::Permissions(0x7777));
    if (!writeText(folder + QStringLiteral("/cupsd.conf"), schedulerConfiguration(folder)) ||
        !writeText(folder + QStringLiteral("/cups-files.conf"), filesConfiguration(folder))) {
        m_error = QStringLiteral("can't write the configuration");
        return false;
    }
    m_cupsd.setProcessChannelMode(QProcess::MergedChannels);
    m_cupsd.start(cupsd,
        {QStringLiteral("-f"), QStringLiteral("-c"), folder + QStringLiteral("/cupsd.conf"), QStringLiteral("-s"),
            folder + QStringLiteral("/cups-files.conf")});
    m_cupsd.waitForStarted(10000);
    const QDeadlineTimer deadline(10000);
    while (!QFileInfo::exists(server()) && !deadline.hasExpired() && m_cupsd.state() == QProcess::Running)
        QThread::msleep(20);
    if (!QFileInfo::exists(server())) {
        m_cupsd.waitForFinished(100);
        m_error = QStringLiteral("cupsd didn't start: ") + QString::fromUtf8(m_cupsd.readAll());
        return false;
    }
    return true;
}

bool PrivateCups::admin(const QStringList &arguments)
{
    QProcess lpadmin;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("CUPS_SERVER"), server());
    lpadmin.setProcessEnvironment(environment);
    lpadmin.start(QStringLiteral("lpadmin"), arguments);
    const bool done = lpadmin.waitForFinished(10000) && lpadmin.exitStatus() == QProcess::NormalExit && lpadmin.exitCode() == 0;
    if (!done)
        m_error = QStringLiteral("lpadmin %1: %2").arg(arguments.join(QLatin1Char(' ')), QString::fromUtf8(lpadmin.readAllStandardError()));
    return done;
}

bool PrivateCups::addQueue(const QString &name, const QString &paper)
{
    return admin(
        {QStringLiteral("-p"), name, QStringLiteral("-E"), QStringLiteral("-v"), QStringLiteral("file:///dev/null"), QStringLiteral("-P"),
            QStringLiteral(QLON_TEST_DATA "/printers/pdf-printer.ppd"), QStringLiteral("-o"), QStringLiteral("PageSize=") + paper});
}

bool PrivateCups::setDefault(const QString &name)
{
    return admin({QStringLiteral("-d"), name});
}

QStringList PrivateCups::jobDocuments() const
{
    // The program sends a job whole and waits for the service to take it, so its document is in
    // the spool once the program has ended.
    const QDir spool(m_folder.filePath(QStringLiteral("spool")));
    QStringList paths;
    for (const QString &document : spool.entryList({QStringLiteral("d*")}, QDir::Files, QDir::Name))
        paths.append(spool.filePath(document));
    return paths;
}

} // namespace qlon::test
