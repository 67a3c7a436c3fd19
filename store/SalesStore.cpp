#include "store/SalesStore.h"

#include "core/Ansi.h"
#include "core/DateText.h"
#include "core/HostPath.h"
#include "core/Like.h"
#include "platform/FileLock.h"
#include "store/JetSalesStore.h"
#include "store/SqliteSalesStore.h"

#include <QFile>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#endif

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

namespace qlon {
namespace {

// The codes under which the engine reports its errors.
constexpr qint64 engineFailure = -2147467259;
constexpr qint64 engineMissingTable = -2147217865;
constexpr qint64 engineBadValue = -2147217913;

constexpr QByteArrayView sqliteSignature("SQLite format 3\0", 16);
constexpr qsizetype jetSignatureOffset = 4;
constexpr std::array<QByteArrayView, 2> jetSignatures{"Standard Jet DB", "Standard ACE DB"};

bool isJetHeader(QByteArrayView header)
{
    const QByteArrayView signatureField = header.sliced(qMin(jetSignatureOffset, header.size()));
    for (QByteArrayView signature : jetSignatures) {
        if (signatureField.startsWith(signature))
            return true;
    }
    return false;
}

QByteArray readHeader(const QString &hostPath, const QString &shownPath)
{
    if (!QFile::exists(hostPath))
        throw EngineError(QStringLiteral("Could not find file '%1'.").arg(shownPath), hostPath);
    const std::optional<QByteArray> header = DatabaseHeader(hostPath, jetSignatureOffset + jetSignatures.front().size());
    if (!header)
        throw ExclusivelyOpenedError(shownPath, hostPath);
    return *header;
}
template<typename Number>
QByteArray shortestText(Number value)
{
    const Number magnitude = std::abs(value);
    const bool plain = magnitude == 0 || (magnitude >= Number(1e-5) && magnitude < Number(1e15));
    std::array<char, 64> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, plain ? std::chars_format::fixed : std::chars_format::scientific)
            .ptr;
    return QByteArray(digits.data(), end - digits.data()).toUpper();
}

} // namespace

namespace {

#ifndef Q_OS_WIN
// Whether the open file is still the one the path names, and not one that has taken its place.
bool isStillAtPath(QFile &file)
{
    struct stat atPath = {};
    struct stat opened = {};
    return stat(QFile::encodeName(file.fileName()).constData(), &atPath) == 0 && fstat(file.handle(), &opened) == 0 &&
        atPath.st_dev == opened.st_dev && atPath.st_ino == opened.st_ino;
}
#endif

// An SQLite file whose header was read stays open for the life of the program, as SQLite keeps the
// files it is done with: closing any descriptor of a file drops every lock the process holds on
// it, SQLite's own among them.
QFile &keptOpen(const QString &hostPath)
{
    static std::map<QString, std::unique_ptr<QFile>> kept;
    std::unique_ptr<QFile> &file = kept[hostPath];
#ifndef Q_OS_WIN
    if (file && file->isOpen() && !isStillAtPath(*file))
        file.reset();
#endif
    if (!file)
        file = std::make_unique<QFile>(hostPath);
    return *file;
}

} // namespace

// A file that a station holds exclusively can't be opened: it is waited for a moment.
std::optional<QByteArray> DatabaseHeader(const QString &hostPath, qint64 size)
{
    QFile &file = keptOpen(hostPath);
    if (!file.isOpen() && !RetryForStationWait([&file] { return file.open(QIODevice::ReadOnly); }))
        return std::nullopt;
    const QByteArray header = file.seek(0) ? file.read(size) : QByteArray();
#ifndef Q_OS_WIN
    if (header.startsWith(sqliteSignature))
        return header;
#endif
    file.close();
    return header;
}

void AssignValue(SalesValue &value, QByteArrayView bytes)
{
    if (!value || !value->isDetached()) {
        value.emplace(bytes.data(), bytes.size());
        return;
    }
    if (value->size() != bytes.size())
        value->resize(bytes.size());
    std::copy_n(bytes.data(), bytes.size(), value->data());
}

SalesRowsMark SalesStore::MarkRows()
{
    const qint64 rows = CountRows();
    return {rows == 0, rows};
}

void SalesStore::SelectMarked(const SalesRowsMark &mark, const SalesVisitor &visit)
{
    if (mark.empty)
        return;
    qint64 walked = 0;
    SelectAll([&](const SalesRow &row) { return ++walked <= mark.last && visit(row); });
}

void SalesStore::SelectLike(const SalesRowsMark &mark, SalesColumn column, QByteArrayView pattern, SalesColumns, const SalesVisitor &visit)
{
    SelectMarked(mark, [&](const SalesRow &row) { return !(row[column] && MatchesLike(*row[column], pattern)) || visit(row); });
}

std::unique_ptr<SalesStore> OpenSiteSalesStore(const QByteArray &sitePath)
{
    return OpenSalesStore(HostPath(sitePath), FromAnsi(sitePath));
}

std::unique_ptr<SalesStore> OpenSalesStore(const QString &hostPath, const QString &shownPath)
{
    const QString shown = shownPath.isEmpty() ? hostPath : shownPath;
    const QByteArray header = readHeader(hostPath, shown);
    if (header.startsWith(sqliteSignature))
        return std::make_unique<SqliteSalesStore>(hostPath);
    if (isJetHeader(header))
        return std::make_unique<JetSalesStore>(hostPath);
    throw UnrecognizedFormatError(shown);
}

QByteArray DateTimeText(QDate date, QTime time)
{
    if (date == DayZero)
        return LongTime(time);
    if (time == QTime(0, 0))
        return ShortDate(date);
    return ShortDate(date) + ' ' + LongTime(time);
}

QByteArray NumberText(double value)
{
    return shortestText(value);
}

QByteArray NumberText(float value)
{
    return shortestText(value);
}

DateSpan ReadDateSpan(QByteArrayView from, QByteArrayView to)
{
    const std::optional<QDate> fromDate = ToDate(from);
    const std::optional<QDate> toDate = ToDate(to);
    if (!fromDate || !toDate) {
        const QString expression = QStringLiteral("OrderDate BETWEEN #%1# AND #%2#").arg(FromAnsi(from), FromAnsi(to));
        throw RuntimeError(engineBadValue, QStringLiteral("Syntax error in date in query expression '%1'.").arg(expression), {});
    }
    return {*fromDate, *toDate};
}

RuntimeError EngineError(const QString &description, const QString &hostPath)
{
    return RuntimeError(engineFailure, description, hostPath);
}

RuntimeError UnrecognizedFormatError(const QString &hostPath)
{
    return EngineError(QStringLiteral("Unrecognized database format '%1'.").arg(hostPath), hostPath);
}

RuntimeError MissingTableError(QByteArrayView table, const QString &hostPath)
{
    return RuntimeError(engineMissingTable,
        QStringLiteral("The Microsoft Jet database engine cannot find the input table or query "
                       "'%1'.  Make sure it exists and that its name is spelled correctly.")
            .arg(FromAnsi(table)),
        hostPath);
}

RuntimeError StationHeldError(const QString &description, const QString &hostPath)
{
    return EngineError(description, hostPath).heldElsewhere();
}

RuntimeError ExclusivelyOpenedError(const QString &shownPath, const QString &hostPath)
{
    return StationHeldError(QStringLiteral("The Microsoft Jet database engine cannot open the file '%1'.  It is "
                                           "already opened exclusively by another user, or you need permission to "
                                           "view its data.")
                                .arg(shownPath),
        hostPath);
}

RuntimeError ChangedWhileReadError(const QString &hostPath)
{
    return StationHeldError(QStringLiteral("The database changed while it was read."), hostPath);
}

} // namespace qlon
