#include "editors/QlonUpDept.h"

#include "core/Ansi.h"
#include "core/ErrorIgnoring.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/HostPath.h"
#include "itemssold/QlonItemsSold.h"
#include "listbuilder/QLONlistBuilder1.h"
#include "store/Departments.h"
#include "store/ProgramGlobals.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/Program.h"
#include "ui/VbComboBox.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace qlon {

namespace {

const QByteArray departmentsFile = QByteArrayLiteral("data\\Departments.dat");

QString departmentsPath()
{
    EnsureDataRoot();
    return HostPath(DataPath(departmentsFile));
}

} // namespace

QlonUpDept::QlonUpDept(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Departments"));
    setAttribute(Qt::WA_DeleteOnClose);
    SSPanel1 = MakeLabel(this, QStringLiteral("SSPanel1"), QStringLiteral("Departments"));
    SSPanel1->setAlignment(Qt::AlignCenter);
    SSPanel1->setFrameShape(QFrame::Panel);
    Label1 = MakeLabel(this, QStringLiteral("Label1"));
    SSCommand1 = MakeButton(this, QStringLiteral("SSCommand1"), QStringLiteral("Done"));

    auto *layout = new QGridLayout(this);
    layout->addWidget(SSPanel1, 0, 0, 1, 3);
    for (int row = 0; row < rowCount; ++row) {
        Text1[row] = MakeTextBox(this, ArrayName("Text1", row));
        Check1[row] = Named(new QCheckBox(this), ArrayName("Check1", row));
        layout->addWidget(MakeLabel(this, {}, QString::number(row)), row + 1, 0);
        layout->addWidget(Text1[row], row + 1, 1);
        layout->addWidget(Check1[row], row + 1, 2);
        OnEvent(Check1[row], &QCheckBox::clicked, this, [this, row] { Check1_Click(row); });
    }
    layout->addWidget(Label1, rowCount + 1, 0, 1, 2);
    layout->addWidget(SSCommand1, rowCount + 1, 2);
    OnEvent(SSCommand1, &QPushButton::clicked, this, [this] { Done_Click(); });
}

void QlonUpDept::Form_Load()
{
    SkipOnFailure([this] {
        const QString path = departmentsPath();
        EnsureDepartmentsFile(path, DepartmentsEditorDepartments());
        const QByteArrayList names = ReadDepartmentNames(path, rowCount);
        for (int row = 0; row < names.size(); ++row) {
            Text1[row]->setText(FromAnsi(names[row]));
            Check1[row]->setText(FromAnsi(names[row]));
        }
    });
}

void QlonUpDept::setUpchargeLabel(QLabel *label3)
{
    m_upchargeLabel = label3;
}

// At most one box is on: the one clicked last.
void QlonUpDept::Check1_Click(int row)
{
    for (int other = 0; other < rowCount; ++other)
        Check1[other]->setChecked(other == row);
    Label1->setText(Check1[row]->text());
}

void QlonUpDept::rewriteFile(const std::function<void(int row)> &visit)
{
    QByteArrayList rows;
    for (const QLineEdit *text : Text1)
        rows.append(ToAnsi(text->text()));
    SkipOnFailure([&] {
        CloseAll();
        WriteDepartmentNames(departmentsPath(), rows);
    });
    if (!visit)
        return;
    for (int row = 0; row < rowCount; ++row)
        SkipOnFailure([&] { visit(row); });
}

void QlonUpDept::Done_Click()
{
    QByteArray &mode = Shared().ScreenMode;
    if (mode == "UPCHARGE") {
        mode.clear();
        rewriteFile();
        if (m_upchargeLabel)
            m_upchargeLabel->setText(Label1->text());
    } else if (mode == "FMI") {
        mode.clear();
        rewriteFile();
    } else if (mode == "UPCHARGE2") {
        mode.clear();
        VbComboBox *picker = MainScreen()->Combo1;
        picker->clearEntries();
        rewriteFile([&](int row) {
            const QByteArray name = ToAnsi(Text1[row]->text());
            if (!TrimBlanks(name).isEmpty())
                picker->addEntry(name);
            if (Check1[row]->isChecked())
                picker->setText(name);
        });
    } else {
        // The Items Sold screen opens the editor without setting the mode; it stays as it was.
        VbComboBox *picker = Screens().touch<QlonItemsSold>(QStringLiteral("QlonItemsSold"))->Combo2;
        picker->clearEntries();
        rewriteFile([&](int row) { picker->addEntry(ToAnsi(Text1[row]->text())); });
    }
    close();
}

} // namespace qlon
