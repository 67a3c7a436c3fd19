#include "listbuilder/logic/CSort.h"

#include "core/Conversions.h"
#include "core/RuntimeError.h"

namespace qlon {

namespace {

qint32 sixteenBits(const QByteArray &text)
{
    if (!ToNumber(text))
        throw RuntimeError(RuntimeError::TypeMismatch);
    const std::optional<qint32> whole = ToInteger(QByteArrayView(text), IntegerWidth::Bits16);
    if (!whole)
        throw RuntimeError(RuntimeError::Overflow);
    return *whole;
}

} // namespace

qint16 CSort::IMSort_CompareColumns(const QByteArray &a, const QByteArray &b)
{
    // Deliberately kept: the whole-number difference is only a test that both texts are numbers
    // of 16 bits; the result comes from their values.
    if (!ToInteger(double(sixteenBits(a) - sixteenBits(b)), IntegerWidth::Bits16))
        throw RuntimeError(RuntimeError::Overflow);
    const std::optional<qint32> difference = ToInteger(NumericValue(a) - NumericValue(b), IntegerWidth::Bits16);
    if (!difference)
        throw RuntimeError(RuntimeError::Overflow);
    return qint16(*difference);
}

} // namespace qlon
