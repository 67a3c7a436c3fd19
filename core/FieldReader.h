#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QIODevice>

#include <span>

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
    // The next fields as ReadField reads them, as many as `fields` holds, fewer only at the end of
    // the file: views into the reader's buffer, which hold until the next read.
    qsizetype ReadFields(std::span<QByteArrayView> fields);
    // The bytes read so far.
    qint64 position() const { return m_device.pos() - (m_buffer.size() - m_position); }

private:
    // Fields as the site's programs write them, each in quotes with a comma or line end right
    // behind, read in one pass; false for any other form, which the general reading takes.
    bool readQuoted(std::span<QByteArrayView> fields);
    // The field at `position` into `field`, and `position` past its separator; false when the
    // buffer ends before the field does and the file may go on.
    bool fieldAt(qsizetype &position, bool fileEnded, QByteArrayView &field) const;
    // Drops the bytes read and appends the device's next chunk; false when none came.
    bool readMore();

    QIODevice &m_device;
    QByteArray m_buffer;
    qsizetype m_position = 0;
};

} // namespace qlon
