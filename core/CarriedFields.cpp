#include "core/CarriedFields.h"

#include <algorithm>

namespace qlon {

CarriedFields::CarriedFields(int count, LastField last, char separator)
    : m_fields(count)
    , m_last(last)
    , m_separator(separator)
{
}

void CarriedFields::read(const QByteArray &row)
{
    const QByteArrayList split = row.split(m_separator);
    const qsizetype given = m_last == LastField::Counts ? split.size() : split.size() - 1;
    m_fieldsRead = int(std::min(given, m_fields.size()));
    std::copy_n(split.begin(), m_fieldsRead, m_fields.begin());
}

} // namespace qlon
