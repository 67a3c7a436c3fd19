#include "serversales/logic/ServerSearchRows.h"

#include <cstring>

namespace qlon {

namespace {

constexpr quint8 nullValue = 255;
// The length of a longer value stands in front of its text, in four bytes.
constexpr quint8 longValue = 254;
constexpr qsizetype blockSize = 1 << 16;

constexpr std::array<SalesColumn, 7> searchColumns = {OrderDate, Quantity, Item, ItemType, UnitPrice, Time, EmpNumber};

qsizetype storedSize(const SalesValue &value)
{
    if (!value)
        return 0;
    return value->size() < longValue ? value->size() : value->size() + qsizetype(sizeof(quint32));
}

} // namespace

ServerSearchRows::ServerSearchRows(const std::vector<SalesRow> &rows)
{
    for (const SalesRow &row : rows)
        add(row);
}

// A row's texts stand in one block: a new block starts when the last one can't take them all.
char *ServerSearchRows::reserve(qsizetype bytes)
{
    if (m_blocks.empty() || m_used + bytes > m_blockSizes.back()) {
        const qsizetype size = std::max(bytes, blockSize);
        m_blocks.push_back(std::make_unique<char[]>(std::size_t(size)));
        m_blockSizes.push_back(size);
        m_used = 0;
    }
    char *start = m_blocks.back().get() + m_used;
    m_used += bytes;
    return start;
}

void ServerSearchRows::add(const SalesRow &row)
{
    qsizetype bytes = 0;
    for (SalesColumn column : searchColumns)
        bytes += storedSize(row[column]);
    char *cursor = reserve(bytes);
    m_places.push_back({quint32(m_blocks.size() - 1), quint32(cursor - m_blocks.back().get())});
    for (SalesColumn column : searchColumns) {
        const SalesValue &value = row[column];
        if (!value) {
            m_lengths.push_back(nullValue);
            continue;
        }
        const auto size = quint32(value->size());
        if (size >= longValue) {
            std::memcpy(cursor, &size, sizeof size);
            cursor += sizeof size;
        }
        m_lengths.push_back(size >= longValue ? longValue : quint8(size));
        cursor = std::copy_n(value->constData(), size, cursor);
    }
}

template<typename Take>
void ServerSearchRows::walk(std::size_t index, Take &&take) const
{
    const Place place = m_places.at(index);
    const char *cursor = m_blocks[place.block].get() + place.offset;
    const quint8 *lengths = m_lengths.data() + index * columnCount;
    for (int at = 0; at < columnCount; ++at) {
        if (lengths[at] == nullValue) {
            take(searchColumns[at], std::optional<QByteArrayView>());
            continue;
        }
        quint32 size = lengths[at];
        if (size == longValue) {
            std::memcpy(&size, cursor, sizeof size);
            cursor += sizeof size;
        }
        take(searchColumns[at], std::optional(QByteArrayView(cursor, size)));
        cursor += size;
    }
}

SalesRow ServerSearchRows::row(std::size_t index) const
{
    SalesRow row;
    walk(index, [&row](SalesColumn column, std::optional<QByteArrayView> value) {
        if (value)
            row[column] = value->toByteArray();
    });
    return row;
}

std::optional<QByteArrayView> ServerSearchRows::value(std::size_t index, SalesColumn column) const
{
    std::optional<QByteArrayView> found;
    walk(index, [&](SalesColumn each, std::optional<QByteArrayView> value) {
        if (each == column)
            found = value;
    });
    return found;
}

} // namespace qlon
