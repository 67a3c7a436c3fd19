#include "ui/TabOrder.h"

#include <QGridLayout>
#include <QLayout>
#include <QWidget>

#include <algorithm>

namespace qlon {

namespace {

void collectFromLayout(const QLayout *layout, QList<QWidget *> &order);

// A control that takes the focus is one stop, whatever it holds; a frame or group that doesn't
// gives its own controls in their order.
void collectFromWidget(QWidget *widget, QList<QWidget *> &order)
{
    if (widget->focusPolicy() & Qt::TabFocus)
        order.append(widget);
    else if (widget->layout())
        collectFromLayout(widget->layout(), order);
}

// The layout's items in reading order: a grid sorts its items by row, then by column; other
// layouts keep the order they were given in.
QList<int> readingOrder(const QLayout *layout)
{
    QList<int> indexes;
    for (int index = 0; index < layout->count(); ++index)
        indexes.append(index);
    if (const auto *grid = qobject_cast<const QGridLayout *>(layout)) {
        const auto place = [grid](int index) {
            int row = 0, column = 0, rowSpan = 0, columnSpan = 0;
            grid->getItemPosition(index, &row, &column, &rowSpan, &columnSpan);
            return std::pair(row, column);
        };
        std::stable_sort(indexes.begin(), indexes.end(), [&](int one, int other) { return place(one) < place(other); });
    }
    return indexes;
}

void collectFromLayout(const QLayout *layout, QList<QWidget *> &order)
{
    for (const int index : readingOrder(layout)) {
        QLayoutItem *item = layout->itemAt(index);
        if (QWidget *widget = item->widget())
            collectFromWidget(widget, order);
        else if (const QLayout *inner = item->layout())
            collectFromLayout(inner, order);
    }
}

} // namespace

void SetTabOrderByLayout(QWidget *screen)
{
    if (!screen->layout())
        return;
    QList<QWidget *> order;
    collectFromLayout(screen->layout(), order);
    for (qsizetype index = 1; index < order.size(); ++index)
        QWidget::setTabOrder(order[index - 1], order[index]);
}

} // namespace qlon
