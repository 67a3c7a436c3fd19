#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>

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
    friend class ChainCopy;
    std::shared_ptr<pg_conn> m_connection;
};

// One COPY ... FROM STDIN whose rows are sent as they come, by a thread of its own, so that the
// server writes them while the caller makes the rest. Unless finished, the server discards what it
// was sent, and the connection is ready for the transaction's rollback. The connection is the
// copy's alone until it ends.
class ChainCopy
{
public:
    ChainCopy(ChainDatabase &database, const QByteArray &statement);
    ~ChainCopy();
    ChainCopy(const ChainCopy &) = delete;
    ChainCopy &operator=(const ChainCopy &) = delete;

    // Lines of the text form, each ended by a line feed; waits while much is still on its way.
    void send(QByteArray rows);
    // Waits for every row to reach the server, and for its answer; ChainError when it refused.
    void finish();

private:
    enum class Queued { Sent, Discarded };

    void sendQueued();
    QString stopSending(Queued queued);
    void end(const char *failure);

    pg_conn *m_connection;
    bool m_open = true;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<QByteArray> m_queued;
    qsizetype m_queuedBytes = 0;
    bool m_stopping = false;
    QString m_failure; // the sender's, when a piece couldn't be sent
    std::thread m_sender;
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
