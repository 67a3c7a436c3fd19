#pragma once

#include "core/SiteFile.h"

#include <QByteArray>

namespace qlon {

// A random-access file of fixed-size records, numbered from 1. Opening a file that doesn't
// exist creates it empty.
class RecordFile : public SiteFile
{
public:
    RecordFile(const QString &hostPath, int recordSize);

    int recordSize() const { return m_recordSize; }

    // The length divided by the record size, rounded to the nearest whole number, ties to
    // even: only a damaged file shows the rounding.
    qint32 CountRecords() const;
    // Past the end of the file the record reads as blanks; a record cut short by the end of
    // the file is filled up with blanks.
    QByteArray GetRecord(qint64 number);
    // Past the end the file grows. The record is cut or filled up to the record size. It reaches
    // the file in one write before the call returns.
    void PutRecord(qint64 number, QByteArrayView record);
    // `count` records from `first` on in one read, into `records`, whose buffer serves again: what
    // GetRecord gives for each, one after another.
    void GetRecords(qint64 first, int count, QByteArray &records);
    // Whole records one after another from `first` on, in one write before the call returns: what
    // PutRecord does for each.
    void PutRecords(qint64 first, QByteArrayView records);

private:
    qint64 positionOf(qint64 number) const;

    int m_recordSize;
};

// Rounds a quotient to the nearest whole number, ties to even.
qint64 RoundedQuotient(qint64 dividend, qint64 divisor);

} // namespace qlon
