#include "store/SalesStore.h"

#include "core/Ansi.h"
#include "core/DateText.h"
#include "core/HostPath.h"
#include "core/Like.h"
#include "store/JetSalesStore.h"
#include "store/SqliteSalesStore.h"

#include <QFile>

#include <algorithm>
#include <charconv>
#include <cmath>

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
    QFile file(hostPath);
    if (!file.exists())
        throw EngineError(QStringLiteral("Could not find file '%1'.").arg(shownPath), hostPath);
    if (!file.open(QIODevice::ReadOnly)) {
        throw EngineError(QStringLiteral("The Microsoft Jet database engine cannot open the file '%1'.  It is "
                                         "already opened exclusively by another user, or you need permission to "
                                         "view its data.")
                              .arg(shownPath),
            hostPath);
    }
    return file.read(jetSignatureOffset + jetSignatures.front().size());
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

} // namespace qlon
