#include "web/logic/Accounts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>

#include <sodium.h>

namespace qlon::web {

namespace {

constexpr qsizetype shortestPassword = 8;

bool sodiumReady()
{
    static const bool ready = sodium_init() >= 0;
    return ready;
}

QByteArray hashOf(const QString &password)
{
    const QByteArray bytes = password.toUtf8();
    char hash[crypto_pwhash_STRBYTES];
    if (!sodiumReady() ||
        crypto_pwhash_str_alg(hash, bytes.constData(), quint64(bytes.size()), crypto_pwhash_OPSLIMIT_INTERACTIVE,
            crypto_pwhash_MEMLIMIT_INTERACTIVE, crypto_pwhash_ALG_ARGON2ID13) != 0)
        return {};
    return QByteArray(hash);
}

bool matches(const QByteArray &hash, const QString &password)
{
    const QByteArray bytes = password.toUtf8();
    return sodiumReady() && crypto_pwhash_str_verify(hash.constData(), bytes.constData(), quint64(bytes.size())) == 0;
}

// A hash of no one's password, checked for an unknown name so that it takes a known name's time.
const QByteArray &decoyHash()
{
    static const QByteArray hash = hashOf(QStringLiteral("no one's password"));
    return hash;
}

} // namespace

QString RoleName(Role role)
{
    return role == Role::Manager ? QStringLiteral("manager") : QStringLiteral("viewer");
}

std::optional<Role> RoleFromName(const QString &name)
{
    if (name == QLatin1String("viewer"))
        return Role::Viewer;
    if (name == QLatin1String("manager"))
        return Role::Manager;
    return std::nullopt;
}

QString Accounts::DefaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/qlon/users");
}

Accounts::Accounts(QString path)
    : m_path(std::move(path))
{
}

QString Accounts::load()
{
    m_hashes.clear();
    QFile file(m_path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("can't read %1").arg(m_path);
    int number = 0;
    while (!file.atEnd()) {
        ++number;
        const QByteArray line = file.readLine(4096).trimmed();
        if (line.isEmpty())
            continue;
        const QList<QByteArray> fields = line.split(':');
        const QString name = QString::fromUtf8(fields.value(0));
        const std::optional<Role> role = RoleFromName(QString::fromLatin1(fields.value(1)));
        if (fields.size() != 3 || !IsValidName(name) || !role || !fields[2].startsWith("$argon2id$"))
            return QStringLiteral("%1: line %2 is no account (name:role:hash)").arg(m_path).arg(number);
        m_hashes.insert(name, {*role, fields[2]});
    }
    return {};
}

QString Accounts::save() const
{
    if (!QDir().mkpath(QFileInfo(m_path).absolutePath()))
        return QStringLiteral("can't make the folder of %1").arg(m_path);
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        return QStringLiteral("can't write %1").arg(m_path);
    file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    QStringList names = m_hashes.keys();
    names.sort();
    for (const QString &name : names) {
        const Account &account = m_hashes[name];
        file.write(name.toUtf8() + ':' + RoleName(account.role).toLatin1() + ':' + account.hash + '\n');
    }
    return file.commit() ? QString() : QStringLiteral("can't write %1").arg(m_path);
}

bool Accounts::IsValidName(const QString &name)
{
    static const QRegularExpression pattern(QStringLiteral("^[A-Za-z0-9._-]{1,64}$"));
    return pattern.match(name).hasMatch();
}

bool Accounts::add(const QString &name, const QString &password, Role role)
{
    if (!IsValidName(name) || password.size() < shortestPassword)
        return false;
    const QByteArray hash = hashOf(password);
    if (hash.isEmpty())
        return false;
    m_hashes.insert(name, {role, hash});
    return true;
}

bool Accounts::remove(const QString &name)
{
    return m_hashes.remove(name) > 0;
}

std::optional<Role> Accounts::verify(const QString &name, const QString &password) const
{
    const auto account = m_hashes.constFind(name);
    if (account == m_hashes.constEnd()) {
        matches(decoyHash(), password);
        return std::nullopt;
    }
    if (!matches(account->hash, password))
        return std::nullopt;
    return account->role;
}

} // namespace qlon::web
