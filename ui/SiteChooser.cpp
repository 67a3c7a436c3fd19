#include "ui/SiteChooser.h"

#include "platform/PathMap.h"
#include "platform/SiteSettings.h"
#include "ui/Dialogs.h"

namespace qlon {

bool AskForSite(QWidget *parent, const SiteSettings &settings)
{
    const QString question = QStringLiteral("Where is the site? Pick the folder that holds Quillon (the stations' drive C:), "
                                            "or the Quillon folder itself.");
    for (QString folder = Dialogs::askFolder(parent, question); !folder.isEmpty(); folder = Dialogs::askFolder(parent, question)) {
        const QString drive = SiteDriveOf(folder);
        if (!drive.isEmpty()) {
            SitePaths().mapDrive(drive);
            settings.saveDrive(drive);
            return true;
        }
        Dialogs::showMessage(parent, QStringLiteral("Items Sold"), folder + QStringLiteral(" holds no Quillon\\QlonINI.dat."));
    }
    return false;
}

} // namespace qlon
