#pragma once

#include "store/SalesStore.h"

#include <vector>

namespace qlon::test {

// A store that hands out its rows as they stand, whatever the span, with only the chosen columns.
class RowsStore : public SalesStore
{
public:
    explicit RowsStore(std::vector<SalesRow> rows)
        : m_rows(std::move(rows))
    {
    }
    void SelectAll(const SalesVisitor &visit) override { walk(EverySalesColumn, visit); }
    void SelectSpan(QByteArrayView, QByteArrayView, SalesColumns columns, const SalesVisitor &visit) override { walk(columns, visit); }
    qint64 CountRows() override { return qint64(m_rows.size()); }

private:
    void walk(SalesColumns columns, const SalesVisitor &visit) const
    {
        for (SalesRow row : m_rows) {
            for (int column = 0; column < SalesColumnCount; ++column) {
                if (!columns.test(column))
                    row[column].reset();
            }
            if (!visit(row))
                return;
        }
    }
    std::vector<SalesRow> m_rows;
};

} // namespace qlon::test
