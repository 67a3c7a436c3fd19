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
    PGconn *connection = m_connection.get();
    checked(connection, PQexec(connection, statement.constData()));
    // Sent in pieces so that the server works while the rest is on its way.
    constexpr qsizetype piece = 1 << 20;
    for (qsizetype at = 0; at < rows.size(); at += piece) {
        if (PQputCopyData(connection, rows.constData() + at, int(qMin(piece, rows.size() - at))) != 1)
            throw ChainError(connectionMessage(connection));
    }
    if (PQputCopyEnd(connection, nullptr) != 1)
        throw ChainError(connectionMessage(connection));
    checked(connection, PQgetResult(connection));
    while (PGresult *rest = PQgetResult(connection))
        PQclear(rest);
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
