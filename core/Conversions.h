#pragma once

#include <QByteArrayView>
#include <QtGlobal>

#include <optional>

namespace qlon {

// The leading number of a text: blanks, tabs and line feeds are passed over, also between digits;
// an optional sign, digits and one decimal point are read up to the first character that can't continue.
// A text without a number, and a number beyond the range of a double, give 0. Never fails.
double NumericValue(QByteArrayView text);

// A short plain decimal: an optional minus sign, digits and one point at most, with fifteen
// digits at the most ("12.50", "-3", ".5"). Read without the general readers, it has the value
// that NumericValue and ToNumber give it.
struct ShortDecimal
{
    bool negative = false;
    qint64 digits = 0; // all its digits as one whole number
    int decimals = 0; // how many of them stand behind the point
    double value() const;
};
// None for any other text.
std::optional<ShortDecimal> ReadShortDecimal(QByteArrayView text);
// The value of a short plain decimal without a sign and with `decimals` decimals at the most,
// which a number pattern of as many places neither rounds nor cuts; none for any other text.
std::optional<double> ReadUnsignedDecimal(QByteArrayView text, int decimals);

// The strict conversion of a whole text to a number, on US settings: surrounding blanks, an optional sign
// or enclosing parentheses for a negative, an optional "$", digits with optional "," grouping, an optional
// decimal point and an optional exponent. Fails unless the whole text is such a number with at least one digit.
std::optional<double> ToNumber(QByteArrayView text);

enum class IntegerWidth { Bits16, Bits32 };

// The nearest whole number, halves going to the even one; fails when it doesn't fit the width.
std::optional<qint32> ToInteger(double value, IntegerWidth width = IntegerWidth::Bits32);

// ToNumber, then the whole number as above; fails for a text that isn't a number.
std::optional<qint32> ToInteger(QByteArrayView text, IntegerWidth width = IntegerWidth::Bits32);

} // namespace qlon
