#pragma once

#include "ui/ScreenRegistry.h"

#include <QPointer>
#include <QWidget>

#include <array>
#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace qlon {

// "Departments": the operator edits the fourteen rows of data\Departments.dat and picks one.
// Done rewrites the file and reloads the picker of whoever opened the screen, as ScreenMode
// tells: "UPCHARGE2" the main screen, "FMI" the item editor (nothing to reload), "UPCHARGE" a
// caller that supplies a Label3, anything else the Items Sold screen.
class QlonUpDept : public QWidget, public LoadedScreen
{
    Q_OBJECT

public:
    static constexpr int rowCount = 14;

    explicit QlonUpDept(QWidget *parent = nullptr);

    void Form_Load() override;
    void Done_Click();

    // The caller of the "UPCHARGE" mode: Done copies the picked name into this label.
    void setUpchargeLabel(QLabel *label3);

    QLabel *SSPanel1;
    std::array<QLineEdit *, rowCount> Text1;
    std::array<QCheckBox *, rowCount> Check1;
    QLabel *Label1; // the department picked
    QPushButton *SSCommand1; // "Done"

private:
    void Check1_Click(int row);
    // Rewrites the file with the fourteen rows as they stand, telling each row to `visit`.
    void rewriteFile(const std::function<void(int row)> &visit = {});

    QPointer<QLabel> m_upchargeLabel;
};

} // namespace qlon
