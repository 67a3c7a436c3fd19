#include "listbuilder/logic/ItemsSoldReport.h"

#include "core/CarriedFields.h"
#include "core/Conversions.h"
#include "core/DateText.h"
#include "core/ErrorIgnoring.h"
#include "core/FixedField.h"
#include "core/Format.h"
#include "core/ListRows.h"
#include "core/TextFile.h"
#include "store/CarriedColumns.h"
#include "store/SalesStore.h"

#include <optional>

namespace qlon {

namespace {

enum ListField { Name = 0, Units = 3, Volume = 4 };

bool isItemRow(const QByteArray &text)
{
    return !text.isEmpty() && !text.startsWith("**");
}

PrintedItem shownItem(const QByteArray &units, const QByteArray &name, const QByteArray &volume)
{
    if (TrimBlanks(name).isEmpty())
        return {};
    return {units, name, volume};
}

} // namespace

PrintedList ItemsSoldPrintLayout(const ListRows &list)
{
    PrintedList printed;
    // A row reads a field only where a separator closes it; a row without it keeps the units
    // and the volume of the row before, and has no name.
    CarriedFields fields(Volume + 1, CarriedFields::LastField::NeedsSeparator);
    std::array<PrintedItem, 3> line;
    int placed = 0;
    for (int row = 0; row < list.rowCount(); ++row) {
        const QByteArray &text = list.rowText(row);
        fields.read(text);
        const QByteArray name = fields.fieldsRead() > Name ? fields[Name] : QByteArray(" ");
        if (isItemRow(text))
            printed.grandTotal += FormattedValue(fields[Volume], "##########.##");
        line[placed++] = shownItem(fields[Units], name, fields[Volume]);
        if (placed == 3) {
            printed.lines.append(line);
            line = {};
            placed = 0;
        }
    }
    printed.lines.append(line);
    return printed;
}

void AddToDepartment(ListRows &sales, ListRows &units, int department, double addedSales, double addedUnits)
{
    SkipOnFailure([&] {
        sales.setRowText(department, PlainNumber(NumericValue(sales.rowText(department)) + addedSales));
        units.setRowText(department, PlainNumber(NumericValue(units.rowText(department)) + addedUnits));
    });
}

QByteArrayList DepartmentTotalRows(const ListRows &sales, const ListRows &units, const QByteArrayList &departments)
{
    QByteArrayList totals;
    QByteArray salesText;
    QByteArray unitsText;
    for (int entry = 0; entry < departments.size(); ++entry) {
        // Past the last department row the texts of the department before stay.
        SkipOnFailure([&] { salesText = sales.rowText(entry); });
        SkipOnFailure([&] { unitsText = units.rowText(entry); });
        const QByteArray &name = departments.at(entry);
        if (name.isEmpty())
            continue;
        QByteArray money;
        AssignUnlessFailed(money, Currency(QByteArrayView(salesText)));
        totals.append("**" + name + "|Total|" + unitsText + '|' + unitsText + '|' + money + "|Q8$|Q9$|Q5$");
    }
    return totals;
}

void RemoveRowsWithoutUnits(ListRows &list, const std::function<void(int row, int rowCount)> &visiting)
{
    // The walk goes over the row numbers as the list stood and doesn't step back after a
    // removal, deliberately: the row that moves up into the place is never looked at, and a
    // number past the shortened list reads nothing new, its removal failing. Walked here over the
    // rows as they stood, with the list rebuilt once, so that a long list costs no more than its
    // length.
    const int last = list.rowCount() - 1;
    QByteArrayList kept;
    int original = 0; // the row that stands at the walk's number now
    int removed = 0;
    QByteArray text;
    std::array<qsizetype, 4> bars = {0, 0, 0, 0};
    QByteArray sold;
    for (int row = 0; row <= last; ++row) {
        const int rowCount = list.rowCount() - removed;
        visiting(row, rowCount);
        const bool exists = row < rowCount;
        if (exists)
            text = list.rowText(original);
        // A row short of separators reads its field where the row before had its own: the old
        // walk kept the separators' places, not the fields.
        qsizetype from = 0;
        for (qsizetype &bar : bars) {
            const qsizetype found = text.indexOf('|', from);
            if (found < 0)
                break;
            bar = found;
            from = found + 1;
        }
        if (bars[3] > bars[2])
            sold = text.mid(bars[2] + 1, bars[3] - bars[2] - 1);
        if (!exists)
            continue;
        if (NumericValue(sold) == 0) {
            ++removed;
            // The row that moves up into its place stays, unlooked at.
            if (++original < list.rowCount())
                kept.append(list.rowText(original));
        } else {
            kept.append(text);
        }
        ++original;
    }
    for (; original < list.rowCount(); ++original)
        kept.append(list.rowText(original));
    list.clear();
    for (const QByteArray &row : kept)
        list.addRow(row);
}

void DumpSpanSales(SalesStore &store, const QByteArray &from, const QByteArray &to, const QByteArray &endTime, TextFile &dump)
{
    const std::optional<QDate> fromDate = ToDate(from);
    const std::optional<QDate> toDate = ToDate(to);
    const std::optional<QTime> lastTime = ToTime(endTime);
    CarriedColumns columns;
    store.SelectSpan(from, to, DumpColumns, [&](const SalesRow &row) {
        columns.take(row, DumpColumns);
        const std::optional<QDate> date = ToDate(columns[OrderDate]);
        if (!date || !fromDate || *date < *fromDate)
            return true;
        // The start time takes no part, deliberately: its test read two values never set.
        const std::optional<QTime> time = ToTime(columns[Time]);
        const bool kept = !toDate || *date < *toDate || (*date <= *toDate && (!time || !lastTime || *time <= *lastTime));
        if (kept)
            dump.WriteFields(DumpLine(columns));
        return true;
    });
}

} // namespace qlon
