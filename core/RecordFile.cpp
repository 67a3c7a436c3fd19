#include "core/RecordFile.h"

#include "core/FixedField.h"

namespace qlon {

namespace {

// The record right after the last one read or written needs no seek.
bool moveTo(QFile &file, qint64 position)
{
    return file.pos() == position || file.seek(position);
}

} // namespace

qint64 RoundedQuotient(qint64 dividend, qint64 divisor)
{
    const qint64 quotient = dividend / divisor;
    const qint64 twiceRemainder = 2 * (dividend % divisor);
    if (twiceRemainder > divisor || (twiceRemainder == divisor && quotient % 2 == 1))
        return quotient + 1;
    return quotient;
}

RecordFile::RecordFile(const QString &hostPath, int recordSize)
    : SiteFile(hostPath)
    , m_recordSize(recordSize)
{
}

qint32 RecordFile::CountRecords() const
{
    return static_cast<qint32>(RoundedQuotient(size(), m_recordSize));
}

qint64 RecordFile::positionOf(qint64 number) const
{
    if (number < 1)
        throw RuntimeError(RuntimeError::BadRecordNumber, hostPath());
    return (number - 1) * m_recordSize;
}

QByteArray RecordFile::GetRecord(qint64 number)
{
    QByteArray record;
    GetRecords(number, 1, record);
    return record;
}

void RecordFile::PutRecord(qint64 number, QByteArrayView record)
{
    PutRecords(number, PadOrCut(record, m_recordSize));
}

void RecordFile::GetRecords(qint64 first, int count, QByteArray &records)
{
    records.resize(qint64(count) * m_recordSize);
    qint64 length = 0;
    if (moveTo(file(), positionOf(first)))
        length = qMax<qint64>(file().read(records.data(), records.size()), 0);
    std::fill(records.begin() + length, records.end(), ' ');
}

void RecordFile::PutRecords(qint64 first, QByteArrayView records)
{
    // Handed to the system at once and whole, in one write: a crash leaves a record old or new.
    if (!moveTo(file(), positionOf(first)) || file().write(records.data(), records.size()) != records.size() || !file().flush())
        throw RuntimeError(RuntimeError::PermissionDenied, hostPath());
}

} // namespace qlon
