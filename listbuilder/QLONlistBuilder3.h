#pragma once

#include <QWidget>

class QPushButton;
class QTableWidget;

namespace qlon {

// "Form1": a plain grid of the sales rows of the main screen's span, for looking at the data.
class QLONlistBuilder3 : public QWidget
{
    Q_OBJECT

public:
    explicit QLONlistBuilder3(QWidget *parent = nullptr);

    QTableWidget *MSFlexGrid1;
    QPushButton *Command1;
    QPushButton *Command2;

private:
    void Command1_Click();
};

} // namespace qlon
