#include "itemssold/QlonItemsSold.h"

#include "platform/ui/Controls.h"
#include "platform/ui/VbComboBox.h"

#include <QFormLayout>

namespace qlon {

QlonItemsSold::QlonItemsSold(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Items Sold"));
    Combo2 = Named(new VbComboBox(this), QStringLiteral("Combo2"));
    auto *layout = new QFormLayout(this);
    layout->addRow(QStringLiteral("Show only this Department"), Combo2);
}

} // namespace qlon
