#pragma once

#include <QByteArray>

namespace qlon {

class RecordFile;

// Records that a run puts one after another into a file it has emptied, from record 1 on. They
// are held until `write` hands them to the file in one go, behind those written before.
class PendingRecords
{
public:
    explicit PendingRecords(RecordFile &file);

    // A whole record, of the file's record size.
    void append(QByteArrayView record);
    void write();

private:
    RecordFile &m_file;
    QByteArray m_records;
    qint64 m_written = 0;
};

} // namespace qlon
