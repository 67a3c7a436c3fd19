#include "chain/ChainReportText.h"

#include "core/Ansi.h"
#include "core/FixedField.h"
#include "core/TextFile.h"

namespace qlon {

namespace {

QString printedRows(const QList<ListedItem> &rows)
{
    QString printed;
    for (const ListedItem &row : rows)
        printed += FromAnsi(row.text) + QLatin1Char('\t') + FromAnsi(row.tag) + QLatin1Char('\n');
    return printed;
}

QByteArray exportHeading()
{
    QByteArray file;
    AppendQuotedLine(file, {"ITEMNAME", "UNITS SOLD", "SALES TOTAL"});
    return file;
}

} // namespace

QString PrintedListing(const ChainListing &listing)
{
    return printedRows(listing.rows);
}

QByteArray ExportedListing(const ChainListing &listing)
{
    QByteArray file = exportHeading();
    for (const ListedItem &row : listing.rows) {
        const QByteArrayList fields = row.text.split('|');
        if (fields.size() == 8 && !row.text.startsWith("**"))
            AppendQuotedLine(file, {row.tag, fields[3], fields[7]});
    }
    return file;
}

QString PrintedItemsSold(const ItemsSoldListing &listing)
{
    return printedRows(listing.rows) + FromAnsi(listing.total) + QLatin1Char('\n') + QString::number(listing.notReported) +
        QLatin1Char('\n');
}

QByteArray ExportedItemsSold(const ItemsSoldListing &listing)
{
    QByteArray file = exportHeading();
    for (const ListedItem &row : listing.rows) {
        const QByteArrayList fields = row.text.split('|');
        if (fields.size() == 5)
            AppendQuotedLine(file, {TrimBlanks(fields[1]), fields[0], fields[2]});
    }
    return file;
}

} // namespace qlon
