#pragma once

#include "core/FieldReader.h"
#include "core/Memo.h"
#include "core/TextFile.h"

#include <QByteArray>
#include <QDate>
#include <QIODevice>
#include <QList>
#include <QTime>

#include <array>
#include <optional>

namespace qlon {

// The monthly sales files data\ItemsSold<MMYYYY>.DAT below the site root, which the stations
// append to and the Items Sold scans read. Nothing here writes them.

// The site path of the month's file, such as "C:\Quillon\data\ItemsSold032004.DAT".
QByteArray MonthFileName(QDate date);

// The months a scan from the from date ("MM/DD/YY") reads, in order. The walk steps a month at
// a time from the from date, a short month taking its last day, and isn't bounded by the to
// date: it ends, as it always did, after the first month whose "MM/31/YY" text reads as a date
// before it (which happens only for a year 01, 03, 05, 07, 08, 10 or 12), or once no file
// exists for any later month. An unreadable from date gives no months.
QList<QDate> MonthWalk(QByteArrayView fromDate);
// The walk as the files of months up to `latestMonth` (the first of its month; none: no files)
// would end it.
QList<QDate> MonthWalk(QByteArrayView fromDate, const std::optional<QDate> &latestMonth);
// The months that have a file in the data folder, each as the first of its month, in order; the
// names are matched in either case.
QList<QDate> MonthsWithFiles();

// The eight fields of a monthly record, read as texts.
enum MonthlyField { SoldDate, SoldQuantity, SoldItem, SoldPrice, SoldType, SoldTime, Extra1, Extra2, MonthlyFieldCount };
using MonthlyRecord = std::array<QByteArray, MonthlyFieldCount>;
// A record as views of its eight fields in the file's bytes.
using MonthlyRecordView = std::array<QByteArrayView, MonthlyFieldCount>;

// A month's file open for reading, locked whole while it is open so that no station appends in
// the middle of a read; a station that holds it past the program's wait fails the opening with
// "Permission denied". Only the lines that were whole when it was locked are read: a line a
// station is still writing at the end has no line end yet and is left for a later reading.
class LockedMonthFile : public SiteFile
{
public:
    explicit LockedMonthFile(const QString &hostPath);
    ~LockedMonthFile() override;

    FieldReader &reader() { return m_reader; }
    // The file's size when it was locked, for the progress figure.
    qint64 sizeAtOpening() const { return m_size; }
    qint64 position() const { return m_reader.position(); }

private:
    // The first bytes of an open file, up to an end, read straight from it.
    class Prefix final : public QIODevice
    {
    public:
        Prefix(QFile &file, qint64 end);
        qint64 size() const override { return m_end; }

    protected:
        qint64 readData(char *data, qint64 maxSize) override;
        qint64 writeData(const char *data, qint64 maxSize) override;

    private:
        QFile &m_file;
        qint64 m_end;
    };

    qint64 lockedSize();

    qint64 m_size;
    Prefix m_wholeLines;
    FieldReader m_reader;
};

// A month's file read record by record, as a LockedMonthFile. Fields are taken wherever they
// stand, across line ends. A record whose date hasn't "/" as its third character is out of step:
// it is written to the reject file, seven more fields are read and dropped, and reading goes on.
class MonthlySalesFile
{
public:
    // The reject file (Items.tmp below the site root) is emptied when the month's file opens.
    MonthlySalesFile(const QString &hostPath, const QString &rejectHostPath);

    qint64 size() const { return m_file.sizeAtOpening(); }
    qint64 position() const { return m_file.position(); }
    int rejects() const { return m_rejects; }

    // The next record in step, or none at the end of the file. Fields past the end keep the
    // texts of the record before, as the old reader's variables did.
    std::optional<MonthlyRecord> next();
    // The next record as views, which hold until the next read, for a reader that needs no copies:
    // none at the end of the file, and none at the first record that isn't whole and in step,
    // which outOfStep() then tells and which goes to no reject file. A reading takes its records
    // by next() or by nextInStep(), never by both.
    std::optional<MonthlyRecordView> nextInStep();
    bool outOfStep() const { return m_outOfStep; }

private:
    void readFields(int count);

    LockedMonthFile m_file;
    TextFile m_rejectFile;
    int m_rejects = 0;
    bool m_outOfStep = false;
    MonthlyRecord m_fields;
};

// A month's texts as the scans read them, each distinct text read once: the lines repeat their
// dates, times, prices and quantities, and each reading is the text's own. A plain price or
// quantity is read anew each time, for less than a lookup of its text costs.
class MonthlyReadings
{
public:
    std::optional<QDate> date(const QByteArray &text);
    std::optional<QTime> time(const QByteArray &text);
    // NormalizedPrice of the text.
    double price(const QByteArray &text);
    // The numeric value of the text.
    double quantity(const QByteArray &text);

private:
    Memo<QByteArray, std::optional<QDate>> m_dates;
    Memo<QByteArray, std::optional<QTime>> m_times;
    Memo<QByteArray, double> m_prices;
    Memo<QByteArray, double> m_quantities;
};

// "", "0" and "1" are food.
QByteArray NormalizedType(QByteArrayView type);
// The price through the pattern "###.###.##", as a number: the value itself up to three decimals.
double NormalizedPrice(QByteArrayView price);

} // namespace qlon
