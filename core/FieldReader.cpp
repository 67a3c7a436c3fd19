#include "core/FieldReader.h"

#include "core/RuntimeError.h"

#include <algorithm>

namespace qlon {

namespace {
constexpr qint64 chunkSize = 64 * 1024;

bool isLineEnd(int character)
{
    return character == '\r' || character == '\n';
}

bool endsQuoted(char character)
{
    return character == '"';
}

bool endsUnquoted(char character)
{
    return character == ',' || isLineEnd(character);
}

// Appends the bytes of the buffer from `position` up to the first that ends the field, as one run
// rather than byte by byte; true when that byte is in the buffer.
bool appendRun(const QByteArray &buffer, qsizetype &position, QByteArray &value, bool (*ends)(char))
{
    const char *const start = buffer.constData() + position;
    const char *const end = std::find_if(start, buffer.constData() + buffer.size(), ends);
    value.append(start, end - start);
    position += end - start;
    return position < buffer.size();
}
} // namespace

FieldReader::FieldReader(QIODevice &device)
    : m_device(device)
{
}

int FieldReader::peek()
{
    if (m_position == m_buffer.size()) {
        m_buffer = m_device.read(chunkSize);
        m_position = 0;
        if (m_buffer.isEmpty())
            return -1;
    }
    return static_cast<unsigned char>(m_buffer[m_position]);
}

bool FieldReader::AtEnd()
{
    return peek() < 0;
}

QByteArray FieldReader::ReadField()
{
    if (AtEnd())
        throw RuntimeError(RuntimeError::InputPastEndOfFile);
    while (peek() == ' ' || peek() == '\t')
        advance();
    if (peek() == '"') {
        advance();
        return readQuoted();
    }
    return readUnquoted();
}

QByteArray FieldReader::readQuoted()
{
    QByteArray value;
    for (bool ended = false; !ended && peek() >= 0;)
        ended = appendRun(m_buffer, m_position, value, endsQuoted);
    if (peek() == '"')
        advance();
    // Whatever stands between the closing quote and the separator is passed over.
    while (peek() >= 0 && peek() != ',' && !isLineEnd(peek()))
        advance();
    skipPastSeparator();
    return value;
}

QByteArray FieldReader::readUnquoted()
{
    QByteArray value;
    for (bool ended = false; !ended && peek() >= 0;)
        ended = appendRun(m_buffer, m_position, value, endsUnquoted);
    skipPastSeparator();
    while (value.endsWith(' ') || value.endsWith('\t'))
        value.chop(1);
    return value;
}

void FieldReader::skipPastSeparator()
{
    const int separator = peek();
    if (separator < 0)
        return;
    advance();
    if (separator == '\r' && peek() == '\n')
        advance();
}

} // namespace qlon
