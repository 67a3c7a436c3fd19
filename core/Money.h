#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

#include <optional>

namespace qlon {

// The old platform's money type: a whole number of ten-thousandths, so that sums of amounts with
// up to four decimals are exact, where a double would hold 2.3 as 2.29999...
class Money
{
public:
    static constexpr qint64 scale = 10000;

    constexpr Money() = default;

    // Rounded to four decimals, halves going to the even one; a value beyond the range raises "Overflow".
    static Money FromDouble(double value);
    // The text's number as ToNumber reads it; none for a text that isn't a number, such as ".".
    static std::optional<Money> FromText(QByteArrayView text);

    qint64 units() const { return m_units; }
    double toDouble() const;
    // As the platform writes money as plain text: no trailing zeros, no point for a whole
    // amount, a zero before a lone fraction ("2.3", "-0.05", "12").
    QByteArray toText() const;

    // Both raise "Overflow" beyond the range.
    Money operator+(Money other) const;
    Money operator*(qint64 factor) const;

    auto operator<=>(const Money &) const = default;

private:
    explicit constexpr Money(qint64 units)
        : m_units(units)
    {
    }

    qint64 m_units = 0;
};

} // namespace qlon
