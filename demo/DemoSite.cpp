#include "demo/DemoSite.h"

#include "core/Format.h"
#include "core/RecordFile.h"
#include "core/TextFile.h"
#include "demo/DemoCatalogue.h"
#include "demo/DemoSales.h"
#include "store/Departments.h"
#include "store/ReportTemplate.h"
#include "store/IniRec2300.h"

#include <QDir>

namespace qlon {

namespace {

IniRec2300 demoConfiguration()
{
    IniRec2300 record;
    record.setField(IniRec2300::SiteName, "Harbour Lights Grill & Bar");
    record.setField(1, "1200 Water Street");
    record.setField(2, "Portsmouth, NH 03801");
    record.setField(3, "(603) 555-0142");
    record.setField(IniRec2300::SiteRootField, "c:\\quillon\\");
    record.setField(IniRec2300::ReportPrinter, "Office Laser");
    record.setField(IniRec2300::ReportFontSize, "10");
    record.setField(IniRec2300::StatusPrinter28, "Kitchen Epson");
    record.setField(IniRec2300::StatusPrinter34, "Bar Epson");
    record.setField(IniRec2300::EmployeeRootField, "C:\\Quillon\\");
    record.setField(IniRec2300::LiquorRebuild, "-1");
    record.setField(IniRec2300::DataRootField, "c:\\Quillon\\");
    record.setField(IniRec2300::SecondRootField, "C:\\Quillon\\");
    record.setField(IniRec2300::StatusPrinter72, "Receipt Star");
    const char *routes[] = {"Grill", "Fryer", "Salad", "Pizza", "Expo", "Dessert"};
    for (int field = IniRec2300::FirstRouteName; field <= IniRec2300::LastRouteName; ++field)
        record.setField(field, routes[field - IniRec2300::FirstRouteName]);
    return record;
}

QByteArrayList demoDepartments()
{
    return {"Food", "Beverage", "Liquor", "Beer", "Wine", "Catering", "Retail", "Gift Card"};
}

void writeStartDates(const QString &path, QDate today)
{
    TextFile file(path, TextFile::Mode::Output);
    file.WriteFields({Format(today.addDays(-7), "mm/dd/yyyy"), Format(today.addDays(-1), "mm/dd/yyyy")});
}

} // namespace

void WriteDemoSite(const QString &driveFolder, QDate today)
{
    const QDir site(QDir(driveFolder).filePath(QStringLiteral("Quillon")));
    site.mkpath(QStringLiteral("data"));
    site.mkpath(QStringLiteral("Temp"));

    QFile::remove(site.filePath(QStringLiteral("QlonINI.dat")));
    RecordFile(site.filePath(QStringLiteral("QlonINI.dat")), IniRec2300::size).PutRecord(1, demoConfiguration().bytes());
    writeStartDates(site.filePath(QStringLiteral("data/ListbuilderINI.dat")), today);
    WriteDepartmentNames(site.filePath(QStringLiteral("data/Departments.dat")), demoDepartments());
    WriteDemoCatalogue(site.path());
    WriteDemoSales(site.path(), today);
    WriteItemsSoldTemplate(site.filePath(QStringLiteral("ItemsSold.vrd")));
}

} // namespace qlon
