#include "core/FieldReader.h"

#include "core/RuntimeError.h"

#include <algorithm>

namespace qlon {

namespace {
constexpr qint64 chunkSize = 64 * 1024;

// Lambdas rather than functions, so that the searches below test each byte inline.
constexpr auto isBlank = [](char character) { return character == ' ' || character == '\t'; };
constexpr auto endsUnquoted = [](char character) { return character == ',' || character == '\r' || character == '\n'; };

// The length of the separator ",", "\n" or "\r\n" that stands at `at`; 0 for anything else.
qsizetype commonSeparatorAt(const char *at, const char *end)
{
    if (at == end)
        return 0;
    if (*at == ',' || *at == '\n')
        return 1;
    return *at == '\r' && at + 1 != end && at[1] == '\n' ? 2 : 0;
}
} // namespace

FieldReader::FieldReader(QIODevice &device)
    : m_device(device)
{
}

bool FieldReader::AtEnd()
{
    return m_position == m_buffer.size() && !readMore();
}

QByteArray FieldReader::ReadField()
{
    QByteArrayView field;
    if (ReadFields({&field, 1}) == 0)
        throw RuntimeError(RuntimeError::InputPastEndOfFile);
    return field.toByteArray();
}

qsizetype FieldReader::ReadFields(std::span<QByteArrayView> fields)
{
    if (readQuoted(fields))
        return qsizetype(fields.size());
    const auto wanted = qsizetype(fields.size());
    for (bool fileEnded = false;;) {
        qsizetype position = m_position;
        qsizetype count = 0;
        while (count < wanted && !(fileEnded && position == m_buffer.size()) && fieldAt(position, fileEnded, fields[count]))
            ++count;
        if (count == wanted || fileEnded) {
            m_position = position;
            return count;
        }
        // The fields run past the buffer: read on, and take them again from the first.
        fileEnded = !readMore();
    }
}

bool FieldReader::readQuoted(std::span<QByteArrayView> fields)
{
    const char *cursor = m_buffer.constBegin() + m_position;
    const char *const end = m_buffer.constEnd();
    for (QByteArrayView &field : fields) {
        if (cursor == end || *cursor != '"')
            return false;
        // The fields are short: a search in line is quicker than a call to memchr.
        const char *const closing = std::find(cursor + 1, end, '"');
        const qsizetype separator = closing != end ? commonSeparatorAt(closing + 1, end) : 0;
        if (separator == 0)
            return false;
        field = QByteArrayView(cursor + 1, closing);
        cursor = closing + 1 + separator;
    }
    m_position = cursor - m_buffer.constBegin();
    return true;
}

bool FieldReader::fieldAt(qsizetype &position, bool fileEnded, QByteArrayView &field) const
{
    const char *const end = m_buffer.constEnd();
    const char *cursor = std::find_if_not(m_buffer.constBegin() + position, end, isBlank);
    QByteArrayView value;
    if (cursor != end && *cursor == '"') {
        const char *const closing = std::find(cursor + 1, end, '"');
        value = QByteArrayView(cursor + 1, closing);
        // Whatever stands between the closing quote and the separator is passed over.
        cursor = std::find_if(closing == end ? end : closing + 1, end, endsUnquoted);
    } else {
        const char *const separator = std::find_if(cursor, end, endsUnquoted);
        value = QByteArrayView(cursor, separator);
        while (!value.isEmpty() && isBlank(value.back()))
            value.chop(1);
        cursor = separator;
    }
    // A field is whole once its separator is in the buffer, or the file has ended; a "\r" at the
    // buffer's end may yet have its "\n".
    if (!fileEnded && (cursor == end || (*cursor == '\r' && cursor + 1 == end)))
        return false;
    if (cursor != end)
        cursor += *cursor == '\r' && cursor + 1 != end && cursor[1] == '\n' ? 2 : 1;
    position = cursor - m_buffer.constBegin();
    field = value;
    return true;
}

bool FieldReader::readMore()
{
    m_buffer.remove(0, m_position);
    m_position = 0;
    const qsizetype kept = m_buffer.size();
    m_buffer.resize(kept + chunkSize);
    const qint64 read = std::max<qint64>(m_device.read(m_buffer.data() + kept, chunkSize), 0);
    m_buffer.resize(kept + read);
    return read > 0;
}

} // namespace qlon
