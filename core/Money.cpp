#include "core/Money.h"

#include "core/Conversions.h"
#include "core/RuntimeError.h"

#include <cmath>

namespace qlon {

namespace {

void failOn(bool overflowed)
{
    if (overflowed)
        throw RuntimeError(RuntimeError::Overflow);
}

} // namespace

Money Money::FromDouble(double value)
{
    // The default rounding mode of the floating point unit sends halves to the even neighbour.
    const double units = std::nearbyint(value * scale);
    // 2^63 is exactly representable; anything at or beyond it, or not a number, doesn't fit.
    constexpr double limit = 9223372036854775808.0;
    failOn(!(units >= -limit && units < limit));
    return Money(qint64(units));
}

std::optional<Money> Money::FromText(QByteArrayView text)
{
    const std::optional<double> value = ToNumber(text);
    return value ? std::optional<Money>(FromDouble(*value)) : std::nullopt;
}

double Money::toDouble() const
{
    return double(m_units) / scale;
}

QByteArray Money::toText() const
{
    const quint64 magnitude = m_units < 0 ? 0 - quint64(m_units) : quint64(m_units);
    QByteArray text = QByteArray::number(magnitude / scale);
    if (const quint64 fraction = magnitude % scale) {
        QByteArray decimals = QByteArray::number(fraction).rightJustified(4, '0');
        while (decimals.endsWith('0'))
            decimals.chop(1);
        text += '.' + decimals;
    }
    return m_units < 0 ? '-' + text : text;
}

Money Money::operator+(Money other) const
{
    qint64 sum = 0;
    failOn(qAddOverflow(m_units, other.m_units, &sum));
    return Money(sum);
}

Money Money::operator*(qint64 factor) const
{
    qint64 product = 0;
    failOn(qMulOverflow(m_units, factor, &product));
    return Money(product);
}

} // namespace qlon
