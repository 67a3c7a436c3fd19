#include "core/Ansi.h"

#include <gtest/gtest.h>

namespace qlon {
namespace {

TEST(AnsiTest, EveryByteSurvivesTheTripToUnicodeAndBack)
{
    QByteArray all(256, '\0');
    for (int byte = 0; byte < 256; ++byte)
        all[byte] = char(byte);
    EXPECT_EQ(ToAnsi(FromAnsi(all)), all);
    EXPECT_EQ(FromAnsi("Caf\xe9 \x80 \x93x\x94"), QStringLiteral(u"Café € “x”"));
    EXPECT_EQ(ToAnsi(QStringLiteral(u"Ω")), "?");
}

TEST(AnsiTest, UpperCaseStaysWithinTheCodePage)
{
    EXPECT_EQ(UpperAnsi("d:\\site\\caf\xe9 \x9a\xff \xf7 \xdf"), "D:\\SITE\\CAF\xc9 \x8a\x9f \xf7 \xdf");
}

} // namespace
} // namespace qlon
