#include "chain/ChainReportText.h"

#include "core/Ansi.h"
#include "core/TextFile.h"

namespace qlon {

QString PrintedListing(const ChainListing &listing)
{
    QString printed;
    for (const ListedItem &row : listing.rows)
        printed += FromAnsi(row.text) + QLatin1Char('\t') + FromAnsi(row.tag) + QLatin1Char('\n');
    return printed;
}

QByteArray ExportedListing(const ChainListing &listing)
{
    QByteArray file;
    AppendQuotedLine(file, {"ITEMNAME", "UNITS SOLD", "SALES TOTAL"});
    for (const ListedItem &row : listing.rows) {
        const QByteArrayList fields = row.text.split('|');
        if (fields.size() == 8 && !row.text.startsWith("**"))
            AppendQuotedLine(file, {row.tag, fields[3], fields[7]});
    }
    return file;
}

} // namespace qlon
