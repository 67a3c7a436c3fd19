#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <memory>
#include <vector>

namespace qlon {

// A text that grows at its end, held in blocks of a fixed size that never move: many texts
// growing side by side cost no copies as they grow, and adding to one touches only the free end
// of its last block.
class ChunkedText
{
public:
    ChunkedText() = default;
    // A copy has blocks of its own.
    ChunkedText(const ChunkedText &other);
    ChunkedText &operator=(const ChunkedText &other);
    ChunkedText(ChunkedText &&) = default;
    ChunkedText &operator=(ChunkedText &&) = default;
    ~ChunkedText() = default;

    void append(QByteArrayView bytes);
    // The whole text in one piece.
    QByteArray joined() const;

private:
    static constexpr qsizetype blockSize = 4096;

    std::vector<std::unique_ptr<char[]>> m_blocks;
    // The free end of the last block, kept here so that adding reads nothing else.
    char *m_free = nullptr;
    qsizetype m_room = 0;
    qsizetype m_size = 0;
};

} // namespace qlon
