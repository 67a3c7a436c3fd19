#include "editors/RecipeView.h"

#include "core/Ansi.h"
#include "core/HostPath.h"
#include "core/RecordFile.h"
#include "editors/ButtonView.h"
#include "store/ItemRec500.h"
#include "ui/Controls.h"
#include "ui/Program.h"
#include "ui/ScreenRegistry.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

namespace qlon {

namespace {

std::array<QByteArray, 3> cellsOf(const RecipeRow &row)
{
    return {row.IngredientName, row.IngredientAmount, row.IngredientUnit};
}

} // namespace

RecipeView::RecipeView(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Recipe"));
    Label1 = MakeLabel(this, QStringLiteral("Label1"));
    Label3 = MakeLabel(this, QStringLiteral("Label3"));
    grdRecipe = Named(new QTableWidget(IvmRec1000::rowCount, 3, this), QStringLiteral("grdRecipe"));
    grdRecipe->setHorizontalHeaderLabels({QStringLiteral("Ingredient"), QStringLiteral("Amount"), QStringLiteral("Unit")});
    grdRecipe->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    cmdSave = MakeButton(this, QStringLiteral("cmdSave"), QStringLiteral("Save"));
    cmdClose = MakeButton(this, QStringLiteral("cmdClose"), QStringLiteral("Close"));
    auto *layout = new QGridLayout(this);
    layout->addWidget(Label1, 0, 0);
    layout->addWidget(Label3, 0, 1);
    layout->addWidget(grdRecipe, 1, 0, 1, 2);
    layout->addWidget(cmdSave, 2, 0);
    layout->addWidget(cmdClose, 2, 1);
    resize(460, 600);
    OnEvent(cmdSave, &QPushButton::clicked, this, [this] { Save_INVdata(); });
    OnEvent(cmdClose, &QPushButton::clicked, this, [this] { close(); });
}

QByteArray RecipeView::recipePath() const
{
    return SisterPath(ToAnsi(Label1->text()));
}

// The item the button view has picked, and its recipe when the recipe file holds one.
void RecipeView::Get_InvData()
{
    if (const auto *view = qobject_cast<ButtonView *>(Screens().existing(QStringLiteral("ButtonView")))) {
        Label1->setText(view->Label1->text());
        Label3->setText(view->Label3->text());
    }
    m_recipe.reset();
    const QString path = HostPath(recipePath());
    const qint32 number = Label3->text().toInt();
    if (!FileExists(path))
        return;
    RecordFile file(path, IvmRec1000::size);
    file.RefuseIfHeldElsewhere();
    if (number >= 1 && number <= file.CountRecords())
        m_recipe = IvmRec1000(file.GetRecord(number));
}

void RecipeView::GetINVinfo()
{
    for (int row = 0; row < IvmRec1000::rowCount; ++row) {
        const std::array<QByteArray, 3> cells = m_recipe ? cellsOf(m_recipe->row(row + 1)) : std::array<QByteArray, 3>{};
        for (int column = 0; column < 3; ++column)
            grdRecipe->setItem(row, column, new QTableWidgetItem(FromAnsi(cells[column])));
    }
    grdRecipe->setEnabled(m_recipe.has_value());
}

IvmRec1000 RecipeView::editedRecipe() const
{
    IvmRec1000 edited = *m_recipe;
    for (int row = 0; row < IvmRec1000::rowCount; ++row) {
        std::array<QByteArray, 3> cells;
        for (int column = 0; column < 3; ++column)
            cells[column] = ToAnsi(grdRecipe->item(row, column) ? grdRecipe->item(row, column)->text() : QString());
        if (cells != cellsOf(m_recipe->row(row + 1)))
            edited.setRow(row + 1, {cells[0], cells[1], cells[2]});
    }
    return edited;
}

void RecipeView::Save_INVdata()
{
    if (!m_recipe)
        return;
    const IvmRec1000 edited = editedRecipe();
    if (edited == *m_recipe)
        return;
    RecordFile file(HostPath(recipePath()), IvmRec1000::size);
    file.RefuseIfHeldElsewhere();
    file.PutRecord(Label3->text().toInt(), edited.bytes());
    m_recipe = edited;
}

void RecipeView::closeEvent(QCloseEvent *event)
{
    if (!MayCloseWithEdits(this, m_recipe && editedRecipe() != *m_recipe, [this] { Save_INVdata(); }))
        event->ignore();
}

} // namespace qlon
