#include "core/FieldReader.h"
#include "core/RuntimeError.h"
#include "core/TextFile.h"
#include "tests/support/TempSite.h"

#include <QBuffer>
#include <QRandomGenerator>

#include <vector>

#include <gtest/gtest.h>

namespace qlon {
namespace {

QByteArrayList readAll(QByteArray text)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    FieldReader reader(buffer);
    QByteArrayList fields;
    while (!reader.AtEnd())
        fields.append(reader.ReadField());
    return fields;
}

// The fields read `perRead` at a time as views, each copied only after its read.
QByteArrayList readAsViews(QByteArray text, qsizetype perRead)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    FieldReader reader(buffer);
    std::vector<QByteArrayView> views(perRead);
    QByteArrayList fields;
    while (const qsizetype count = reader.ReadFields(views)) {
        for (qsizetype field = 0; field < count; ++field)
            fields.append(views[field].toByteArray());
    }
    return fields;
}

struct FieldCase
{
    const char *text;
    QByteArrayList fields;
};

TEST(FieldReaderTest, ReadsFieldsNotLines)
{
    const FieldCase cases[] = {
        {"\"Burger\",\"12\",\"78.\"\r\n", {"Burger", "12", "78."}},
        {"Total, 12\r\n", {"Total", "12"}},
        {"\"06/22/2003\",\"06/24/2003\"", {"06/22/2003", "06/24/2003"}},
        {"\"06/22/2003\"\r\n\"06/24/2003\"\r\n", {"06/22/2003", "06/24/2003"}},
        {"\"a, b\",c\n", {"a, b", "c"}},
        {"\"\"\r\n\"Food\"\r\n", {"", "Food"}},
        {"  \t\"x\"  junk ,y  \r\n", {"x", "y"}},
        {"one\rtwo\nthree", {"one", "two", "three"}},
        {"\"unterminated", {"unterminated"}},
        {"a,,b", {"a", "", "b"}},
        {"\"Joe's\"", {"Joe's"}},
        {"", {}},
    };
    for (const FieldCase &test : cases) {
        EXPECT_EQ(readAll(test.text), test.fields) << test.text;
        EXPECT_EQ(readAsViews(test.text, 2), test.fields) << test.text;
    }
}

TEST(FieldReaderTest, EightFieldsAcrossABrokenLine)
{
    const QByteArray text = "\"03/31/04\",\"2\",\"Burger\"\r\n\"6.50\",\"F\",\"6:05 PM\",\"x\",\"y\"\r\n";
    EXPECT_EQ(readAll(text).size(), 8);
}

TEST(FieldReaderTest, ReadingPastTheEndFails)
{
    QByteArray text = "\"only\"\r\n";
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    FieldReader reader(buffer);
    EXPECT_EQ(reader.ReadField(), "only");
    EXPECT_TRUE(reader.AtEnd());
    try {
        reader.ReadField();
        FAIL() << "no error past the end";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), RuntimeError::InputPastEndOfFile);
    }
}

// Fields are taken from the buffer a run at a time; wherever a chunk of the file ends, in a quoted
// or an unquoted field, every field reads whole.
TEST(FieldReaderTest, ReadsAcrossItsOwnBufferBoundaries)
{
    QByteArray text;
    for (int line = 0; line < 20000; ++line)
        text += "\"Item " + QByteArray::number(line) + "\"," + QByteArray::number(line % 7) + "  \r\n";
    const QByteArrayList fields = readAll(text);
    ASSERT_EQ(fields.size(), 40000);
    for (int line = 0; line < 20000; ++line) {
        ASSERT_EQ(fields[2 * line], "Item " + QByteArray::number(line)) << "line " << line;
        ASSERT_EQ(fields[2 * line + 1], QByteArray::number(line % 7)) << "line " << line;
    }
}

// Eight fields at a time as views: wherever a chunk of the file ends, in a run of blanks, in a
// quoted or an unquoted field or between "\r" and "\n", the views of a record read whole.
TEST(FieldReaderTest, ReadsRecordsAsViewsAcrossItsOwnBufferBoundaries)
{
    const QByteArray record = "  \"03/01/04\" x,2  ,\"Item, one\"\r\n6.5\t,\"F\"\r\"6:05 PM\"\n\n\"last\"\r\n";
    const QByteArrayList recordFields = {"03/01/04", "2", "Item, one", "6.5", "F", "6:05 PM", "", "last"};
    for (int shift = 0; shift < record.size(); ++shift) {
        QByteArray text = QByteArray(shift, 'x') + "\r\n";
        QByteArrayList fields = {QByteArray(shift, 'x')};
        while (text.size() < 70000) {
            text += record;
            fields += recordFields;
        }
        ASSERT_EQ(readAsViews(text, 8), fields) << "shifted by " << shift;
        ASSERT_EQ(readAll(text), fields) << "shifted by " << shift;
    }
    EXPECT_EQ(readAsViews("a,b,c", 8), (QByteArrayList{"a", "b", "c"})) << "fewer only at the end";
}

// A random field as the stations write it or near it: quoted or not, with a comma or a quote
// inside, junk behind its closing quote, and a comma or a line end behind. Every quote that opens
// is closed and no "\r" stands alone, so that a blank before each field leaves the fields as they are.
QByteArray randomField(QRandomGenerator &random)
{
    static const QByteArrayList values = {"03/01/25", "1", "Item 0057-0317", "a, b", "", "Joe's", "12.50", "6:05 PM"};
    static const QByteArrayList forms = {"\"%1\"", "\"%1\"", "\"%1\"", "%1", "\"%1\" x", "%1x\""};
    static const QByteArrayList separators = {",", ",", ",", "\r\n", "\n", ",,", "\r\n\r\n"};
    const QByteArray value = values.at(random.bounded(int(values.size())));
    QByteArray field = forms.at(random.bounded(int(forms.size())));
    field.replace("%1", value);
    return field + separators.at(random.bounded(int(separators.size())));
}

// Quoted fields with their separators right behind are read in one pass; a blank before each
// field sends the reading the general way, and the two readings agree wherever a chunk ends.
TEST(FieldReaderTest, QuotedRecordsReadAsTheGeneralReadingReadsThem)
{
    QRandomGenerator random(29);
    QByteArray text;
    QByteArray blankBeforeEach;
    while (text.size() < 300000) {
        const QByteArray field = randomField(random);
        text += field;
        blankBeforeEach += ' ' + field;
    }
    for (const qsizetype perRead : {1, 8}) {
        const QByteArrayList fields = readAsViews(text, perRead);
        ASSERT_EQ(fields, readAsViews(blankBeforeEach, perRead)) << perRead << " at a time";
        ASSERT_GT(fields.size(), 20000);
    }
}

TEST(TextFileTest, WritesQuotedFieldsAndPlainLines)
{
    test::TempSite site;
    const QString path = site.hostPath(QStringLiteral("TempItems.dat"));
    {
        TextFile file(path, TextFile::Mode::Output);
        file.WriteFields({"ITEMNAME", "UNITS SOLD", "SALES TOTAL"});
        file.WriteFields({"", "Caf\xe9"});
        file.PrintLine("plain, line");
    }
    {
        TextFile file(path, TextFile::Mode::Append);
        file.WriteFields({"Burger", "12", "78."});
    }
    EXPECT_EQ(site.read(QStringLiteral("TempItems.dat")),
        "\"ITEMNAME\",\"UNITS SOLD\",\"SALES TOTAL\"\r\n\"\",\"Caf\xe9\"\r\nplain, line\r\n\"Burger\",\"12\",\"78.\"\r\n");

    TextFile input(path, TextFile::Mode::Input);
    EXPECT_EQ(input.ReadField(), "ITEMNAME");
    EXPECT_THROW(input.PrintLine("x"), RuntimeError);
}

TEST(TextFileTest, OpeningFailuresCarryThePlatformsNumbers)
{
    test::TempSite site;
    const auto numberOf = [](const QString &path, TextFile::Mode mode) {
        try {
            TextFile file(path, mode);
        } catch (const RuntimeError &error) {
            return int(error.number());
        }
        return 0;
    };
    EXPECT_EQ(numberOf(site.hostPath(QStringLiteral("missing.dat")), TextFile::Mode::Input), RuntimeError::FileNotFound);
    EXPECT_EQ(numberOf(site.hostPath(QStringLiteral("no/folder.dat")), TextFile::Mode::Output), RuntimeError::PathNotFound);
    EXPECT_EQ(numberOf(site.hostPath(QStringLiteral("new.dat")), TextFile::Mode::Append), 0);
}

} // namespace
} // namespace qlon
