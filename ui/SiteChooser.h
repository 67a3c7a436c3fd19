#pragma once

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace qlon {

class SiteSettings;

// Writes a demonstration site and returns the folder that holds it; empty when it couldn't.
using DemoSiteWriter = std::function<QString()>;

// "Items Sold — Site": what the site folder is, the folder typed or chosen with Browse, checked for
// Quillon\QlonINI.dat with the reason shown when it isn't a site, and a demonstration site written
// on request. OK takes a folder that holds a site.
class SiteDialog : public QDialog
{
    Q_OBJECT

public:
    SiteDialog(QWidget *parent, const QString &rememberedFolder, DemoSiteWriter writeDemo);

    // The mapping of drive C: for the chosen folder, as --drive takes it; empty while none holds a site.
    QString chosenDrive() const;

    QLabel *lblAbout;
    QLabel *lblRemembered; // the remembered site that isn't there any more
    QLineEdit *txtFolder;
    QPushButton *cmdBrowse;
    QLabel *lblCheck; // why the folder isn't a site, or which site it is
    QPushButton *cmdDemo;
    QPushButton *cmdOK;
    QPushButton *cmdCancel;

private:
    void checkFolder();
    void writeDemoSite();

    DemoSiteWriter m_writeDemo;
};

// Asks for the site until one is chosen or the question is cancelled; the chosen site is mapped
// for this run and saved for the next. True when there is one.
bool AskForSite(QWidget *parent, const SiteSettings &settings, const DemoSiteWriter &writeDemo);

// The folder of drive C: that the settings remember, or an empty text.
QString RememberedSiteFolder(const SiteSettings &settings);

} // namespace qlon
