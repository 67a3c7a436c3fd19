#include "editors/BackOffice.h"

#include "core/Ansi.h"
#include "core/HostPath.h"
#include "editors/ButtonView.h"
#include "editors/ListEditor.h"
#include "editors/PhoneList.h"
#include "editors/PrinterListView.h"
#include "editors/PrinterQueueView.h"
#include "editors/RecipeView.h"
#include "platform/PathMap.h"
#include "platform/SiteSettings.h"
#include "store/SiteConfig.h"
#include "ui/Controls.h"
#include "ui/Dialogs.h"
#include "ui/Program.h"
#include "ui/SiteChooser.h"

#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QVBoxLayout>

namespace qlon {

BackOffice::BackOffice(QWidget *parent)
    : QWidget(parent)
{
    // Not "Back Office": the analysis' own message names the stations' back office, which this isn't.
    setWindowTitle(QStringLiteral("Items Sold — Reports"));
    setMinimumWidth(320);
    HostScreensInBackOffice();
    lblSite = MakeLabel(this, QStringLiteral("lblSite"));
    cmdListBuilder = MakeButton(this, QStringLiteral("cmdListBuilder"), QStringLiteral("&List Builder"),
        QStringLiteral("The items sold by department, and the server sales"));
    cmdItemsSold = MakeButton(this, QStringLiteral("cmdItemsSold"), QStringLiteral("Items &Sold"),
        QStringLiteral("What sold, from the monthly sales files, with inventory"));
    cmdItemButtons = MakeButton(this, QStringLiteral("cmdItemButtons"), QStringLiteral("Item &Buttons"),
        QStringLiteral("The buttons of the catalogue files, their editor and their recipes"));
    cmdEmployees = MakeButton(this, QStringLiteral("cmdEmployees"), QStringLiteral("&Employees"));
    cmdPrinters = MakeButton(this, QStringLiteral("cmdPrinters"), QStringLiteral("&Printers"));
    cmdChangeSite = MakeButton(this, QStringLiteral("cmdChangeSite"), QStringLiteral("Change Si&te…"),
        QStringLiteral("Another site's folder; the program starts again on it"));
    cmdClose = MakeButton(this, QStringLiteral("cmdClose"), QStringLiteral("&Close"));
    auto *layout = new QVBoxLayout(this);
    lblSite->setWordWrap(true);
    layout->addWidget(lblSite);
    for (QPushButton *command : {cmdListBuilder, cmdItemsSold, cmdItemButtons, cmdEmployees, cmdPrinters, cmdChangeSite, cmdClose}) {
        command->setMinimumHeight(40);
        layout->addWidget(command);
    }
    layout->addStretch();
    const std::pair<QPushButton *, const char *> opens[] = {{cmdListBuilder, "QLONlistBuilder1"}, {cmdItemsSold, "QlonItemsSold"},
        {cmdItemButtons, "ButtonView"}, {cmdEmployees, "TCEmployee"}, {cmdPrinters, "PrinterStatus"}};
    for (const auto &[command, screen] : opens)
        OnEvent(command, &QPushButton::clicked, this, [name = QString::fromLatin1(screen)] { ShowScreenInFront(name); });
    OnEvent(cmdChangeSite, &QPushButton::clicked, this, [this] { changeSite(); });
    OnEvent(cmdClose, &QPushButton::clicked, this, [this] { close(); });
}

void BackOffice::Form_Load()
{
    EnsureDataRoot();
    lblSite->setText(QStringLiteral("Site: ") + QDir::toNativeSeparators(HostPath(Site().DataRoot)));
    // The list builder's screen has its own window unless the program was started here.
    const QWidget *main = Screens().existing(QStringLiteral("QLONlistBuilder1"));
    cmdListBuilder->setVisible(!main || !main->isVisible());
}

// The chosen site is remembered, and the program starts again on it: every screen reads its site
// as it loads.
void BackOffice::changeSite()
{
    if (Dialogs::scripted()) {
        Dialogs::noteForScript(QStringLiteral("Change Site asks a person; a script names its site with --drive."));
        return;
    }
    const SiteSettings settings;
    SiteDialog dialog(this, SitePaths().folderOf(QLatin1Char('C')), {});
    if (dialog.exec() != QDialog::Accepted || dialog.chosenDrive().isEmpty())
        return;
    settings.saveDrive(dialog.chosenDrive());
    QProcess::startDetached(QCoreApplication::applicationFilePath(), {QStringLiteral("--open"), QStringLiteral("BackOffice")});
    EndProgram(0);
}

void RegisterBackOfficeScreens()
{
    Screens().add(QStringLiteral("BackOffice"), [] { return new BackOffice; });
    Screens().add(QStringLiteral("ButtonView"), [] { return new ButtonView; });
    Screens().add(QStringLiteral("RecipeView"), [] { return new RecipeView; });
    Screens().add(QStringLiteral("ListEditor"), [] { return new ListEditor; });
    Screens().add(QStringLiteral("PhoneList"), [] { return new PhoneList; });
    // The companions of the printer status screen that can be real here; the others belong to
    // the stations' back office.
    Screens().add(PrinterQueueCompanion, [] { return new PrinterQueueView(QStringLiteral("Print Queue")); });
    Screens().add(PrinterDetailsCompanion, [] { return new PrinterQueueView(QStringLiteral("Printer Details")); });
    Screens().add(PrinterListCompanion, [] { return new PrinterListView; });
}

} // namespace qlon
