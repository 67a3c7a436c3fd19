#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <algorithm>

namespace qlon {

// Where a fixed text field lies in its record, in bytes.
struct FieldSpan
{
    int offset;
    int width;
};

// The trimmed text into `target`, whose buffer is reused where it can be.
inline void AssignTrimmed(QByteArray &target, QByteArrayView text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == ' ')
        ++first;
    while (last > first && text[last - 1] == ' ')
        --last;
    // Texts read in a walk keep their lengths from row to row: no call to resize then.
    if (target.size() != last - first)
        target.resize(last - first);
    std::copy(text.begin() + first, text.begin() + last, target.data());
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

inline void WriteFixed(QByteArray &record, FieldSpan span, QByteArrayView text)
{
    record.replace(span.offset, span.width, PadOrCut(text, span.width));
}

} // namespace qlon
