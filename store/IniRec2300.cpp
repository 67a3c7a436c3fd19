#include "store/IniRec2300.h"

namespace qlon {

namespace {

// The record as runs of fields of one width, in field order.
struct FieldRun
{
    int count;
    int width;
};

constexpr FieldRun layoutRuns[] = {
    {3, 40}, {1, 20}, {1, 50}, {1, 40}, {1, 10}, {1, 20}, {1, 200}, // 0-8
    {12, 1}, {1, 28}, {1, 5}, {4, 20}, {1, 1}, {1, 20},              // 9-28
    {3, 2}, {1, 288}, {1, 5}, {1, 20}, {1, 2}, {3, 5}, {1, 40},      // 29-39
    {1, 5}, {1, 1}, {6, 5}, {1, 40}, {1, 20}, {2, 40}, {2, 10},      // 40-53
    {18, 5}, {1, 20}, {1, 2}, {27, 5}, {1, 20}, {2, 5}, {1, 20},     // 54-104
    {24, 5}, {6, 20}, {24, 5}, {1, 10}, {4, 5}, {1, 10}, {1, 50},    // 105-165
    {15, 5}, {2, 10}, {3, 5}, {1, 265},                              // 166-186
};

constexpr std::array<FieldSpan, IniRec2300::fieldCount> makeLayout()
{
    std::array<FieldSpan, IniRec2300::fieldCount> layout{};
    int field = 0;
    int offset = 0;
    for (const FieldRun &run : layoutRuns) {
        for (int index = 0; index < run.count; ++index) {
            layout[field++] = {offset, run.width};
            offset += run.width;
        }
    }
    return layout;
}

constexpr std::array<FieldSpan, IniRec2300::fieldCount> layout = makeLayout();
static_assert(layout.back().offset + layout.back().width == IniRec2300::size);

} // namespace

FieldSpan IniRec2300::span(int field)
{
    return layout.at(field);
}

IniRec2300::IniRec2300()
    : m_bytes(size, ' ')
{
}

IniRec2300::IniRec2300(QByteArray bytes)
    : m_bytes(PadOrCut(bytes, size))
{
}

QByteArray IniRec2300::field(int field) const
{
    return ReadFixed(m_bytes, span(field));
}

QByteArray IniRec2300::trimmedField(int field) const
{
    return ReadTrimmed(m_bytes, span(field));
}

void IniRec2300::setField(int field, QByteArrayView text)
{
    WriteFixed(m_bytes, span(field), text);
}

} // namespace qlon
