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
#include <QRegularExpression>

namespace qlon {

namespace {

// A walk over a site's files can't go on for ever: a century of months is far beyond any.
constexpr int monthLimit = 1200;

// The latest month that has a file in the data folder, if any.
std::optional<QDate> latestMonthWithFile()
{
    const QString folder = HostPath(Site().DataRoot + "data");
    static const QRegularExpression name(QStringLiteral("^ItemsSold(\\d\\d)(\\d{4})\\.DAT$"), QRegularExpression::CaseInsensitiveOption);
    std::optional<QDate> latest;
    for (const QString &file : QDir(folder).entryList(QDir::Files)) {
        const QRegularExpressionMatch match = name.match(file);
        const QDate month(match.captured(2).toInt(), match.captured(1).toInt(), 1);
        if (match.hasMatch() && month.isValid() && (!latest || month > *latest))
            latest = month;
    }
    return latest;
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

} // namespace

QByteArray MonthFileName(QDate date)
{
    return Site().DataRoot + "data\\ItemsSold" + Format(date, "MMYYYY") + ".DAT";
}

QList<QDate> MonthWalk(QByteArrayView fromDate)
{
    const std::optional<QDate> from = ToDate(fromDate);
    if (!from)
        return {};
    const std::optional<QDate> latestMonth = latestMonthWithFile();
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

MonthlySalesFile::MonthlySalesFile(const QString &hostPath, const QString &rejectHostPath)
    : m_file(hostPath, TextFile::Mode::Input)
    , m_rejectFile(rejectHostPath, TextFile::Mode::Output)
    , m_size(m_file.size())
{
    m_file.LockAll();
}

MonthlySalesFile::~MonthlySalesFile()
{
    m_file.UnlockAll();
}

void MonthlySalesFile::readFields(int count)
{
    for (int field = 0; field < count; ++field)
        SkipOnFailure([&] { m_fields[field] = m_file.ReadField(); });
}

std::optional<MonthlyRecord> MonthlySalesFile::next()
{
    while (!m_file.AtEnd()) {
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
    const qsizetype count = m_file.ReadFields(record);
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
