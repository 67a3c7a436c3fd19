#include "itemssold/logic/ItemsSoldPrint.h"

namespace qlon {

QList<SlipLine> ItemsSoldSlip(const SlipContent &content)
{
    QList<SlipLine> lines = {{15, content.siteName}, {25, "Items Sold"}, {8, "From " + content.fromDate + "  To " + content.toDate}};
    for (const QByteArray &row : content.printRows)
        lines.append({10, row});
    lines.append({{10, {}}, {15, "Total Sales Volume"}, {30, content.total}, {10, {}}, {10, "__________________ END REPORT"}});
    return lines;
}

QList<QList<EngineRow>> EngineBlocks(const QByteArrayList &reportRows)
{
    QList<QList<EngineRow>> blocks;
    for (qsizetype first = 0; first < reportRows.size(); first += 3) {
        QList<EngineRow> block;
        for (const QByteArray &row : reportRows.mid(first, 3)) {
            const QByteArrayList fields = row.split('|');
            EngineRow cut = {" ", " ", " "};
            for (qsizetype field = 0; field < qsizetype(cut.size()) && field < fields.size(); ++field)
                cut[field] = fields[field];
            block.append(cut);
        }
        blocks.append(block);
    }
    return blocks;
}

} // namespace qlon
