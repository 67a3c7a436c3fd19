#include "chain/logic/ChainDatabase.h"

#include "core/Ansi.h"

#include <libpq-fe.h>

#include <vector>

namespace qlon {

namespace {

QString connectionMessage(PGconn *connection)
{
    return QString::fromUtf8(PQerrorMessage(connection)).trimmed();
}

// The answer of a statement, or ChainError with the server's message.
ChainResult checked(PGconn *connection, PGresult *result)
{
    const ExecStatusType status = result ? PQresultStatus(result) : PGRES_FATAL_ERROR;
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK || status == PGRES_COPY_IN)
        return ChainResult(result);
    const QString message = result ? QString::fromUtf8(PQresultErrorMessage(result)).trimmed() : connectionMessage(connection);
    PQclear(result);
    throw ChainError(message);
}

} // namespace

ChainError::ChainError(const QString &message)
    : std::runtime_error(message.toStdString())
{
}

ChainResult::ChainResult(pg_result *result)
    : m_result(result, PQclear)
{
}

int ChainResult::rowCount() const
{
    return PQntuples(m_result.get());
}

QByteArray ChainResult::value(int row, int column) const
{
    return {PQgetvalue(m_result.get(), row, column), PQgetlength(m_result.get(), row, column)};
}

bool ChainResult::isNull(int row, int column) const
{
    return PQgetisnull(m_result.get(), row, column) != 0;
}

ChainDatabase::ChainDatabase(const QByteArray &url)
    : m_connection(PQconnectdb(url.constData()), PQfinish)
{
    if (!m_connection)
        throw ChainError(QStringLiteral("out of memory"));
    if (PQstatus(m_connection.get()) != CONNECTION_OK)
        throw ChainError(connectionMessage(m_connection.get()));
    // The server's notices (a table that is already there) are no news to the user.
    PQsetNoticeProcessor(
        m_connection.get(), [](void *, const char *) {}, nullptr);
    // The site's Windows-1252 texts are sent as UTF-8, whatever the server's default.
    exec("SET client_encoding TO 'UTF8'");
    // The program's statements read every site's partition once: compiling their expressions for
    // each partition (the server's JIT) costs seconds that the reading never wins back.
    exec("SET jit = off");
}

ChainResult ChainDatabase::exec(const QByteArray &statement, const QByteArrayList &values)
{
    std::vector<const char *> texts;
    texts.reserve(std::size_t(values.size()));
    for (const QByteArray &value : values)
        texts.push_back(value.constData());
    PGconn *connection = m_connection.get();
    return checked(
        connection, PQexecParams(connection, statement.constData(), int(values.size()), nullptr, texts.data(), nullptr, nullptr, 0));
}

void ChainDatabase::copyIn(const QByteArray &statement, const QByteArray &rows)
{
    ChainCopy copy(*this, statement);
    copy.send(rows);
    copy.finish();
}

namespace {

// What may wait for the sender before the caller waits too.
constexpr qsizetype largestQueue = 64 << 20;

} // namespace

ChainCopy::ChainCopy(ChainDatabase &database, const QByteArray &statement)
    : m_connection(database.m_connection.get())
{
    checked(m_connection, PQexec(m_connection, statement.constData()));
    m_sender = std::thread([this] { sendQueued(); });
}

ChainCopy::~ChainCopy()
{
    stopSending(Queued::Discarded);
    if (!m_open)
        return;
    try {
        end("the rows stopped coming");
    } catch (const ChainError &) {
        // The server discards the rows either way.
    }
}

void ChainCopy::send(QByteArray rows)
{
    if (rows.isEmpty())
        return;
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_queuedBytes < largestQueue || !m_failure.isEmpty(); });
    if (!m_failure.isEmpty())
        throw ChainError(m_failure);
    m_queuedBytes += rows.size();
    m_queued.push_back(std::move(rows));
    m_changed.notify_all();
}

void ChainCopy::sendQueued()
{
    // Sent in pieces so that the server works while the rest is on its way.
    constexpr qsizetype piece = 1 << 20;
    for (;;) {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_stopping || !m_queued.empty(); });
        if (m_queued.empty())
            return;
        const QByteArray rows = std::move(m_queued.front());
        m_queued.pop_front();
        lock.unlock();
        for (qsizetype at = 0; at < rows.size(); at += piece) {
            if (PQputCopyData(m_connection, rows.constData() + at, int(qMin(piece, rows.size() - at))) != 1) {
                lock.lock();
                m_failure = connectionMessage(m_connection);
                m_queued.clear();
                m_changed.notify_all();
                return;
            }
        }
        lock.lock();
        m_queuedBytes -= rows.size();
        m_changed.notify_all();
    }
}

// Ends the sender once it has sent what is queued, or at once; its failure, if it had one.
QString ChainCopy::stopSending(Queued queued)
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
        if (queued == Queued::Discarded)
            m_queued.clear();
    }
    m_changed.notify_all();
    if (m_sender.joinable())
        m_sender.join();
    return m_failure;
}

void ChainCopy::finish()
{
    if (const QString failure = stopSending(Queued::Sent); !failure.isEmpty()) {
        end("a piece of the rows could not be sent");
        throw ChainError(failure);
    }
    end(nullptr);
}

void ChainCopy::end(const char *failure)
{
    m_open = false;
    if (PQputCopyEnd(m_connection, failure) != 1)
        throw ChainError(connectionMessage(m_connection));
    PGresult *result = PQgetResult(m_connection);
    while (PGresult *rest = PQgetResult(m_connection))
        PQclear(rest);
    if (failure)
        PQclear(result);
    else
        checked(m_connection, result);
}

ChainTransaction::ChainTransaction(ChainDatabase &database)
    : m_database(database)
{
    m_database.exec("BEGIN");
}

ChainTransaction::~ChainTransaction()
{
    if (!m_open)
        return;
    try {
        m_database.exec("ROLLBACK");
    } catch (const ChainError &) {
        // A connection that broke has ended the transaction itself.
    }
}

void ChainTransaction::commit()
{
    m_database.exec("COMMIT");
    m_open = false;
}

QByteArray ToChainText(const QByteArray &siteText)
{
    return FromAnsi(siteText).toUtf8();
}

QByteArray FromChainText(const QByteArray &chainText)
{
    return ToAnsi(QString::fromUtf8(chainText));
}

void AppendCopyText(QByteArray &line, QByteArrayView value)
{
    for (const char character : value) {
        switch (character) {
        case '\\': line.append("\\\\"); break;
        case '\t': line.append("\\t"); break;
        case '\n': line.append("\\n"); break;
        case '\r': line.append("\\r"); break;
        default: line.append(character);
        }
    }
}

} // namespace qlon
