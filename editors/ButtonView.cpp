#include "editors/ButtonView.h"

#include "core/Ansi.h"
#include "core/FixedField.h"
#include "core/HostPath.h"
#include "editors/FItemButtonFood.h"
#include "editors/RecipeView.h"
#include "editors/logic/ItemEditing.h"
#include "store/CatalogueFiles.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/Program.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace qlon {

namespace {

// The catalogue files of the site that exist: the food buttons of the four menu sets, the
// modifier lists, the drinks and the retail articles.
QList<CatalogueFile> siteCatalogueFiles()
{
    QList<CatalogueFile> files = GatheredCatalogueFiles();
    for (int index = 0; index < ModifierFileCount; ++index)
        files.append(ModifierFile(index));
    QList<CatalogueFile> found;
    for (const CatalogueFile &file : files) {
        if (FileExists(HostPath(DataPath(file.items))))
            found.append(file);
    }
    return found;
}

QString recordLine(qint32 number, const ItemRec500 &record)
{
    return QStringLiteral("%1  %2").arg(number, 4).arg(FromAnsi(record.trimmedField(ItemRec500::ButtonTitle)));
}

} // namespace

ButtonView::ButtonView(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Item Buttons"));
    cboFile = Named(new QComboBox(this), QStringLiteral("cboFile"));
    lstRecords = Named(new QListWidget(this), QStringLiteral("lstRecords"));
    Label1 = MakeLabel(this, QStringLiteral("Label1"));
    Label2 = MakeLabel(this, QStringLiteral("Label2"));
    Label3 = MakeLabel(this, QStringLiteral("Label3"), QStringLiteral("0"));
    picCommands = Named(new QWidget(this), QStringLiteral("picCommands"));
    cmdEdit = MakeButton(picCommands, QStringLiteral("cmdEdit"), QStringLiteral("Edit"));
    cmdRecipe = MakeButton(picCommands, QStringLiteral("cmdRecipe"), QStringLiteral("Recipe"));
    SSCommand1 = MakeButton(picCommands, QStringLiteral("SSCommand1"), QStringLiteral("Refresh"));
    cmdClose = MakeButton(this, QStringLiteral("cmdClose"), QStringLiteral("Close"));
    auto *commands = new QHBoxLayout(picCommands);
    commands->setContentsMargins(0, 0, 0, 0);
    for (QPushButton *command : {cmdEdit, cmdRecipe, SSCommand1})
        commands->addWidget(command);

    auto *layout = new QGridLayout(this);
    layout->addWidget(MakeLabel(this, {}, QStringLiteral("File")), 0, 0);
    layout->addWidget(cboFile, 0, 1, 1, 2);
    layout->addWidget(Label1, 1, 0, 1, 2);
    layout->addWidget(Label2, 1, 2);
    layout->addWidget(lstRecords, 2, 0, 1, 3);
    layout->addWidget(MakeLabel(this, {}, QStringLiteral("Record")), 3, 0);
    layout->addWidget(Label3, 3, 1);
    layout->addWidget(picCommands, 4, 0, 1, 2);
    layout->addWidget(cmdClose, 4, 2);
    resize(420, 560);

    // A pick, even of the file already picked: it brings back a file after a modifier list.
    OnEvent(cboFile, &QComboBox::activated, this, [this] { pickFile(); });
    OnEvent(lstRecords, &QListWidget::currentRowChanged, this, [this] { Label3->setText(QString::number(pickedRecord())); });
    OnEvent(lstRecords, &QListWidget::itemActivated, this, [this] { editRecord(); });
    OnEvent(cmdEdit, &QPushButton::clicked, this, [this] { editRecord(); });
    OnEvent(cmdRecipe, &QPushButton::clicked, this, [this] { showRecipe(); });
    OnEvent(SSCommand1, &QPushButton::clicked, this, [this] { SSCommand1_Click(); });
    OnEvent(cmdClose, &QPushButton::clicked, this, [this] { close(); });
}

void ButtonView::Form_Load()
{
    EnsureDataRoot();
    // What each file holds, beside its path; the path is the entry's data.
    for (const CatalogueFile &file : siteCatalogueFiles()) {
        const QString path = FromAnsi(DataPath(file.items));
        cboFile->addItem(QStringLiteral("%1 — %2").arg(file.what, path), path);
    }
    pickFile();
}

QByteArray ButtonView::currentPath() const
{
    return ToAnsi(Label1->text());
}

qint32 ButtonView::pickedRecord() const
{
    return lstRecords->currentRow() + 1;
}

bool ButtonView::isModifierFile(const QByteArray &path)
{
    const QByteArray name = path.mid(path.lastIndexOf('\\') + 1).toLower();
    return name.startsWith("mod") || name.contains("modifiers");
}

void ButtonView::pickFile()
{
    // The editor saves new items into the file this view shows: one still open on the file
    // before would write into the new one, so it goes, and the next Edit opens it afresh.
    delete Screens().existing(QStringLiteral("FItemButtonFood"));
    Label1->setText(cboFile->currentData().toString());
    picCommands->show();
    Fill_data();
}

void ButtonView::Fill_data()
{
    const int picked = lstRecords->currentRow();
    lstRecords->clear();
    const QByteArray path = currentPath();
    const qint32 count = ItemFile::Count(path).value_or(0);
    for (qint32 number = 1; number <= count; ++number)
        lstRecords->addItem(recordLine(number, *ItemFile::Read(path, number)));
    Label2->setText(QStringLiteral("%1 records").arg(count));
    if (count > 0)
        lstRecords->setCurrentRow(qBound(0, picked, count - 1));
}

void ButtonView::Set_data()
{
    const qint32 number = Label3->text().toInt();
    if (QListWidgetItem *row = lstRecords->item(number - 1)) {
        if (const std::optional<ItemRec500> record = ItemFile::Read(currentPath(), number))
            row->setText(recordLine(number, *record));
    }
}

void ButtonView::SSCommand1_Click()
{
    Fill_data();
}

// The modifier list only to look at: the commands and the recipe stay out of sight, and the
// file stays the editor's, as Add New and Save New read it. The picker keeps the file picked;
// picking any file, that one too, brings its records and the commands back.
void ButtonView::showModifierList(const QByteArray &path)
{
    const QString itemFile = Label1->text();
    Label1->setText(FromAnsi(path));
    Fill_data();
    Label2->setText(Label2->text() + QStringLiteral(" of ") + FromAnsi(path));
    Label1->setText(itemFile);
    picCommands->hide();
    if (QWidget *recipe = Screens().existing(QStringLiteral("RecipeView")))
        recipe->hide();
    show();
}

void ButtonView::editRecord()
{
    const qint32 number = pickedRecord();
    if (number < 1)
        return;
    auto *editor = Screens().touch<FItemButtonFood>(QStringLiteral("FItemButtonFood"));
    if (isModifierFile(currentPath())) {
        editor->make_MOD();
        editor->ModTitle();
    }
    editor->setItem(currentPath(), number);
    editor->LoadItem();
    ShowInFront(editor);
}

void ButtonView::showRecipe()
{
    auto *recipe = Screens().touch<RecipeView>(QStringLiteral("RecipeView"));
    recipe->show();
    recipe->Get_InvData();
    recipe->GetINVinfo();
}

} // namespace qlon
