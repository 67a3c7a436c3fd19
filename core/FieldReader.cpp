#include "core/FieldReader.h"

#include "core/RuntimeError.h"

namespace qlon {

namespace {
constexpr qint64 chunkSize = 64 * 1024;

bool isLineEnd(int character)
{
    return character == '\r' || character == '\n';
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
    for (int character = peek(); character >= 0 && character != '"'; character = peek()) {
        value.append(char(character));
        advance();
    }
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
    for (int character = peek(); character >= 0 && character != ',' && !isLineEnd(character); character = peek()) {
        value.append(char(character));
        advance();
    }
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
