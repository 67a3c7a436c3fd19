#include "store/CarriedColumns.h"

#include "core/FixedField.h"

namespace qlon {

template<typename NewText>
void CarriedColumns::replaceTexts(NewText &&newText)
{
    const qsizetype oldLength = m_starts.back();
    std::array<qsizetype, SalesColumnCount + 1> starts{};
    for (int column = 0; column < SalesColumnCount; ++column) {
        starts[column] = qsizetype(m_texts.size()) - oldLength;
        // Appended by position: the buffer may move as it grows.
        const std::optional<QByteArrayView> text = newText(SalesColumn(column));
        if (text)
            m_texts.append(text->data(), std::size_t(text->size()));
        else
            m_texts.append(m_texts, std::size_t(m_starts[column]), std::size_t(m_starts[column + 1] - m_starts[column]));
    }
    starts.back() = qsizetype(m_texts.size()) - oldLength;
    m_texts.erase(0, std::size_t(oldLength));
    m_starts = starts;
}

void CarriedColumns::take(const SalesRow &row, SalesColumns columns)
{
    replaceTexts([&](SalesColumn column) -> std::optional<QByteArrayView> {
        if (columns.test(column) && row[column])
            return WithinBlanks(*row[column]);
        return std::nullopt;
    });
}

void CarriedColumns::take(SalesColumn column, QByteArrayView text)
{
    replaceTexts([&](SalesColumn taken) -> std::optional<QByteArrayView> {
        return taken == column ? std::optional(WithinBlanks(text)) : std::nullopt;
    });
}

QByteArrayList DumpLine(CarriedColumns &columns)
{
    if (columns[ItemType] != "L")
        columns.take(ItemType, "Food");
    QByteArrayList line;
    for (SalesColumn column : {OrderDate, Quantity, Item, UnitPrice, ItemType, Time, TableNumber})
        line.append(columns[column].toByteArray());
    line.append(columns[EmpNumber].toByteArray().append(" - ").append(columns[SaleType]));
    return line;
}

QByteArray SearchedRowLine(const CarriedColumns &columns)
{
    QByteArray line = columns[EmpNumber].toByteArray();
    for (SalesColumn column : {OrderDate, Item, UnitPrice, ItemType})
        line.append(',').append(columns[column]);
    return line;
}

} // namespace qlon
