#include "core/Format.h"

#include "core/Conversions.h"

#include <QLocale>

#include <array>
#include <charconv>
#include <cmath>

namespace qlon {
namespace {

// A number rounded to some decimal places, as digits: the whole part without leading zeros and the
// fraction without trailing zeros, so that zero has no digits at all.
struct DecimalDigits
{
    bool negative = false;
    QByteArray whole;
    QByteArray fraction;
};

// The magnitude written out in full from its 15 significant digits, as the platform turns a double
// into decimals before it rounds: 3.65 + 2.085, stored as 5.734999999999999..., is 5.735 here.
QByteArray fifteenDigitDecimal(double magnitude)
{
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific, 14).ptr;
    const QByteArrayView scientific(buffer.data(), end);
    const qsizetype exponentAt = scientific.indexOf('e');
    const QByteArray digits = scientific.first(1).toByteArray() + scientific.sliced(2, exponentAt - 2).toByteArray();
    const int exponent = scientific.sliced(exponentAt + 1).toInt();
    if (exponent < 0)
        return "0." + QByteArray(-exponent - 1, '0') + digits;
    const QByteArray whole = digits.leftJustified(exponent + 1, '0', true);
    return exponent + 1 >= digits.size() ? whole : whole + '.' + digits.sliced(exponent + 1);
}

void addOneInLastPlace(QByteArray &digits)
{
    qsizetype at = digits.size();
    while (at > 0 && digits.at(at - 1) == '9')
        digits[--at] = '0';
    if (at == 0)
        digits.prepend('1');
    else
        ++digits[at - 1];
}

QByteArray withoutLeadingZeros(const QByteArray &digits)
{
    qsizetype start = 0;
    while (start < digits.size() && digits.at(start) == '0')
        ++start;
    return digits.sliced(start);
}

QByteArray withoutTrailingZeros(const QByteArray &digits)
{
    qsizetype end = digits.size();
    while (end > 0 && digits.at(end - 1) == '0')
        --end;
    return digits.first(end);
}

// Rounding done on the decimal text, for numbers too large for the integer way below.
DecimalDigits roundedText(double value, qsizetype places)
{
    const QByteArray text = fifteenDigitDecimal(std::abs(value));
    const qsizetype point = text.contains('.') ? text.indexOf('.') : text.size();
    const QByteArray fraction = text.sliced(qMin(point + 1, text.size()));
    QByteArray digits = text.first(point) + fraction.leftJustified(places, '0', true);
    if (fraction.size() > places && fraction.at(places) >= '5')
        addOneInLastPlace(digits);
    DecimalDigits rounded;
    rounded.whole = withoutLeadingZeros(digits.chopped(places));
    rounded.fraction = withoutTrailingZeros(digits.last(places));
    return rounded;
}

constexpr int significantDigits = 15;
constexpr std::array<quint64, 19> powersOfTen = [] {
    std::array<quint64, 19> powers{};
    quint64 power = 1;
    for (quint64 &entry : powers) {
        entry = power;
        power *= 10;
    }
    return powers;
}();

// The same rounding on integers: the 15 significant digits as one number, scaled to the places and
// rounded on the first digit dropped. It takes every number whose scaled digits stay below 10^18.
std::optional<DecimalDigits> roundedInteger(double magnitude, qsizetype places)
{
    std::array<char, 32> buffer;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific, significantDigits - 1).ptr;
    const QByteArrayView scientific(buffer.data(), end);
    const qsizetype exponentAt = scientific.indexOf('e');
    const int exponent = scientific.sliced(exponentAt + 1).toInt();
    const qsizetype shift = exponent - (significantDigits - 1) + places; // the power of ten the digits are scaled by
    if (places >= qsizetype(powersOfTen.size()) || shift > 3)
        return std::nullopt;
    quint64 digits = scientific[0] - '0';
    for (char digit : scientific.sliced(2, exponentAt - 2))
        digits = digits * 10 + quint64(digit - '0');
    quint64 scaled = 0;
    if (shift >= 0) {
        scaled = digits * powersOfTen[std::size_t(shift)];
    } else if (-shift <= significantDigits) {
        scaled = digits / powersOfTen[std::size_t(-shift)];
        if (digits / powersOfTen[std::size_t(-shift - 1)] % 10 >= 5)
            ++scaled;
    }
    const quint64 unit = powersOfTen[std::size_t(places)];
    DecimalDigits rounded;
    if (scaled / unit != 0)
        rounded.whole = QByteArray::number(scaled / unit);
    if (places > 0)
        rounded.fraction = withoutTrailingZeros(QByteArray::number(scaled % unit).rightJustified(places, '0'));
    return rounded;
}

DecimalDigits Rounded(double value, qsizetype places)
{
    std::optional<DecimalDigits> rounded = roundedInteger(std::abs(value), places);
    if (!rounded)
        rounded = roundedText(value, places);
    rounded->negative = value < 0 && !(rounded->whole.isEmpty() && rounded->fraction.isEmpty());
    return *rounded;
}

QByteArray grouped(QByteArray digits)
{
    for (qsizetype at = digits.size() - 3; at > 0; at -= 3)
        digits.insert(at, ',');
    return digits;
}

// Walks the pattern behind the decimal point: a "#" takes the next decimal, anything else is written
// as it stands, and the walk ends with the decimals.
QByteArray fractionText(const QByteArray &fraction, QByteArrayView pattern)
{
    QByteArray text;
    qsizetype next = 0;
    for (qsizetype at = 0; at < pattern.size() && next < fraction.size(); ++at)
        text += pattern.at(at) == '#' ? fraction.at(next++) : pattern.at(at);
    return text;
}

QByteArray Digits(int number, qsizetype length)
{
    const QByteArray digits = QByteArray::number(number);
    return length >= 2 ? digits.rightJustified(2, '0') : digits;
}

QByteArray monthText(QDate date, qsizetype length)
{
    if (length <= 2)
        return Digits(date.month(), length);
    const auto form = length == 3 ? QLocale::ShortFormat : QLocale::LongFormat;
    return QLocale::c().monthName(date.month(), form).toLatin1();
}

QByteArray dayText(QDate date, qsizetype length)
{
    if (length <= 2)
        return Digits(date.day(), length);
    const auto form = length == 3 ? QLocale::ShortFormat : QLocale::LongFormat;
    return QLocale::c().dayName(date.dayOfWeek(), form).toLatin1();
}

QByteArray yearText(QDate date, qsizetype length)
{
    return length >= 3 ? QByteArray::number(date.year()) : Digits(date.year() % 100, 2);
}

QByteArray hourText(QTime time, qsizetype length, bool twelveHour)
{
    return Digits(twelveHour ? (time.hour() + 11) % 12 + 1 : time.hour(), length);
}

QByteArray meridiemText(QTime time)
{
    return time.hour() < 12 ? QByteArrayLiteral("AM") : QByteArrayLiteral("PM");
}

qsizetype runLength(QByteArrayView text, qsizetype start)
{
    qsizetype end = start;
    while (end < text.size() && text.at(end) == text.at(start))
        ++end;
    return end - start;
}

// One date-time pattern being written out; the pattern is held in capitals for telling its tokens.
class DateTimeWriter
{
public:
    DateTimeWriter(QDate date, QTime time, QByteArrayView pattern)
        : m_date(date)
        , m_time(time)
        , m_pattern(pattern)
        , m_tokens(pattern.toByteArray().toUpper())
        , m_twelveHour(m_tokens.contains(s_meridiem))
    {
    }

    QByteArray text()
    {
        QByteArray text;
        for (qsizetype at = 0; at < m_tokens.size();)
            at += writeNext(at, text);
        return text;
    }

private:
    static constexpr QByteArrayView s_meridiem{"AMPM"};
    static constexpr QByteArrayView s_fieldLetters{"MDYHS"};

    // Writes the token or character that starts at the position and gives its length.
    qsizetype writeNext(qsizetype at, QByteArray &text)
    {
        if (m_tokens.sliced(at).startsWith(s_meridiem)) {
            text += meridiemText(m_time);
            return s_meridiem.size();
        }
        const char letter = m_tokens.at(at);
        if (!s_fieldLetters.contains(letter)) {
            text += m_pattern.at(at);
            return 1;
        }
        const qsizetype length = runLength(m_tokens, at);
        text += fieldText(letter, length);
        m_afterHour = letter == 'H';
        return length;
    }

    QByteArray fieldText(char letter, qsizetype length) const
    {
        switch (letter) {
        case 'M': return m_afterHour ? Digits(m_time.minute(), length) : monthText(m_date, length);
        case 'D': return dayText(m_date, length);
        case 'Y': return yearText(m_date, length);
        case 'H': return hourText(m_time, length, m_twelveHour);
        default: return Digits(m_time.second(), length);
        }
    }

    QDate m_date;
    QTime m_time;
    QByteArrayView m_pattern;
    QByteArray m_tokens;
    bool m_twelveHour;
    bool m_afterHour = false;
};

} // namespace

QByteArray Format(double value, QByteArrayView pattern)
{
    const qsizetype point = pattern.contains('.') ? pattern.indexOf('.') : pattern.size();
    const QByteArrayView fractionPattern = pattern.sliced(qMin(point + 1, pattern.size()));
    const DecimalDigits number = Rounded(value, fractionPattern.count('#'));
    QByteArray text = number.negative ? QByteArrayLiteral("-") : QByteArray();
    text += pattern.first(point).contains(',') ? grouped(number.whole) : number.whole;
    if (point < pattern.size())
        text += '.' + fractionText(number.fraction, fractionPattern);
    return text;
}

QByteArray Format(const QDateTime &value, QByteArrayView pattern)
{
    return DateTimeWriter(value.date(), value.time(), pattern).text();
}

QByteArray Format(QDate value, QByteArrayView pattern)
{
    return DateTimeWriter(value, QTime(0, 0), pattern).text();
}

// A lone time stands on the old platform's day zero, 30 December 1899.
QByteArray Format(QTime value, QByteArrayView pattern)
{
    return DateTimeWriter(QDate(1899, 12, 30), value, pattern).text();
}

QByteArray Currency(double value)
{
    const DecimalDigits cents = Rounded(value, 2);
    const QByteArray whole = cents.whole.isEmpty() ? QByteArrayLiteral("0") : cents.whole;
    const QByteArray amount = '$' + grouped(whole) + '.' + cents.fraction.leftJustified(2, '0');
    return cents.negative ? '(' + amount + ')' : amount;
}

std::optional<QByteArray> Currency(QByteArrayView text)
{
    const std::optional<double> value = ToNumber(text);
    return value ? std::optional<QByteArray>(Currency(*value)) : std::nullopt;
}

} // namespace qlon

namespace qlon {

QByteArray FormattedText(QByteArrayView text, QByteArrayView pattern)
{
    const std::optional<double> number = ToNumber(text);
    return number ? Format(*number, pattern) : text.toByteArray();
}

double FormattedValue(QByteArrayView text, QByteArrayView pattern)
{
    return NumericValue(FormattedText(text, pattern));
}

// The count of significant digits of the shortest form that reads back as the finite value.
int shortestDigitCount(double value)
{
    std::array<char, 32> buffer;
    const char *end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value), std::chars_format::scientific).ptr;
    const qsizetype exponentAt = QByteArrayView(buffer.data(), end).indexOf('e');
    return int(exponentAt > 1 ? exponentAt - 1 : exponentAt); // the digits before the exponent, less the point
}

// A number whose shortest form has at most 15 significant digits lies nearer to that form than to
// any other of 15 digits, and the C library writes it as the platform does. Any other is left to
// the platform's own writer: the two round a half in the 16th digit differently.
QByteArray PlainNumber(double value)
{
    QByteArray text;
    if (std::isfinite(value) && shortestDigitCount(value) <= significantDigits) {
        std::array<char, 32> buffer;
        const char *end =
            std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, significantDigits).ptr;
        text = QByteArrayView(buffer.data(), end).toByteArray();
    } else {
        text = QByteArray::number(value, 'g', significantDigits);
    }
    return text == "-0" ? QByteArrayLiteral("0") : text;
}

} // namespace qlon
