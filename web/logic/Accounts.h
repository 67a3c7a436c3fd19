#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace qlon::web {

enum class Role { Viewer, Manager };

QString RoleName(Role role);
std::optional<Role> RoleFromName(const QString &name);

// The people who may sign in to the report server: one line a person, "name:role:hash", the hash
// an Argon2id string of libsodium. The file lives with the user's own configuration, never in the
// site's share, and only its owner may read it.
class Accounts
{
public:
    // The file of the user's configuration: ~/.config/qlon/users.
    static QString DefaultPath();

    explicit Accounts(QString path);

    // Reads the file; a missing file is no account. An error text naming the file, or empty.
    QString load();
    // Writes the accounts in one piece, readable by their owner alone. An error text, or empty.
    QString save() const;

    // A name is letters, digits, dots, dashes and underscores, at most 64 of them.
    static bool IsValidName(const QString &name);
    // Replaces the person's password and role. False when the name can't be used or the
    // password is shorter than eight characters.
    bool add(const QString &name, const QString &password, Role role);
    bool remove(const QString &name);
    bool contains(const QString &name) const { return m_hashes.contains(name); }

    // The person's role when the password is theirs. An unknown name costs as much time as a
    // known one, so that timing tells no names.
    std::optional<Role> verify(const QString &name, const QString &password) const;

private:
    struct Account
    {
        Role role = Role::Viewer;
        QByteArray hash;
    };

    QString m_path;
    QHash<QString, Account> m_hashes;
};

} // namespace qlon::web
