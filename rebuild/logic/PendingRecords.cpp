#include "rebuild/logic/PendingRecords.h"

#include "core/RecordFile.h"

namespace qlon {

PendingRecords::PendingRecords(RecordFile &file)
    : m_file(file)
{
}

void PendingRecords::append(QByteArrayView record)
{
    m_records.append(record);
}

void PendingRecords::write()
{
    m_file.PutRecords(m_written + 1, m_records);
    m_written += m_records.size() / m_file.recordSize();
    m_records.resize(0);
}

} // namespace qlon
