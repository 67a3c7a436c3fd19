#include "core/ChunkedText.h"

#include <algorithm>

namespace qlon {

ChunkedText::ChunkedText(const ChunkedText &other)
{
    append(other.joined());
}

ChunkedText &ChunkedText::operator=(const ChunkedText &other)
{
    ChunkedText copy(other);
    return *this = std::move(copy);
}

void ChunkedText::append(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        if (m_room == 0) {
            m_free = m_blocks.emplace_back(std::make_unique_for_overwrite<char[]>(blockSize)).get();
            m_room = blockSize;
        }
        const qsizetype taken = std::min(m_room, bytes.size());
        m_free = std::copy_n(bytes.data(), taken, m_free);
        m_room -= taken;
        m_size += taken;
        bytes = bytes.sliced(taken);
    }
}

QByteArray ChunkedText::joined() const
{
    QByteArray text;
    text.reserve(m_size);
    qsizetype left = m_size;
    for (const std::unique_ptr<char[]> &block : m_blocks) {
        text.append(block.get(), std::min(left, blockSize));
        left -= blockSize;
    }
    return text;
}

} // namespace qlon
