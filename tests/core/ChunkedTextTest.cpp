#include "core/ChunkedText.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(ChunkedTextTest, PiecesOfAnyLengthJoinAsOneText)
{
    QRandomGenerator random(20040401);
    ChunkedText chunked;
    QByteArray plain;
    EXPECT_EQ(chunked.joined(), plain);
    // Lengths around the block's, so that pieces end on, before and after block ends.
    for (const int length : {0, 1, 4095, 1, 4096, 4096, 9000, 3, 0, 8192}) {
        QByteArray piece(length, '\0');
        for (char &byte : piece)
            byte = char(random.bounded(256));
        chunked.append(piece);
        plain += piece;
        ASSERT_EQ(chunked.joined(), plain) << "after a piece of " << length;
    }
    for (int line = 0; line < 2000; ++line) {
        const QByteArray piece = "\"Item " + QByteArray::number(line) + "\",\"1\"\r\n";
        chunked.append(piece);
        plain += piece;
    }
    EXPECT_EQ(chunked.joined(), plain);

    const ChunkedText copy = chunked;
    chunked.append("more");
    EXPECT_EQ(copy.joined(), plain) << "a copy keeps its own blocks";
    EXPECT_EQ(chunked.joined(), plain + "more");
}

} // namespace
} // namespace qlon
