#pragma once

#include "core/ListRows.h"

namespace qlon {

// The comparer that orders a list column by number rather than by text. Both texts must be
// whole numbers of 16 bits whose difference fits in 16 bits, or the comparison fails; the
// difference of their values is then rounded, so that 10.2 and 10.4 compare as equal.
class CSort : public IMSort
{
public:
    qint16 IMSort_CompareColumns(const QByteArray &a, const QByteArray &b) override;
};

} // namespace qlon
