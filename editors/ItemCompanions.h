#pragma once

#include <QByteArray>

namespace qlon {

// The views that the item editor's host sets beside it, found by the names "ButtonView" and
// "RecipeView" among the program's screens. The editor calls them late, only when they are shown.

// The view of a catalogue file's buttons, which holds the file being edited.
class ButtonViewCompanion
{
public:
    virtual ~ButtonViewCompanion() = default;
    // Label1: the site path of the item file.
    virtual QByteArray currentPath() const = 0;
    virtual void Fill_data() = 0; // lists the file's records again
    virtual void Set_data() = 0; // shows the edited record's new title
    virtual void SSCommand1_Click() = 0; // refreshes the view's buttons
    // "View": the modifier list's buttons, without the view's commands and panel.
    virtual void showModifierList(const QByteArray &path) = 0;
};

// The view of the edited item's recipe, beside the button view.
class RecipeViewCompanion
{
public:
    virtual ~RecipeViewCompanion() = default;
    virtual void Get_InvData() = 0; // reads the recipe of the item in Label1 and Label3
    virtual void GetINVinfo() = 0; // shows it
    virtual void Save_INVdata() = 0; // writes the rows back
};

} // namespace qlon
