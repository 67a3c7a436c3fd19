#pragma once

#include "core/FixedField.h"

#include <QByteArray>

#include <array>
#include <cstddef>

namespace qlon {

// A run of consecutive fields of one width, for laying out long records.
struct FieldRun
{
    int count;
    int width;
};

// The spans of consecutive fields, from the runs of their widths.
template<std::size_t FieldCount, std::size_t RunCount>
constexpr std::array<FieldSpan, FieldCount> LayoutOfRuns(const std::array<FieldRun, RunCount> &runs)
{
    std::array<FieldSpan, FieldCount> layout{};
    std::size_t field = 0;
    int offset = 0;
    for (const FieldRun &run : runs) {
        for (int index = 0; index < run.count; ++index) {
            layout[field++] = {offset, run.width};
            offset += run.width;
        }
    }
    return layout;
}

template<std::size_t FieldCount>
constexpr std::array<FieldSpan, FieldCount> LayoutOfWidths(const std::array<int, FieldCount> &widths)
{
    std::array<FieldRun, FieldCount> runs{};
    for (std::size_t field = 0; field < FieldCount; ++field)
        runs[field] = {1, widths[field]};
    return LayoutOfRuns<FieldCount>(runs);
}

template<std::size_t FieldCount>
constexpr int LayoutSize(const std::array<FieldSpan, FieldCount> &layout)
{
    return layout.back().offset + layout.back().width;
}

// A record of fixed text fields, held as its bytes. Fields are read and written in place; a
// byte that no field write touches stays as it was read.
template<int Size, const auto &Layout>
class FixedRecord
{
    static_assert(LayoutSize(Layout) == Size, "the fields must fill the record");

public:
    static constexpr int size = Size;
    static constexpr int fieldCount = int(Layout.size());

    static FieldSpan span(int field) { return Layout.at(field); }

    FixedRecord()
        : m_bytes(Size, ' ')
    {
    }
    explicit FixedRecord(QByteArrayView bytes)
        : m_bytes(PadOrCut(bytes, Size))
    {
    }

    // The field's bytes, blanks included.
    QByteArray field(int field) const { return ReadFixed(m_bytes, span(field)); }
    QByteArray trimmedField(int field) const { return ReadTrimmed(m_bytes, span(field)); }
    // The field within its blanks as a view of the record, good until the record changes.
    QByteArrayView trimmedView(int field) const
    {
        return WithinBlanks(QByteArrayView(m_bytes).sliced(span(field).offset, span(field).width));
    }
    void setField(int field, QByteArrayView text) { WriteFixed(m_bytes, span(field), text); }

    const QByteArray &bytes() const { return m_bytes; }
    bool operator==(const FixedRecord &) const = default;

private:
    QByteArray m_bytes;
};

} // namespace qlon
