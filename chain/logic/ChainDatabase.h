#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <memory>
#include <stdexcept>

struct pg_conn;
struct pg_result;

namespace qlon {

// A failure of the chain database, with libpq's or the server's own message.
class ChainError : public std::runtime_error
{
public:
    explicit ChainError(const QString &message);
    QString message() const { return QString::fromUtf8(what()); }
};

// The rows of one statement's answer, as texts; a null reads as an empty text.
class ChainResult
{
public:
    explicit ChainResult(pg_result *result);

    int rowCount() const;
    QByteArray value(int row, int column) const;
    bool isNull(int row, int column) const;

private:
    std::shared_ptr<pg_result> m_result;
};

// One connection to the chain database through libpq. Statements take their values as texts
// apart from the statement, so no value is ever read as SQL.
class ChainDatabase
{
public:
    // Connects to a URL or a key=value string as libpq takes them; ChainError when it can't.
    explicit ChainDatabase(const QByteArray &url);

    ChainResult exec(const QByteArray &statement, const QByteArrayList &values = {});
    // COPY ... FROM STDIN: `rows` are lines of the text form, each ended by a line feed.
    void copyIn(const QByteArray &statement, const QByteArray &rows);

private:
    std::shared_ptr<pg_conn> m_connection;
};

// A transaction that is rolled back unless committed, whatever ended it.
class ChainTransaction
{
public:
    explicit ChainTransaction(ChainDatabase &database);
    ~ChainTransaction();
    ChainTransaction(const ChainTransaction &) = delete;
    ChainTransaction &operator=(const ChainTransaction &) = delete;

    void commit();

private:
    ChainDatabase &m_database;
    bool m_open = true;
};

// A site's Windows-1252 text as the database holds it, in UTF-8, and back.
QByteArray ToChainText(const QByteArray &siteText);
QByteArray FromChainText(const QByteArray &chainText);

// A value in COPY's text form: backslashes, tabs and line ends escaped.
void AppendCopyText(QByteArray &line, QByteArrayView value);
inline constexpr QByteArrayView CopyNull{"\\N"};

} // namespace qlon
