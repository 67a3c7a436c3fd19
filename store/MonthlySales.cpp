#include "store/MonthlySales.h"

#include "core/Ansi.h"
#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/ErrorIgnoring.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/HostPath.h"
#include "store/SiteConfig.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace qlon {

namespace {

// A walk over a site's files can't go on for ever: a century of months is far beyond any.
constexpr int monthLimit = 1200;

// The latest month that has a file in the data folder, if any.
std::optional<QDate> latestMonthWithFile()
{
    const QList<QDate> months = MonthsWithFiles();
    return months.isEmpty() ? std::nullopt : std::optional(months.last());
}

bool beyond(QDate date, const std::optional<QDate> &latestMonth)
{
    return !latestMonth || QDate(date.year(), date.month(), 1) > *latestMonth;
}

// The old end of the walk: the month's "MM/31/YY" text reads as a date before the month's date.
bool walkEnds(QDate current)
{
    const std::optional<QDate> lastDay = ToDate(Format(current, "MM") + "/31/" + Format(current, "YY"));
    return lastDay && current > *lastDay;
}

// A record is in step when its date has "/" as its third character.
bool inStep(QByteArrayView date)
{
    return date.size() >= 3 && date[2] == '/';
}

// A price of digits with three decimals at the most keeps its value through the pattern
// "###.###.##", which then neither rounds nor cuts it.
std::optional<double> plainPrice(QByteArrayView price)
{
    return ReadUnsignedDecimal(price, 3);
}

// The end of the last line among the file's first `size` bytes, just past its line end ("\n", or
// "\r" as the reader takes it); 0 when no line has ended. The file is left at its start.
qint64 endOfLastLine(QFile &file, qint64 size)
{
    constexpr qint64 chunk = 4096;
    qint64 end = size;
    while (end > 0) {
        const qint64 start = std::max<qint64>(end - chunk, 0);
        file.seek(start);
        const QByteArray bytes = file.read(end - start);
        const auto lineEnd = std::find_if(bytes.crbegin(), bytes.crend(), [](char byte) { return byte == '\n' || byte == '\r'; });
        if (lineEnd != bytes.crend()) {
            end = start + (bytes.crend() - lineEnd);
            break;
        }
        end = start;
    }
    file.seek(0);
    return end;
}

} // namespace

QByteArray MonthFileName(QDate date)
{
    return Site().DataRoot + "data\\ItemsSold" + Format(date, "MMYYYY") + ".DAT";
}

QList<QDate> MonthsWithFiles()
{
    const QString folder = HostPath(Site().DataRoot + "data");
    static const QRegularExpression name(QStringLiteral("^ItemsSold(\\d\\d)(\\d{4})\\.DAT$"), QRegularExpression::CaseInsensitiveOption);
    QList<QDate> months;
    for (const QString &file : QDir(folder).entryList(QDir::Files)) {
        const QRegularExpressionMatch match = name.match(file);
        const QDate month(match.captured(2).toInt(), match.captured(1).toInt(), 1);
        if (match.hasMatch() && month.isValid() && !months.contains(month))
            months.append(month);
    }
    std::sort(months.begin(), months.end());
    return months;
}

QList<QDate> MonthWalk(QByteArrayView fromDate)
{
    return MonthWalk(fromDate, latestMonthWithFile());
}

QList<QDate> MonthWalk(QByteArrayView fromDate, const std::optional<QDate> &latestMonth)
{
    const std::optional<QDate> from = ToDate(fromDate);
    if (!from)
        return {};
    QList<QDate> months;
    for (int step = 0; step < monthLimit; ++step) {
        const QDate current = from->addMonths(step);
        months.append(current);
        const QDate following = from->addMonths(step + 1);
        if (walkEnds(following) || beyond(following, latestMonth))
            break;
    }
    return months;
}

LockedMonthFile::LockedMonthFile(const QString &hostPath)
    : SiteFile(hostPath, QIODevice::ReadOnly)
    , m_size(lockedSize())
    , m_wholeLines(file(), endOfLastLine(file(), m_size))
    , m_reader(m_wholeLines)
{
}

LockedMonthFile::~LockedMonthFile()
{
    UnlockAll();
}

qint64 LockedMonthFile::lockedSize()
{
    LockAll();
    return size();
}

LockedMonthFile::Prefix::Prefix(QFile &file, qint64 end)
    : m_file(file)
    , m_end(end)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 LockedMonthFile::Prefix::readData(char *data, qint64 maxSize)
{
    const qint64 wanted = std::min(maxSize, m_end - m_file.pos());
    return wanted > 0 ? m_file.read(data, wanted) : 0;
}

qint64 LockedMonthFile::Prefix::writeData(const char *, qint64)
{
    return -1;
}

MonthlySalesFile::MonthlySalesFile(const QString &hostPath, const QString &rejectHostPath)
    : m_file(hostPath)
    , m_rejectFile(rejectHostPath, TextFile::Mode::Output)
{
}

void MonthlySalesFile::readFields(int count)
{
    for (int field = 0; field < count; ++field)
        SkipOnFailure([&] { m_fields[field] = m_file.reader().ReadField(); });
}

std::optional<MonthlyRecord> MonthlySalesFile::next()
{
    while (!m_file.reader().AtEnd()) {
        readFields(MonthlyFieldCount);
        if (inStep(m_fields[SoldDate]))
            return m_fields;
        ++m_rejects;
        QByteArray joined;
        for (const QByteArray &field : m_fields)
            joined += field + '|';
        m_rejectFile.WriteFields({joined});
        // A record a field short brings the reader back in step after seven more.
        readFields(MonthlyFieldCount - 1);
    }
    return std::nullopt;
}

std::optional<MonthlyRecordView> MonthlySalesFile::nextInStep()
{
    MonthlyRecordView record;
    const qsizetype count = m_file.reader().ReadFields(record);
    if (count == 0)
        return std::nullopt;
    m_outOfStep = count < MonthlyFieldCount || !inStep(record[SoldDate]);
    return m_outOfStep ? std::nullopt : std::optional(record);
}

std::optional<QDate> MonthlyReadings::date(const QByteArray &text)
{
    return m_dates.get(text, [&text] { return ToDate(text); });
}

std::optional<QTime> MonthlyReadings::time(const QByteArray &text)
{
    return m_times.get(text, [&text] { return ToTime(text); });
}

double MonthlyReadings::price(const QByteArray &text)
{
    if (const std::optional<double> value = plainPrice(text))
        return *value;
    return m_prices.get(text, [&text] { return NormalizedPrice(text); });
}

double MonthlyReadings::quantity(const QByteArray &text)
{
    if (const std::optional<ShortDecimal> decimal = ReadShortDecimal(text))
        return decimal->value();
    return m_quantities.get(text, [&text] { return NumericValue(text); });
}

QByteArray NormalizedType(QByteArrayView type)
{
    const QByteArray trimmed = TrimBlanks(type);
    return trimmed.isEmpty() || trimmed == "0" || trimmed == "1" ? QByteArrayLiteral("F") : trimmed;
}

double NormalizedPrice(QByteArrayView price)
{
    if (const std::optional<double> value = plainPrice(price))
        return *value;
    return FormattedValue(price, "###.###.##");
}

} // namespace qlon
