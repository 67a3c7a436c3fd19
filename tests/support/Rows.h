#pragma once

#include "core/ListRows.h"
#include "core/RuntimeError.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

#include <functional>

namespace qlon::test {

inline void AddRows(ListRows &rows, const QByteArrayList &texts)
{
    for (const QByteArray &text : texts)
        rows.addRow(text);
}

inline void SortBy(ListRows &rows, const QByteArray &key)
{
    rows.setSortKey(key);
    rows.setSorted(true);
}

inline QByteArrayList TextsOf(const ListRows &rows)
{
    QByteArrayList all;
    for (int row = 0; row < rows.rowCount(); ++row)
        all.append(rows.rowText(row));
    return all;
}

// The number of the run-time error the action raises; -1 when it raises none.
inline int RuntimeErrorNumber(const std::function<void()> &action)
{
    try {
        action();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return -1;
}

// The run-time error the action raises; a failure of the test when it raises none.
inline RuntimeError ErrorOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const RuntimeError &error) {
        return error;
    }
    ADD_FAILURE() << "no error raised";
    return RuntimeError(RuntimeError::Overflow);
}

} // namespace qlon::test
