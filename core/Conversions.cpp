#include "core/Conversions.h"

#include "core/TextCursor.h"

#include <QByteArray>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace qlon {
namespace {

// Converts the plain decimal form built by the readers below; fails for a form without digits
// and for a magnitude beyond the range of a double.
std::optional<double> decimalValue(QByteArrayView number)
{
    double value = 0;
    const auto [end, error] = std::from_chars(number.cbegin(), number.cend(), value);
    if (error != std::errc() || end != number.cend())
        return std::nullopt;
    return value;
}

QByteArray takeSign(TextCursor &cursor)
{
    return cursor.takeAnyOf(QByteArrayLiteral("+-")) == '-' ? QByteArrayLiteral("-") : QByteArray();
}

QByteArray takeGroupedDigits(TextCursor &cursor)
{
    QByteArray digits = cursor.takeDigits().toByteArray();
    while (!digits.isEmpty() && cursor.take(','))
        digits += cursor.takeDigits();
    return digits;
}

// Reads "digits[.digits]" or ".digits" and gives it in plain decimal form, or nothing without a digit.
QByteArray takeMantissa(TextCursor &cursor)
{
    QByteArray mantissa = takeGroupedDigits(cursor);
    if (cursor.take('.'))
        mantissa += '.' + cursor.takeDigits().toByteArray();
    return mantissa.size() > mantissa.count('.') ? mantissa : QByteArray();
}

// Reads an exponent if one stands there; gives "e" and its signed digits, an empty text for none,
// or nothing when the exponent letter has no digits.
std::optional<QByteArray> takeExponent(TextCursor &cursor)
{
    if (!cursor.takeAnyOf(QByteArrayLiteral("eE")))
        return QByteArray();
    const QByteArray sign = takeSign(cursor);
    const QByteArrayView digits = cursor.takeDigits();
    if (digits.isEmpty())
        return std::nullopt;
    return 'e' + sign + digits.toByteArray();
}

// Appends the next digit, or the first decimal point, to the number; false when neither stands there.
bool takeDigitOrFirstPoint(TextCursor &cursor, QByteArray &number)
{
    const char next = cursor.peek();
    if (!TextCursor::isDigit(next) && (next != '.' || number.contains('.')))
        return false;
    cursor.take(next);
    number += next;
    return true;
}

// Whether the text is a plain decimal form, a minus sign at most, digits and one point at most:
// the walk of NumericValue would take all of it as it stands.
bool isPlainDecimal(QByteArrayView text)
{
    if (text.startsWith('-'))
        text = text.sliced(1);
    bool point = false;
    for (const char character : text) {
        if (character == '.' && !point)
            point = true;
        else if (!TextCursor::isDigit(character))
            return false;
    }
    return true;
}

// Whole numbers of up to fifteen digits and these powers of ten are exact as doubles.
constexpr int shortDecimalDigits = 15;
constexpr std::array<double, shortDecimalDigits + 1> powersOfTen = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

double roundedHalfToEven(double value)
{
    const double below = std::floor(value);
    if (value - below != 0.5)
        return std::round(value);
    return std::fmod(below, 2.0) == 0 ? below : below + 1;
}

} // namespace

std::optional<ShortDecimal> ReadShortDecimal(QByteArrayView text)
{
    ShortDecimal decimal;
    const char *cursor = text.begin();
    const char *const end = text.end();
    decimal.negative = cursor != end && *cursor == '-';
    cursor += decimal.negative ? 1 : 0;
    int count = 0;
    // Takes digits while they fit; a digit past the fifteenth is left, and the text isn't short.
    const auto takeDigits = [&] {
        while (cursor != end && TextCursor::isDigit(*cursor) && count < shortDecimalDigits) {
            decimal.digits = decimal.digits * 10 + (*cursor++ - '0');
            ++count;
        }
    };
    takeDigits();
    if (cursor != end && *cursor == '.') {
        ++cursor;
        const int wholeDigits = count;
        takeDigits();
        decimal.decimals = count - wholeDigits;
    }
    if (cursor != end || count == 0)
        return std::nullopt;
    return decimal;
}

double ShortDecimal::value() const
{
    // Both exact, so the quotient is the decimal's value correctly rounded, as from_chars gives it.
    const double magnitude = double(digits) / powersOfTen[decimals];
    return negative ? -magnitude : magnitude;
}

std::optional<double> ReadUnsignedDecimal(QByteArrayView text, int decimals)
{
    const std::optional<ShortDecimal> decimal = ReadShortDecimal(text);
    if (!decimal || decimal->negative || decimal->decimals > decimals)
        return std::nullopt;
    return decimal->value();
}

double NumericValue(QByteArrayView text)
{
    // The prices and quantities of sales rows, and the counts a sort compares, need no walk.
    if (const std::optional<ShortDecimal> decimal = ReadShortDecimal(text))
        return decimal->value();
    if (isPlainDecimal(text))
        return decimalValue(text).value_or(0);
    const QByteArrayView blanks(" \t\n");
    TextCursor cursor(text);
    cursor.skipAnyOf(blanks);
    QByteArray number = takeSign(cursor);
    do
        cursor.skipAnyOf(blanks);
    while (takeDigitOrFirstPoint(cursor, number));
    return decimalValue(number).value_or(0);
}

std::optional<double> ToNumber(QByteArrayView text)
{
    if (const std::optional<ShortDecimal> decimal = ReadShortDecimal(text))
        return decimal->value();
    if (isPlainDecimal(text))
        return decimalValue(text);
    TextCursor cursor(text.trimmed());
    const bool bracketed = cursor.take('(');
    QByteArray sign = bracketed ? QByteArrayLiteral("-") : takeSign(cursor);
    if (cursor.take('$') && sign.isEmpty())
        sign = takeSign(cursor);
    const QByteArray mantissa = takeMantissa(cursor);
    const std::optional<QByteArray> exponent = takeExponent(cursor);
    if (mantissa.isEmpty() || !exponent || (bracketed && !cursor.take(')')) || !cursor.atEnd())
        return std::nullopt;
    return decimalValue(sign + mantissa + *exponent);
}

std::optional<qint32> ToInteger(double value, IntegerWidth width)
{
    const double whole = roundedHalfToEven(value);
    const double highest = width == IntegerWidth::Bits16 ? std::numeric_limits<qint16>::max() : std::numeric_limits<qint32>::max();
    if (!(whole >= -highest - 1 && whole <= highest))
        return std::nullopt;
    return static_cast<qint32>(whole);
}

std::optional<qint32> ToInteger(QByteArrayView text, IntegerWidth width)
{
    const std::optional<double> value = ToNumber(text);
    return value ? ToInteger(*value, width) : std::nullopt;
}

} // namespace qlon
