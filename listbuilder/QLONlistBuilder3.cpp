#include "listbuilder/QLONlistBuilder3.h"

#include "core/Ansi.h"
#include "core/HostPath.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "store/SalesStore.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/Program.h"

#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace qlon {

QLONlistBuilder3::QLONlistBuilder3(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Form1"));
    setAttribute(Qt::WA_DeleteOnClose);
    MSFlexGrid1 = Named(new QTableWidget(this), QStringLiteral("MSFlexGrid1"));
    Command1 = MakeButton(this, QStringLiteral("Command1"), QStringLiteral("Command1"));
    Command2 = MakeButton(this, QStringLiteral("Command2"), QStringLiteral("Quit"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(MSFlexGrid1);
    layout->addWidget(Command1);
    layout->addWidget(Command2);
    OnEvent(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    OnEvent(Command2, &QPushButton::clicked, this, [this] { close(); });
}

void QLONlistBuilder3::Command1_Click()
{
    const QLONlistBuilder1 *main = MainScreen();
    const QByteArray from = ToAnsi(main->Label2->text());
    const QByteArray to = ToAnsi(main->Label3->text());
    // The one place that takes the database from the site root rather than the data root.
    const std::unique_ptr<SalesStore> store = OpenSiteSalesStore(Site().SiteRoot + SalesDatabaseFile);

    MSFlexGrid1->clear();
    MSFlexGrid1->setRowCount(0);
    MSFlexGrid1->setColumnCount(SalesColumnCount);
    QStringList headings;
    for (QByteArrayView name : SalesColumnNames)
        headings.append(QString::fromLatin1(name));
    MSFlexGrid1->setHorizontalHeaderLabels(headings);
    store->SelectSpan(from, to, EverySalesColumn, [this](const SalesRow &row) {
        const int at = MSFlexGrid1->rowCount();
        MSFlexGrid1->insertRow(at);
        for (int column = 0; column < SalesColumnCount; ++column)
            MSFlexGrid1->setItem(at, column, new QTableWidgetItem(FromAnsi(row[column].value_or(QByteArray()))));
        return true;
    });
}

} // namespace qlon
