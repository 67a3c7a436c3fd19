#include "editors/ListEditor.h"

#include "core/Ansi.h"
#include "core/HostPath.h"
#include "store/Departments.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/Program.h"
#include "ui/ScreenRegistry.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace qlon {

ListEditor::ListEditor(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("List Editor"));
    SSPanel1 = MakeLabel(this, QStringLiteral("SSPanel1"));
    SSPanel1->setStyleSheet(QStringLiteral("font-weight: bold"));
    Label1 = MakeLabel(this, QStringLiteral("Label1"));
    List1 = Named(new QListWidget(this), QStringLiteral("List1"));
    Text1 = MakeTextBox(this, QStringLiteral("Text1"));
    cmdAdd = MakeButton(this, QStringLiteral("cmdAdd"), QStringLiteral("&Add"));
    cmdChange = MakeButton(this, QStringLiteral("cmdChange"), QStringLiteral("C&hange"));
    cmdRemove = MakeButton(this, QStringLiteral("cmdRemove"), QStringLiteral("&Remove"));
    cmdSave = MakeButton(this, QStringLiteral("cmdSave"), QStringLiteral("&Save"));
    cmdClose = MakeButton(this, QStringLiteral("cmdClose"), QStringLiteral("&Close"));
    auto *layout = new QGridLayout(this);
    layout->addWidget(SSPanel1, 0, 0, 1, 3);
    layout->addWidget(Label1, 1, 0, 1, 3);
    layout->addWidget(List1, 2, 0, 1, 3);
    layout->addWidget(Text1, 3, 0, 1, 3);
    layout->addWidget(cmdAdd, 4, 0);
    layout->addWidget(cmdChange, 4, 1);
    layout->addWidget(cmdRemove, 4, 2);
    layout->addWidget(cmdSave, 5, 1);
    layout->addWidget(cmdClose, 5, 2);
    resize(320, 420);
    OnEvent(List1, &QListWidget::currentTextChanged, this,
        [this] { Text1->setText(List1->currentItem() ? List1->currentItem()->text() : QString()); });
    OnEvent(Text1, &QLineEdit::returnPressed, this, [this] { addName(); });
    OnEvent(cmdAdd, &QPushButton::clicked, this, [this] { addName(); });
    OnEvent(cmdChange, &QPushButton::clicked, this, [this] { changeName(); });
    OnEvent(cmdRemove, &QPushButton::clicked, this, [this] { removeName(); });
    OnEvent(cmdSave, &QPushButton::clicked, this, [this] { saveList(); });
    OnEvent(cmdClose, &QPushButton::clicked, this, [this] { close(); });
}

void ListEditor::setList(const QString &title, const QByteArray &file)
{
    SSPanel1->setText(title);
    Label1->setText(FromAnsi(file));
}

QString ListEditor::hostPath() const
{
    return HostPath(Site().SiteRoot + ToAnsi(Label1->text()));
}

// The names as the file holds them; a missing file is an empty list.
void ListEditor::Fill_List()
{
    List1->clear();
    Text1->clear();
    m_saved = FileExists(hostPath()) ? ReadDepartmentNames(hostPath()) : QByteArrayList();
    for (const QByteArray &name : m_saved)
        List1->addItem(FromAnsi(name));
}

QByteArrayList ListEditor::listedNames() const
{
    QByteArrayList names;
    for (int row = 0; row < List1->count(); ++row)
        names.append(ToAnsi(List1->item(row)->text()));
    return names;
}

// A quote would end the name in the file: it is left out.
QString ListEditor::typedName() const
{
    return Text1->text().remove(QLatin1Char('"')).trimmed();
}

void ListEditor::addName()
{
    if (typedName().isEmpty())
        return;
    List1->addItem(typedName());
    List1->setCurrentRow(List1->count() - 1);
}

void ListEditor::changeName()
{
    if (QListWidgetItem *picked = List1->currentItem(); picked && !typedName().isEmpty())
        picked->setText(typedName());
}

void ListEditor::removeName()
{
    delete List1->takeItem(List1->currentRow());
}

void ListEditor::saveList()
{
    const QByteArrayList names = listedNames();
    WriteDepartmentNames(hostPath(), names);
    m_saved = names;
    if (auto *employees = qobject_cast<TCEmployee *>(Screens().existing(QStringLiteral("TCEmployee"))))
        employees->reloadLists();
}

void ListEditor::closeEvent(QCloseEvent *event)
{
    if (!MayCloseWithEdits(this, listedNames() != m_saved, [this] { saveList(); }))
        event->ignore();
}

} // namespace qlon
