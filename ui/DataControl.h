#pragma once

#include <QTableView>
#include <QWidget>

class QLabel;
class QToolButton;

namespace qlon {

// The old platform's data control: a bar with a caption between the buttons that move its
// recordset to the first, the previous, the next and the last row. The screen that owns the
// recordset does the moves and sets the caption.
class DataControl : public QWidget
{
    Q_OBJECT

public:
    explicit DataControl(QWidget *parent = nullptr);

    QString caption() const;
    void setCaption(const QString &caption);
    // The caption a move leaves: "Record: " and the recordset's absolute position.
    void showPosition(int position) { setCaption(QStringLiteral("Record: ") + QString::number(position)); }

signals:
    void moveFirst();
    void movePrevious();
    void moveNext();
    void moveLast();

private:
    QLabel *m_caption;
};

// The old platform's data grid: a table whose Down key on its last row asks for a new row.
class DataGrid : public QTableView
{
    Q_OBJECT

public:
    explicit DataGrid(QWidget *parent = nullptr);

signals:
    void newRowWanted();

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace qlon
