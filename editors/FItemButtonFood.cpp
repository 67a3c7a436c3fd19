#include "editors/FItemButtonFood.h"

#include "core/Ansi.h"
#include "core/FileTable.h"
#include "core/FixedField.h"
#include "core/HostPath.h"
#include "editors/ItemCompanions.h"
#include "editors/QlonUpDept.h"
#include "store/Departments.h"
#include "store/FoodCost.h"
#include "store/IniRec2300.h"
#include "store/ProgramGlobals.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/Program.h"
#include "ui/ScreenTimer.h"
#include "ui/VbComboBox.h"
#include "ui/VbTextBox.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qlon {

namespace {

const QByteArray departmentsFile = QByteArrayLiteral("data\\Departments.dat");
constexpr int firstKitchenPrinterField = 129; // the printer names of "Kit 3" to "Kit 8"

template<typename Companion>
Companion *shownCompanion(const QString &name)
{
    QWidget *view = Screens().existing(name);
    return view && view->isVisible() ? dynamic_cast<Companion *>(view) : nullptr;
}

ButtonViewCompanion *buttonView()
{
    return dynamic_cast<ButtonViewCompanion *>(Screens().existing(QStringLiteral("ButtonView")));
}

QCheckBox *makeCheck(QWidget *parent, const QString &name, const QString &caption, const QString &tip = {})
{
    auto *check = Named(new QCheckBox(caption, parent), name);
    check->setToolTip(tip);
    return check;
}

VbComboBox *makePicker(QWidget *parent, const QString &name, const QString &tip)
{
    auto *picker = Named(new VbComboBox(parent), name);
    picker->setToolTip(tip);
    return picker;
}

QByteArray ansiText(const QLineEdit *box)
{
    return ToAnsi(box->text());
}

} // namespace

FItemButtonFood::FItemButtonFood(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Food Item Button Display"));
    lblTitle = MakeLabel(this, QStringLiteral("lblTitle"), QStringLiteral("Food Item Button Display"));
    lblTitle->setAlignment(Qt::AlignCenter);
    lblTitle->setFrameShape(QFrame::Panel);
    cmdSample = MakeButton(this, QStringLiteral("cmdSample"), QString(), QStringLiteral("Button Sample"));
    cmdSample->setMinimumSize(120, 60);
    tmrDeleting = new ScreenTimer(this, 360);

    auto *layout = new QGridLayout(this);
    layout->addWidget(lblTitle, 0, 0, 1, 2);
    layout->addWidget(buildFields(), 1, 0);
    layout->addWidget(buildChoices(), 1, 1);
    layout->addWidget(buildCommands(), 2, 0, 1, 2);
    connectHandlers();
}

QWidget *FItemButtonFood::buildFields()
{
    auto *box = new QWidget(this);
    auto *form = new QFormLayout(box);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    txtButtonTitle = Named(new VbTextBox({}, box), QStringLiteral("txtButtonTitle"));
    txtReceipt = MakeTextBox(box, QStringLiteral("txtReceipt"));
    txtKitchen = MakeTextBox(box, QStringLiteral("txtKitchen"));
    txtPrice = Named(new VbTextBox({}, box), QStringLiteral("txtPrice"));
    txtHappyHour = MakeTextBox(box, QStringLiteral("txtHappyHour"));
    txtButtonNumber = MakeTextBox(box, QStringLiteral("txtButtonNumber"), QStringLiteral("N/A"));
    txtLongDescription = MakeTextBox(box, QStringLiteral("txtLongDescription"));
    txtLongDescription->setToolTip(QStringLiteral("The long description is for your use only the system does not use this."));
    lblPrice = MakeLabel(box, QStringLiteral("lblPrice"), QStringLiteral("Price"));
    lblHappyHour = MakeLabel(box, QStringLiteral("lblHappyHour"), QStringLiteral("Happy Hour Price"));
    lblRecord = MakeLabel(box, QStringLiteral("lblRecord"), QStringLiteral("0"));
    lblFoodCost = MakeLabel(box, QStringLiteral("lblFoodCost"), QStringLiteral("$ 0.00"));
    lblFoodPercent = MakeLabel(box, QStringLiteral("lblFoodPercent"), QStringLiteral("0%"));
    form->addRow(QStringLiteral("Button Title"), txtButtonTitle);
    form->addRow(QStringLiteral("Print on Receipt"), txtReceipt);
    form->addRow(QStringLiteral("Print on Kit Order"), txtKitchen);
    form->addRow(lblPrice, txtPrice);
    form->addRow(lblHappyHour, txtHappyHour);
    form->addRow(QStringLiteral("Button Number"), txtButtonNumber);
    form->addRow(QStringLiteral("Long Description"), txtLongDescription);
    form->addRow(QStringLiteral("Record"), lblRecord);
    auto *cost = new QHBoxLayout;
    cost->addWidget(lblFoodCost);
    cost->addWidget(lblFoodPercent);
    form->addRow(QStringLiteral("Food Cost"), cost);
    form->addRow(MakeLabel(box, {}, QStringLiteral("Do not use Comma or Qoutes")));
    form->addRow(QStringLiteral("Button Sample"), cmdSample);
    return box;
}

QWidget *FItemButtonFood::buildChoices()
{
    auto *box = new QWidget(this);
    auto *grid = new QGridLayout(box);
    chkVisible = makeCheck(box, QStringLiteral("chkVisible"), QStringLiteral("Visible"));
    chkTaxable = makeCheck(box, QStringLiteral("chkTaxable"), QStringLiteral("Taxable"));
    chkKitPrinter = makeCheck(box, QStringLiteral("chkKitPrinter"), QStringLiteral("Print on Kit Printer"));
    chkBarPrinter = makeCheck(box, QStringLiteral("chkBarPrinter"), QStringLiteral("Print on Bar Printer"));
    cboDepartment = makePicker(box, QStringLiteral("cboDepartment"),
        QStringLiteral("Used to Report Items sold by Departments - You can edit the departments on the Items Sold Screen"));
    cmdEditDepartments = MakeButton(box, QStringLiteral("cmdEditDepartments"), QStringLiteral("Edit"));
    cboCategory = makePicker(
        box, QStringLiteral("cboCategory"), QStringLiteral(" This is used for the kitchen print order ticket to match catagories"));
    for (const char *category : {"Appetizer", "Salad/Soup", "Main Course", "Dessert", "Other"})
        cboCategory->addEntry(category);
    cboCategory->setText("Main Course");
    cboModifier = makePicker(box, QStringLiteral("cboModifier"), QStringLiteral(" First Modifier List that will be displayed"));
    for (int list = 0; list < 30; ++list)
        cboModifier->addEntry("Mod" + QByteArray::number(list));
    cmdView = MakeButton(box, QStringLiteral("cmdView"), QStringLiteral("View"));
    const QString pizzaTip =
        QStringLiteral("Please Click Yes or No - When checked a special pizza modifier screen will be displayed on an order");
    chkPizza = makeCheck(box, QStringLiteral("chkPizza"), QStringLiteral("Item is a Pizza"), pizzaTip);
    chkPizza->installEventFilter(this);
    cmdPizzaYes = MakeButton(box, QStringLiteral("cmdPizzaYes"), QStringLiteral("Yes"), pizzaTip);
    cmdPizzaNo = MakeButton(box, QStringLiteral("cmdPizzaNo"), QStringLiteral("No"), pizzaTip);
    txtPizzaSize = MakeTextBox(box, QStringLiteral("txtPizzaSize"));
    txtPizzaSize->setToolTip(QStringLiteral("Enter 10  12 14 16 18 Ect"));

    fraKitchen = Named(new QGroupBox(QStringLiteral("Additional Kitchen Printers"), box), QStringLiteral("fraKitchen"));
    auto *routes = new QVBoxLayout(fraKitchen);
    for (int option = 0; option < int(optKitchen.size()); ++option) {
        const QString caption = option == 0 ? QStringLiteral("NONE") : QStringLiteral("Kit %1").arg(option + FirstExtraKitchen - 1);
        optKitchen[option] = Named(new QRadioButton(caption, fraKitchen), ArrayName("optKitchen", option));
        routes->addWidget(optKitchen[option]);
    }
    routes->addWidget(MakeLabel(
        fraKitchen, {}, QStringLiteral("Any order printed to one of these printers must also be printed to the main kitchen printer")));
    fraKitchen->setEnabled(false);

    int row = 0;
    for (QCheckBox *check : {chkVisible, chkTaxable, chkKitPrinter, chkBarPrinter})
        grid->addWidget(check, row++, 0, 1, 3);
    const std::tuple<const char *, VbComboBox *, QPushButton *> pickers[] = {
        {"Department", cboDepartment, cmdEditDepartments}, {"Category", cboCategory, nullptr}, {"Use Modifier", cboModifier, cmdView}};
    for (const auto &[caption, picker, command] : pickers) {
        grid->addWidget(MakeLabel(box, {}, QString::fromLatin1(caption)), row, 0);
        grid->addWidget(picker, row, 1);
        if (command)
            grid->addWidget(command, row, 2);
        ++row;
    }
    grid->addWidget(chkPizza, row, 0);
    grid->addWidget(cmdPizzaYes, row, 1);
    grid->addWidget(cmdPizzaNo, row++, 2);
    grid->addWidget(MakeLabel(box, {}, QStringLiteral("Pizza Size")), row, 0);
    grid->addWidget(txtPizzaSize, row, 1);
    grid->addWidget(MakeLabel(box, {}, QStringLiteral("Must ba a whole number - Used to calc Mod Charge")), row++, 2);
    grid->addWidget(fraKitchen, row, 0, 1, 3);
    return box;
}

QWidget *FItemButtonFood::buildCommands()
{
    auto *box = new QWidget(this);
    auto *row = new QHBoxLayout(box);
    cmdAddNew = MakeButton(box, QStringLiteral("cmdAddNew"), QStringLiteral("Add New"));
    cmdSaveNew = MakeButton(box, QStringLiteral("cmdSaveNew"), QStringLiteral("Save New"));
    cmdSaveUpdate = MakeButton(box, QStringLiteral("cmdSaveUpdate"), QStringLiteral("Save Update"));
    cmdDelete = MakeButton(box, QStringLiteral("cmdDelete"), QStringLiteral("Delete"));
    cmdCancel = MakeButton(box, QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
    cmdRefresh = MakeButton(box, QStringLiteral("cmdRefresh"), QStringLiteral("Refresh"));
    cmdClear = MakeButton(box, QStringLiteral("cmdClear"), QStringLiteral("Clear"));
    for (QPushButton *command : {cmdAddNew, cmdSaveNew, cmdSaveUpdate, cmdDelete, cmdCancel, cmdRefresh, cmdClear})
        row->addWidget(command);
    cmdSaveNew->setEnabled(false);
    cmdCancel->setEnabled(false);
    pnlDeleting = Named(new QWidget(box), QStringLiteral("pnlDeleting"));
    auto *panel = new QHBoxLayout(pnlDeleting);
    panel->addWidget(MakeLabel(pnlDeleting, {}, QStringLiteral("Deleting Item - Just A Moment")));
    prgDeleting = Named(new QProgressBar(pnlDeleting), QStringLiteral("prgDeleting"));
    prgDeleting->setRange(0, 50);
    panel->addWidget(prgDeleting);
    pnlDeleting->hide();
    row->addWidget(pnlDeleting);
    return box;
}

void FItemButtonFood::connectHandlers()
{
    OnEvent(txtButtonTitle, &QLineEdit::textChanged, this, [this] { cmdSample->setText(txtButtonTitle->text().trimmed()); });
    OnEvent(txtButtonTitle, &VbTextBox::LostFocus, this, [this] { TitleLostFocus(); });
    OnEvent(txtPrice, &VbTextBox::LostFocus, this, [this] { txtHappyHour->setText(txtPrice->text()); });
    OnEvent(chkKitPrinter, &QCheckBox::clicked, this, [this] { enableKitchenRoutes(chkKitPrinter->isChecked()); });
    for (QPushButton *answer : {cmdPizzaYes, cmdPizzaNo}) {
        OnEvent(answer, &QPushButton::clicked, this, [this, answer] {
            chkPizza->setChecked(answer == cmdPizzaYes);
            chkPizza->setFocus();
            PizzaGotFocus(); // the focus may not move to a window that isn't active
        });
    }
    OnEvent(cmdView, &QPushButton::clicked, this, [this] { ViewModifierList(); });
    OnEvent(cmdEditDepartments, &QPushButton::clicked, this, [this] { EditDepartments(); });
    OnEvent(cmdAddNew, &QPushButton::clicked, this, [this] { AddNew(); });
    OnEvent(cmdSaveNew, &QPushButton::clicked, this, [this] { SaveNew(); });
    OnEvent(cmdSaveUpdate, &QPushButton::clicked, this, [this] { SaveUpdate(); });
    OnEvent(cmdDelete, &QPushButton::clicked, this, [this] {
        pnlDeleting->show();
        tmrDeleting->start();
        Delete();
    });
    OnEvent(cmdCancel, &QPushButton::clicked, this, [this] { Cancel(); });
    OnEvent(cmdRefresh, &QPushButton::clicked, this, [this] { Refresh(); });
    OnEvent(cmdClear, &QPushButton::clicked, this, [this] { Clear(); });
    OnEvent(tmrDeleting, &ScreenTimer::timeout, this,
        [this] { prgDeleting->setValue(prgDeleting->value() + 1 >= 50 ? 1 : prgDeleting->value() + 1); });
}

bool FItemButtonFood::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == chkPizza && event->type() == QEvent::FocusIn)
        RunHandler([this] { PizzaGotFocus(); });
    return QWidget::eventFilter(watched, event);
}

void FItemButtonFood::Form_Load()
{
    fillDepartments();
    const IniRec2300 &configuration = Site().Config;
    for (int option = 1; option < int(optKitchen.size()); ++option)
        optKitchen[option]->setToolTip(FromAnsi(configuration.trimmedField(firstKitchenPrinterField + option - 1)));
}

void FItemButtonFood::fillDepartments()
{
    EnsureDataRoot();
    const QString path = HostPath(DataPath(departmentsFile));
    EnsureDepartmentsFile(path, ItemEditorDepartments());
    const QByteArray shown = cboDepartment->text();
    cboDepartment->clearEntries();
    for (const QByteArray &name : ReadDepartmentNames(path))
        cboDepartment->addEntry(name);
    cboDepartment->setText(shown);
}

void FItemButtonFood::setItem(const QByteArray &path, qint32 number)
{
    m_path = path;
    m_number = number;
}

QByteArray FItemButtonFood::pathFromHost() const
{
    const ButtonViewCompanion *view = buttonView();
    return view ? view->currentPath() : m_path;
}

void FItemButtonFood::LoadItem()
{
    lblFoodPercent->setText(QStringLiteral("0%"));
    lblFoodCost->setText(QStringLiteral("$ 0.00"));
    CloseAll();
    if (const std::optional<ItemRec500> record = ItemFile::Read(m_path, m_number)) {
        m_buffer = *record;
        showItem(m_buffer);
    }
    lblRecord->setText(QString::number(m_number));
    FoodCost();
}

void FItemButtonFood::showItem(const ItemRec500 &record)
{
    const ItemView view = ViewOfItem(record);
    const std::pair<QLineEdit *, const QByteArray *> texts[] = {{txtButtonTitle, &view.buttonTitle}, {txtReceipt, &view.receiptText},
        {txtKitchen, &view.kitchenText}, {txtPrice, &view.price}, {txtHappyHour, &view.happyHourPrice},
        {txtLongDescription, &view.longDescription}, {txtButtonNumber, &view.buttonNumber}, {txtPizzaSize, &view.pizzaSize}};
    for (const auto &[box, text] : texts)
        box->setText(FromAnsi(*text));
    chkVisible->setChecked(view.visible);
    chkTaxable->setChecked(view.taxable);
    chkKitPrinter->setChecked(view.kitPrinter);
    chkBarPrinter->setChecked(view.barPrinter);
    cboDepartment->setText(view.department);
    cboCategory->setText(view.category);
    cboModifier->setText(view.modifierList);
    chkPizza->setChecked(view.pizza);
    cboModifier->setEnabled(!view.pizza);
    fraKitchen->setEnabled(view.kitPrinter);
    setKitchenPrinter(view.kitchenPrinter);
}

ItemView FItemButtonFood::screenView() const
{
    ItemView view;
    view.buttonTitle = ansiText(txtButtonTitle);
    view.receiptText = ansiText(txtReceipt);
    view.kitchenText = ansiText(txtKitchen);
    view.price = ansiText(txtPrice);
    view.happyHourPrice = ansiText(txtHappyHour);
    view.longDescription = ansiText(txtLongDescription);
    view.buttonNumber = ansiText(txtButtonNumber);
    view.pizzaSize = ansiText(txtPizzaSize);
    view.category = TrimBlanks(cboCategory->text());
    view.department = TrimBlanks(cboDepartment->text());
    view.modifierList = TrimBlanks(cboModifier->text());
    view.visible = chkVisible->isChecked();
    view.barPrinter = chkBarPrinter->isChecked();
    view.taxable = chkTaxable->isChecked();
    view.kitPrinter = chkKitPrinter->isChecked();
    view.pizza = chkPizza->isChecked();
    view.kitchenPrinter = kitchenPrinter();
    return view;
}

void FItemButtonFood::Get_Data()
{
    StoreView(m_buffer, screenView());
}

// Every option off, then the one of the printer on: radio buttons stay apart while they change.
void FItemButtonFood::setKitchenPrinter(int printer)
{
    for (QRadioButton *option : optKitchen) {
        option->setAutoExclusive(false);
        option->setChecked(false);
    }
    if (printer >= FirstExtraKitchen && printer <= LastExtraKitchen)
        optKitchen[printer - FirstExtraKitchen + 1]->setChecked(true);
    for (QRadioButton *option : optKitchen)
        option->setAutoExclusive(true);
}

int FItemButtonFood::kitchenPrinter() const
{
    for (int option = 1; option < int(optKitchen.size()); ++option) {
        if (optKitchen[option]->isChecked())
            return option + FirstExtraKitchen - 1;
    }
    return 0;
}

void FItemButtonFood::enableKitchenRoutes(bool enabled)
{
    fraKitchen->setEnabled(enabled);
    if (!enabled)
        setKitchenPrinter(0);
}

void FItemButtonFood::FoodCost()
{
    lblFoodPercent->setText(QStringLiteral("0%"));
    lblFoodCost->setText(QStringLiteral("$ 0.00"));
    // Nothing of this program fills the unit table: units other than the ounce count as nothing.
    static const UnitTable units;
    const FoodCostTexts cost = qlon::FoodCost(m_path, m_number, ansiText(txtPrice), units);
    lblFoodCost->setText(FromAnsi(cost.cost));
    lblFoodPercent->setText(FromAnsi(cost.percentage));
}

void FItemButtonFood::make_MOD()
{
    lblPrice->setText(QStringLiteral("Charge"));
    lblHappyHour->setText(QStringLiteral("Extra Charge"));
    lblTitle->setText(QStringLiteral("Modifier Button Display"));
}

void FItemButtonFood::ModTitle()
{
    lblTitle->setText(QStringLiteral("Modifier Item Button"));
    lblPrice->setText(QStringLiteral("Price Add "));
    lblHappyHour->setText(QStringLiteral("Price Xtra"));
}

void FItemButtonFood::enableCommands(bool addDeleteUpdate, bool saveNewCancel)
{
    for (QPushButton *command : {cmdAddNew, cmdDelete, cmdSaveUpdate})
        command->setEnabled(addDeleteUpdate);
    for (QPushButton *command : {cmdSaveNew, cmdCancel})
        command->setEnabled(saveNewCancel);
}

void FItemButtonFood::AddNew()
{
    if (pathFromHost().isEmpty())
        return;
    enableCommands(false, true);
    for (QLineEdit *box : {static_cast<QLineEdit *>(txtButtonTitle), txtReceipt, txtKitchen, static_cast<QLineEdit *>(txtPrice),
             txtHappyHour, txtLongDescription, txtButtonNumber})
        box->clear();
    cboDepartment->setText({});
    chkVisible->setChecked(true);
    chkBarPrinter->setChecked(true);
    chkTaxable->setChecked(true);
    chkKitPrinter->setChecked(false);
}

void FItemButtonFood::SaveNew()
{
    enableCommands(false, false);
    const QByteArray path = pathFromHost();
    if (ItemFile::Count(path)) {
        Get_Data();
        m_path = path;
        m_number = *ItemFile::Append(path, m_buffer);
    }
    for (QPushButton *command : {cmdAddNew, cmdDelete, cmdSaveUpdate})
        command->setEnabled(true);
}

void FItemButtonFood::SaveUpdate()
{
    if (const std::optional<ItemRec500> stored = ItemFile::Read(m_path, m_number)) {
        m_buffer = *stored;
        Get_Data();
        ItemFile::Write(m_path, m_number, m_buffer);
        ButtonViewCompanion *view = buttonView();
        auto *recipe = dynamic_cast<RecipeViewCompanion *>(Screens().existing(QStringLiteral("RecipeView")));
        const auto storeCompanions = [&] {
            if (view)
                view->Set_data();
            if (recipe)
                recipe->Save_INVdata();
        };
        storeCompanions();
        lblRecord->setText(QString::number(m_number));
        if (shownCompanion<RecipeViewCompanion>(QStringLiteral("RecipeView")))
            recipe->GetINVinfo();
        else
            storeCompanions();
    }
    unsetCursor();
}

void FItemButtonFood::Delete()
{
    m_number = lblRecord->text().toInt();
    m_buffer = FreedSlot(m_buffer);
    ItemFile::Write(m_path, m_number, m_buffer);
    if (const std::optional<qint32> recipes = ItemFile::ClearRecipe(m_path, m_number))
        prgDeleting->setValue(qBound(0, *recipes, prgDeleting->maximum()));
    showItem(m_buffer);
    FoodCost();
    if (ButtonViewCompanion *view = shownCompanion<ButtonViewCompanion>(QStringLiteral("ButtonView"))) {
        view->Fill_data();
        view->SSCommand1_Click();
    }
    if (RecipeViewCompanion *recipe = shownCompanion<RecipeViewCompanion>(QStringLiteral("RecipeView"))) {
        recipe->Get_InvData();
        recipe->GetINVinfo();
    }
    tmrDeleting->stop();
    pnlDeleting->hide();
    unsetCursor();
}

void FItemButtonFood::Cancel()
{
    enableCommands(true, false);
    LoadItem();
}

void FItemButtonFood::Refresh()
{
    cmdRefresh->setEnabled(false);
    FoodCost();
    cmdRefresh->setEnabled(true);
}

void FItemButtonFood::Clear()
{
    for (QLineEdit *box : {static_cast<QLineEdit *>(txtButtonTitle), txtReceipt, txtKitchen, static_cast<QLineEdit *>(txtPrice),
             txtHappyHour, txtLongDescription, txtButtonNumber})
        box->clear();
    cboDepartment->setText("Food");
    cboCategory->setText("Main Course");
    cboModifier->setText("Mod1");
    for (QCheckBox *check : {chkVisible, chkKitPrinter, chkBarPrinter, chkPizza})
        check->setChecked(false);
    txtButtonTitle->setFocus();
}

// Defaults for a new title, deliberately not those of Add New.
void FItemButtonFood::TitleLostFocus()
{
    if (!TrimBlanks(ansiText(txtReceipt)).isEmpty())
        return;
    txtReceipt->setText(txtButtonTitle->text());
    txtKitchen->setText(txtButtonTitle->text());
    chkVisible->setChecked(true);
    chkTaxable->setChecked(true);
    chkKitPrinter->setChecked(true);
    chkBarPrinter->setChecked(false);
}

void FItemButtonFood::PizzaGotFocus()
{
    const bool pizza = chkPizza->isChecked();
    if (pizza) {
        cboModifier->setText("Pizza");
        const QString size = txtPizzaSize->text().trimmed(); // the field as stored has its blanks
        if (size.isEmpty() || size == QLatin1String("0"))
            txtPizzaSize->setText(QStringLiteral("16"));
    } else {
        cboModifier->setText("Mod1");
        txtPizzaSize->clear();
    }
    txtPizzaSize->setEnabled(pizza);
    cboModifier->setEnabled(!pizza);
}

void FItemButtonFood::ViewModifierList()
{
    const QByteArray modifier = cboModifier->text();
    ButtonViewCompanion *view = buttonView();
    if (modifier == "Pizza" || !view)
        return;
    view->showModifierList(Site().DataRoot + "ini\\" + modifier + ".dat");
}

void FItemButtonFood::EditDepartments()
{
    Shared().ScreenMode = "FMI";
    auto *departments = Screens().touch<QlonUpDept>(QStringLiteral("QlonUpDept"));
    // The departments editor leaves the file as the operator wrote it: the picker reads it again.
    connect(departments, &QObject::destroyed, this, [this] { RunHandler([this] { fillDepartments(); }); });
    departments->show();
}

} // namespace qlon
