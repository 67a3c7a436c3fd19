#pragma once

#include "platform/ui/ScreenRegistry.h"

#include <QWidget>

#include <array>

class QCalendarWidget;
class QLabel;
class QLineEdit;
class QPushButton;

namespace qlon {

class MList;

// The hidden worker, "Servers Individual Sales": loaded at start without being shown, it does
// the sales store's work for the main screen. The main screen writes its Label1 (the item) and
// Label2 (the status) before each call.
class QLONlistBuilder2 : public QWidget, public LoadedScreen
{
    Q_OBJECT

public:
    explicit QLONlistBuilder2(QWidget *parent = nullptr);

    void Form_Load() override;

    QLineEdit *Text1;
    QLineEdit *Text2;
    QLineEdit *Text3;
    QLineEdit *Text4;
    QLineEdit *Text5;
    QLabel *Label1;
    QLabel *Label2;
    std::array<QLabel *, 5> Label3;
    QLabel *Label4;
    QLabel *Label5;
    MList *MList1;
    QCalendarWidget *MonthView1;
    QPushButton *Command1;
    QPushButton *Command2;
    QPushButton *SSCommand1;
    QPushButton *SSCommand2;
    QPushButton *SSCommand3;
};

} // namespace qlon
