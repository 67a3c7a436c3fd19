#include "ui/SiteChooser.h"

#include "platform/PathMap.h"
#include "platform/SiteSettings.h"
#include "ui/Controls.h"
#include "ui/Dialogs.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace qlon {

namespace {

const QString siteFile = QStringLiteral("Quillon\\QlonINI.dat");

// Why the folder holds no site; empty when it holds one.
QString misfitOf(const QString &folder)
{
    if (folder.trimmed().isEmpty())
        return QStringLiteral("Type the site's folder, or choose it with Browse.");
    if (!QFileInfo(folder).isDir())
        return QStringLiteral("%1 isn't there.").arg(folder);
    if (SiteDriveOf(folder).isEmpty())
        return QStringLiteral("%1 holds no %2.").arg(folder, siteFile);
    return {};
}

} // namespace

SiteDialog::SiteDialog(QWidget *parent, const QString &rememberedFolder, DemoSiteWriter writeDemo)
    : QDialog(parent)
    , m_writeDemo(std::move(writeDemo))
{
    setWindowTitle(QStringLiteral("Items Sold — Site"));
    lblAbout = MakeLabel(this, QStringLiteral("lblAbout"));
    lblAbout->setText(QStringLiteral("Items Sold reports on a site: the folder the stations share, which holds %1 (the stations' "
                                     "drive C:). Choose that folder, or the Quillon folder itself. The program remembers it.")
                          .arg(siteFile));
    lblAbout->setWordWrap(true);
    lblRemembered = MakeLabel(this, QStringLiteral("lblRemembered"));
    lblRemembered->setWordWrap(true);
    const bool gone = !rememberedFolder.isEmpty() && !QFileInfo(rememberedFolder).isDir();
    lblRemembered->setText(
        gone ? QStringLiteral("The site used last time, %1, isn't there: is the share mounted?").arg(rememberedFolder) : QString());
    lblRemembered->setVisible(gone);
    txtFolder = new QLineEdit(rememberedFolder, this);
    txtFolder->setObjectName(QStringLiteral("txtFolder"));
    txtFolder->setAccessibleName(QStringLiteral("Site folder"));
    cmdBrowse = MakeButton(this, QStringLiteral("cmdBrowse"), QStringLiteral("&Browse…"));
    lblCheck = MakeLabel(this, QStringLiteral("lblCheck"));
    lblCheck->setWordWrap(true);
    cmdDemo = MakeButton(this, QStringLiteral("cmdDemo"), QStringLiteral("Open a &Demo Site"),
        QStringLiteral("Writes a made-up site with a few weeks of sales, to try the program on"));
    cmdOK = MakeButton(this, QStringLiteral("cmdOK"), QStringLiteral("OK"));
    cmdOK->setDefault(true);
    cmdCancel = MakeButton(this, QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));

    auto *folderRow = new QHBoxLayout;
    folderRow->addWidget(txtFolder, 1);
    folderRow->addWidget(cmdBrowse);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdDemo);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    for (QWidget *line : {static_cast<QWidget *>(lblAbout), static_cast<QWidget *>(lblRemembered)})
        layout->addWidget(line);
    layout->addLayout(folderRow);
    layout->addWidget(lblCheck);
    layout->addLayout(buttons);
    resize(520, sizeHint().height());

    connect(txtFolder, &QLineEdit::textChanged, this, [this] { checkFolder(); });
    connect(cmdBrowse, &QPushButton::clicked, this, [this] {
        const QString folder = Dialogs::askFolder(this, QStringLiteral("The site's folder"));
        if (!folder.isEmpty())
            txtFolder->setText(QDir::toNativeSeparators(folder));
    });
    connect(cmdDemo, &QPushButton::clicked, this, [this] { writeDemoSite(); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    cmdDemo->setVisible(bool(m_writeDemo));
    checkFolder();
}

QString SiteDialog::chosenDrive() const
{
    return misfitOf(txtFolder->text()).isEmpty() ? SiteDriveOf(txtFolder->text()) : QString();
}

void SiteDialog::checkFolder()
{
    const QString misfit = misfitOf(txtFolder->text());
    lblCheck->setText(misfit.isEmpty() ? QStringLiteral("This folder holds a site.") : misfit);
    cmdOK->setEnabled(misfit.isEmpty());
}

void SiteDialog::writeDemoSite()
{
    const QString folder = m_writeDemo();
    if (folder.isEmpty()) {
        lblCheck->setText(QStringLiteral("The demonstration site couldn't be written."));
        return;
    }
    txtFolder->setText(folder);
    if (cmdOK->isEnabled())
        accept();
}

QString RememberedSiteFolder(const SiteSettings &settings)
{
    for (const QString &mapping : settings.drives()) {
        if (mapping.startsWith(QLatin1String("C="), Qt::CaseInsensitive))
            return mapping.mid(2);
    }
    return {};
}

bool AskForSite(QWidget *parent, const SiteSettings &settings, const DemoSiteWriter &writeDemo)
{
    SiteDialog dialog(parent, RememberedSiteFolder(settings), writeDemo);
    if (dialog.exec() != QDialog::Accepted || dialog.chosenDrive().isEmpty())
        return false;
    SitePaths().mapDrive(dialog.chosenDrive());
    settings.saveDrive(dialog.chosenDrive());
    return true;
}

} // namespace qlon
