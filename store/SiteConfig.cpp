#include "store/SiteConfig.h"

#include "core/Ansi.h"
#include "core/FileTable.h"
#include "core/HostPath.h"

#include <QDir>
#include <QFileInfo>

namespace qlon {

SiteGlobals &Site()
{
    static SiteGlobals globals;
    return globals;
}

namespace {

// Trims the field, stores the trimmed text back into the record, and gives it.
QByteArray takeTrimmed(IniRec2300 &record, int field)
{
    QByteArray trimmed = record.trimmedField(field);
    record.setField(field, trimmed);
    return trimmed;
}

} // namespace

void ReadConfiguration()
{
    SiteGlobals &site = Site();
    site.SiteRoot = DefaultSiteRoot;
    site.IniPath = site.SiteRoot + "QlonINI.dat";
    const QString hostPath = HostPath(site.IniPath);
    if (!QFileInfo(hostPath).isFile())
        return;

    CloseAll();
    RecordFile &file = Files().OpenRandom(ConfigFileNumber, hostPath, IniRec2300::size);
    file.LockAll();
    site.Config = IniRec2300(file.GetRecord(1));

    // A blank folder counts as missing: the site root keeps its default.
    const QByteArray siteRoot = UpperAnsi(takeTrimmed(site.Config, IniRec2300::SiteRootField));
    if (!siteRoot.isEmpty())
        site.SiteRoot = siteRoot;
    site.DataRoot = UpperAnsi(takeTrimmed(site.Config, IniRec2300::DataRootField));
    site.EmployeeRoot = takeTrimmed(site.Config, IniRec2300::EmployeeRootField);
    site.SecondRoot = takeTrimmed(site.Config, IniRec2300::SecondRootField);
}

void EnsureDataRoot()
{
    if (Site().DataRoot.isEmpty())
        Site().DataRoot = DefaultDataRoot;
}

QByteArray DataPath(QByteArrayView relativePath)
{
    EnsureDataRoot();
    return Site().DataRoot + relativePath.toByteArray();
}

QString NameOfSite()
{
    const QByteArray configured = Site().Config.trimmedField(IniRec2300::SiteName);
    if (!configured.isEmpty())
        return FromAnsi(configured);
    return QFileInfo(QDir::cleanPath(HostPath(DefaultSiteRoot) + QStringLiteral("/.."))).fileName();
}

} // namespace qlon
