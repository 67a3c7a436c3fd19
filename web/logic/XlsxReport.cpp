#include "web/logic/XlsxReport.h"

#include "web/logic/ReportColumns.h"

#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>

#include <xlsxwriter.h>

namespace qlon::web {

namespace {

// The columns summed in the total row: the units and the amounts of the rows, not their prices,
// except on the server's list, whose prices are its sales.
bool isTotalled(const QString &report, const ReportColumn &column)
{
    if (column.kind == ReportColumn::Number)
        return true;
    return column.kind == ReportColumn::Money && (column.key == QLatin1String("volume") || report == QLatin1String("server"));
}

struct Formats
{
    lxw_format *bold;
    lxw_format *money;
    lxw_format *date;
    lxw_format *boldMoney;
};

Formats formatsOf(lxw_workbook *workbook)
{
    Formats formats{
        workbook_add_format(workbook), workbook_add_format(workbook), workbook_add_format(workbook), workbook_add_format(workbook)};
    format_set_bold(formats.bold);
    format_set_num_format(formats.money, "$#,##0.00");
    format_set_num_format(formats.date, "yyyy-mm-dd");
    format_set_bold(formats.boldMoney);
    format_set_num_format(formats.boldMoney, "$#,##0.00");
    return formats;
}

void writeCell(
    lxw_worksheet *sheet, lxw_row_t row, lxw_col_t col, const ReportColumn &column, const QJsonValue &value, const Formats &formats)
{
    switch (column.kind) {
    case ReportColumn::Number: worksheet_write_number(sheet, row, col, value.toDouble(), nullptr); return;
    case ReportColumn::Money: worksheet_write_number(sheet, row, col, value.toDouble(), formats.money); return;
    case ReportColumn::Date:
        if (const QDate day = RowDate(value); day.isValid()) {
            lxw_datetime moment{day.year(), day.month(), day.day(), 0, 0, 0};
            worksheet_write_datetime(sheet, row, col, &moment, formats.date);
            return;
        }
        break;
    case ReportColumn::Text: break;
    }
    worksheet_write_string(sheet, row, col, value.toString().toUtf8().constData(), nullptr);
}

void writeTotals(
    lxw_worksheet *sheet, const QString &report, const QList<ReportColumn> &columns, const QJsonArray &rows, const Formats &formats)
{
    const auto totalRow = lxw_row_t(rows.size() + 1);
    worksheet_write_string(sheet, totalRow, 0, "Total", formats.bold);
    for (qsizetype col = 0; col < columns.size(); ++col) {
        if (!isTotalled(report, columns[col]))
            continue;
        double sum = 0;
        for (const QJsonValue &row : rows)
            sum += row.toObject().value(columns[col].key).toDouble();
        char letter[4] = {};
        lxw_col_to_name(letter, lxw_col_t(col), false);
        const QByteArray formula =
            QStringLiteral("=SUM(%1%2:%1%3)").arg(QLatin1String(letter)).arg(2).arg(qMax<qsizetype>(2, rows.size() + 1)).toLatin1();
        worksheet_write_formula_num(sheet, totalRow, lxw_col_t(col), formula.constData(),
            columns[col].kind == ReportColumn::Money ? formats.boldMoney : formats.bold, sum);
    }
}

} // namespace

QByteArray XlsxReport(const QJsonObject &report)
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        return {};
    const QString path = folder.filePath(QStringLiteral("report.xlsx"));
    const QString name = report.value(QStringLiteral("report")).toString();
    const QList<ReportColumn> columns = RowColumns(name);
    const QJsonArray rows = report.value(RowsKey(name)).toArray();

    lxw_workbook *workbook = workbook_new(QFile::encodeName(path).constData());
    if (!workbook)
        return {};
    lxw_worksheet *sheet = workbook_add_worksheet(workbook, name.toUtf8().constData());
    const Formats formats = formatsOf(workbook);
    for (qsizetype col = 0; col < columns.size(); ++col) {
        worksheet_write_string(sheet, 0, lxw_col_t(col), columns[col].title.toUtf8().constData(), formats.bold);
        worksheet_set_column(sheet, lxw_col_t(col), lxw_col_t(col), columns[col].kind == ReportColumn::Text ? 28 : 12, nullptr);
    }
    for (qsizetype row = 0; row < rows.size(); ++row) {
        const QJsonObject fields = rows[row].toObject();
        for (qsizetype col = 0; col < columns.size(); ++col)
            writeCell(sheet, lxw_row_t(row + 1), lxw_col_t(col), columns[col], fields.value(columns[col].key), formats);
    }
    writeTotals(sheet, name, columns, rows, formats);
    if (workbook_close(workbook) != LXW_NO_ERROR)
        return {};
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace qlon::web
