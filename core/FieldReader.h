#pragma once

#include <QByteArray>
#include <QIODevice>

namespace qlon {

// Reads the comma form of the site's text files field by field. A line end only separates
// fields, so a caller that asks for eight fields takes them across lines if it must.
class FieldReader
{
public:
    explicit FieldReader(QIODevice &device);

    // The caller asks before each read.
    bool AtEnd();
    // The next field: a quoted value without its quotes, or an unquoted one up to the next
    // comma or line end, less trailing blanks. Reading at the end raises "Input past end of file".
    QByteArray ReadField();
    // The bytes read so far.
    qint64 position() const { return m_device.pos() - (m_buffer.size() - m_position); }

private:
    int peek();
    void advance() { ++m_position; }
    QByteArray readQuoted();
    QByteArray readUnquoted();
    void skipPastSeparator();

    QIODevice &m_device;
    QByteArray m_buffer;
    qsizetype m_position = 0;
};

} // namespace qlon
