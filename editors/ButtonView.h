#pragma once

#include "editors/ItemCompanions.h"
#include "ui/ScreenRegistry.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace qlon {

// "Item Buttons": the catalogue files of the site and the records of the one picked, by number
// and title. "Edit" hands the record to the item editor, "Recipe" shows its recipe. Label1
// holds the file, Label3 the record number, as the editor and the recipe view read them.
class ButtonView : public QWidget, public LoadedScreen, public ButtonViewCompanion
{
    Q_OBJECT

public:
    explicit ButtonView(QWidget *parent = nullptr);

    void Form_Load() override;

    QByteArray currentPath() const override;
    void Fill_data() override;
    void Set_data() override;
    void SSCommand1_Click() override;
    void showModifierList(const QByteArray &path) override;

    // The record picked in the list; 0 without one.
    qint32 pickedRecord() const;

    QComboBox *cboFile;
    QListWidget *lstRecords;
    QLabel *Label1; // the file
    QLabel *Label2; // its count of records
    QLabel *Label3; // the record
    QWidget *picCommands;
    QPushButton *cmdEdit;
    QPushButton *cmdRecipe;
    QPushButton *SSCommand1; // "Refresh"
    QPushButton *cmdClose;

private:
    void pickFile();
    void editRecord();
    void showRecipe();
    static bool isModifierFile(const QByteArray &path);
};

} // namespace qlon
