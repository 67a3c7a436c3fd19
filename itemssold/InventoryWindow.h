#pragma once

#include <QByteArray>
#include <QString>

namespace qlon {

// The inventory window of the back office, which "Show Inventory Used" hands the report to. This
// program has none: it computes no inventory use. A window that should serve implements these
// members, the ones the button calls.
class InventoryWindow
{
public:
    virtual ~InventoryWindow() = default;
    virtual void Show() = 0;
    // Label2(0) takes the from date, Label2(1) the to date, Label2(2) the total.
    virtual void setLabel2Caption(int index, const QString &caption) = 0;
    // 1 for food, 2 for bar, 3 for both; empty for retail or all.
    virtual void setLabel3Caption(const QString &caption) = 0;
    virtual void MList1_AddItem(const QByteArray &row) = 0;
};

} // namespace qlon
