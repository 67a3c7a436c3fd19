#include "itemssold/logic/NameIndex.h"

#include <QByteArrayList>
#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace qlon {
namespace {

// The row a walk from the top finds for the name, or -1.
int walkedRow(const QByteArrayList &names, QByteArrayView name)
{
    for (qsizetype row = 0; row < names.size(); ++row) {
        if (names[row] == name)
            return int(row);
    }
    return -1;
}

// Names many alike, repeated, and empty; the index grows many times over as they are added.
TEST(NameIndexTest, FindsTheRowAWalkFromTheTopFinds)
{
    QRandomGenerator random(23);
    const auto name = [&] {
        const int kind = random.bounded(20);
        return kind == 0 ? QByteArray()
                         : "Item " + QByteArray::number(random.bounded(3000)).rightJustified(4, '0') + (kind == 1 ? " " : "");
    };
    QByteArrayList names;
    NameIndex index;
    for (int row = 0; row < 4001; ++row) {
        names.append(name());
        index.add(names.last(), row);
    }
    for (int lookup = 0; lookup < 20000; ++lookup) {
        const QByteArray wanted = lookup % 2 == 0 ? names.at(random.bounded(int(names.size()))) : name();
        ASSERT_EQ(index.find(wanted), walkedRow(names, wanted)) << wanted.constData();
    }
}

TEST(NameIndexTest, AnEmptyIndexFindsNothing)
{
    EXPECT_EQ(NameIndex().find("Burger"), -1);
    EXPECT_EQ(NameIndex().find({}), -1);
}

} // namespace
} // namespace qlon
