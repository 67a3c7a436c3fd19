#pragma once

#include "editors/ItemCompanions.h"
#include "store/IvmRec1000.h"

#include <QWidget>

#include <optional>

class QLabel;
class QPushButton;
class QTableWidget;

namespace qlon {

// "Recipe": the 20 rows of the recipe of the item that the button view shows, from the recipe
// file beside the item file. "Save" writes the rows back; a row nobody changed keeps its bytes.
class RecipeView : public QWidget, public RecipeViewCompanion
{
    Q_OBJECT

public:
    explicit RecipeView(QWidget *parent = nullptr);

    void Get_InvData() override;
    void GetINVinfo() override;
    void Save_INVdata() override;

    QLabel *Label1; // the item file
    QLabel *Label3; // the record
    QTableWidget *grdRecipe;
    QPushButton *cmdSave;
    QPushButton *cmdClose;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QByteArray recipePath() const;
    // The recipe with the grid's rows, a row nobody changed keeping its bytes.
    IvmRec1000 editedRecipe() const;

    std::optional<IvmRec1000> m_recipe; // as read; none when the item has no recipe
};

} // namespace qlon
