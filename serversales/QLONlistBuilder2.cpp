#include "serversales/QLONlistBuilder2.h"

#include "core/Clock.h"
#include "platform/ui/MList.h"
#include "store/SiteConfig.h"

#include <QCalendarWidget>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace qlon {

namespace {

template <typename Control>
Control *named(Control *control, const QString &name)
{
    control->setObjectName(name);
    return control;
}

QLineEdit *textBox(QWidget *parent, const QString &name, const QString &text = {})
{
    return named(new QLineEdit(text, parent), name);
}

} // namespace

QLONlistBuilder2::QLONlistBuilder2(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Servers Individual Sales"));
    Text1 = textBox(this, QStringLiteral("Text1"), QStringLiteral("1000"));
    Text2 = textBox(this, QStringLiteral("Text2"), QStringLiteral("01/22/2005"));
    Text3 = textBox(this, QStringLiteral("Text3"));
    Text4 = textBox(this, QStringLiteral("Text4"));
    Text5 = textBox(this, QStringLiteral("Text5"));
    Label1 = named(new QLabel(QStringLiteral("1000"), this), QStringLiteral("Label1"));
    Label2 = named(new QLabel(QStringLiteral("Loading"), this), QStringLiteral("Label2"));
    const QString captions[] = {QStringLiteral("Server"), QStringLiteral("Date"), QStringLiteral("Total Liquor Sales"),
                                QStringLiteral("Total Sales"), QStringLiteral("Total Food Sales")};
    for (int index = 0; index < int(Label3.size()); ++index)
        Label3[index] = named(new QLabel(captions[index], this), QStringLiteral("Label3(%1)").arg(index));
    Label4 = named(new QLabel(this), QStringLiteral("Label4"));
    Label5 = named(new QLabel(this), QStringLiteral("Label5"));
    MList1 = named(new MList(this), QStringLiteral("MList1"));
    MList1->setSeparator(',');
    MonthView1 = named(new QCalendarWidget(this), QStringLiteral("MonthView1"));
    MonthView1->hide();
    Command1 = named(new QPushButton(QStringLiteral("Update"), this), QStringLiteral("Command1"));
    Command2 = named(new QPushButton(QStringLiteral("Command2"), this), QStringLiteral("Command2"));
    SSCommand1 = named(new QPushButton(QStringLiteral("Done"), this), QStringLiteral("SSCommand1"));
    SSCommand2 = named(new QPushButton(QStringLiteral("Print"), this), QStringLiteral("SSCommand2"));
    SSCommand3 = named(new QPushButton(QStringLiteral("Print List"), this), QStringLiteral("SSCommand3"));

    auto *layout = new QGridLayout(this);
    const QList<QWidget *> fields = {Label3[0], Text1, Label3[1], Text2, Label3[3], Text3, Label3[2], Text4, Label3[4], Text5};
    for (int index = 0; index < fields.size(); ++index)
        layout->addWidget(fields[index], index / 2, index % 2);
    layout->addWidget(MList1, 0, 2, 6, 1);
    layout->addWidget(Label1, 5, 0);
    layout->addWidget(Label2, 5, 1);
    layout->addWidget(Label4, 6, 0);
    layout->addWidget(Label5, 6, 1);
    for (QPushButton *command : {Command1, Command2, SSCommand2, SSCommand3, SSCommand1})
        layout->addWidget(command);
}

void QLONlistBuilder2::Form_Load()
{
    EnsureDataRoot();
    MonthView1->setSelectedDate(Today());
}

} // namespace qlon
