#pragma once

#include "editors/TCEmployee.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace qlon {

// The editor of a list file of the employee editor's pickers (job titles, job types, payroll
// departments): one quoted name a line, below SiteRoot. "Save" writes the whole file and the
// employee editor's pickers offer the new names.
class ListEditor : public QWidget, public ListEditorCompanion
{
    Q_OBJECT

public:
    explicit ListEditor(QWidget *parent = nullptr);

    void setList(const QString &title, const QByteArray &file) override;
    void Fill_List() override;

    QLabel *SSPanel1; // the list's title
    QLabel *Label1; // its file, as the site names it
    QListWidget *List1;
    QLineEdit *Text1; // the name to add, or the picked one changed
    QPushButton *cmdAdd;
    QPushButton *cmdChange;
    QPushButton *cmdRemove;
    QPushButton *cmdSave;
    QPushButton *cmdClose;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QString hostPath() const;
    QString typedName() const;
    QByteArrayList listedNames() const;
    void addName();
    void changeName();
    void removeName();
    void saveList();

    QByteArrayList m_saved; // the names as the file holds them
};

} // namespace qlon
