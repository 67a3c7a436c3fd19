#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <algorithm>
#include <cstring>

namespace qlon {

// Where a fixed text field lies in its record, in bytes.
struct FieldSpan
{
    int offset;
    int width;
};

// The part of the text within its blanks on both sides: tabs and other white space belong to the text.
inline QByteArrayView WithinBlanks(QByteArrayView text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == ' ')
        ++first;
    while (last > first && text[last - 1] == ' ')
        --last;
    return text.sliced(first, last - first);
}

// The trimmed text into `target`, whose buffer is reused where it can be.
inline void AssignTrimmed(QByteArray &target, QByteArrayView text)
{
    const QByteArrayView trimmed = WithinBlanks(text);
    // Texts read in a walk keep their lengths from row to row: no call to resize then.
    if (target.size() != trimmed.size())
        target.resize(trimmed.size());
    std::copy(trimmed.begin(), trimmed.end(), target.data());
}

// Blanks only, on both sides: tabs and other white space belong to the text.
inline QByteArray TrimBlanks(QByteArrayView text)
{
    QByteArray trimmed;
    AssignTrimmed(trimmed, text);
    return trimmed;
}

// The text copied from the left, cut at the width or filled up with blanks.
inline QByteArray PadOrCut(QByteArrayView text, int width)
{
    QByteArray field = text.first(qMin<qsizetype>(text.size(), width)).toByteArray();
    field.append(width - field.size(), ' ');
    return field;
}

// The field's bytes as they stand, blanks included.
inline QByteArray ReadFixed(QByteArrayView record, FieldSpan span)
{
    return record.sliced(span.offset, span.width).toByteArray();
}

inline QByteArray ReadTrimmed(QByteArrayView record, FieldSpan span)
{
    return TrimBlanks(record.sliced(span.offset, span.width));
}

// Writes in place; the text may lie within the record itself, as a field's own text moved left.
inline void WriteFixed(QByteArray &record, FieldSpan span, QByteArrayView text)
{
    const qsizetype kept = qMin<qsizetype>(text.size(), span.width);
    char *field = record.data() + span.offset;
    if (kept > 0) // an empty text may have no data at all
        std::memmove(field, text.data(), std::size_t(kept));
    std::fill(field + kept, field + span.width, ' ');
}

} // namespace qlon
