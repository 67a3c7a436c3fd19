#include "demo/DemoSite.h"

#include "core/Format.h"
#include "core/RecordFile.h"
#include "core/TextFile.h"
#include "demo/DemoCatalogue.h"
#include "demo/DemoSales.h"
#include "store/Departments.h"
#include "store/EmployeeRec1000.h"
#include "store/IniRec2300.h"
#include "store/ReportTemplate.h"

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

// The staff: the servers who ring up the demonstration sales (1002 to 1010), with a cook
// who takes no tables, an empty slot and a server who has left but still takes transfers.
void writeEmployees(const QString &path)
{
    const struct
    {
        const char *number;
        const char *name;
        const char *job;
        bool takesTables;
    } staff[] = {
        {"1002", "Maria Santos", "Server", true},
        {"1003", "Dave O'Brien", "Bartender", true},
        {"1004", "Lena Fischer", "Server", true},
        {"1005", "Tom Nguyen", "Server", true},
        {"1006", "Ana Lopez", "Server", true},
        {"1007", "Sam Carter", "Bartender", true},
        {"1008", "Priya Shah", "Server", true},
        {"1009", "Joe Kowalski", "Server", true},
        {"1010", "Kim Lee", "Server", true},
        {"1020", "Rob Hale", "Cook", false},
        {"", "", "", false},
        {"1031", "Jay Moss", "Server", true},
    };
    QFile::remove(path);
    RecordFile file(path, EmployeeRec1000::size);
    qint64 number = 0;
    for (const auto &person : staff) {
        EmployeeRec1000 record;
        record.setField(EmployeeRec1000::EmployeeNumber, person.number);
        record.setField(EmployeeRec1000::EmployeeName, person.name);
        record.setField(EmployeeRec1000::JobTitle1, person.job);
        record.setField(EmployeeRec1000::AcceptsTransfers, person.takesTables ? "-1" : "0");
        record.setField(EmployeeRec1000::InactiveFlag, qstrcmp(person.number, "1031") == 0 ? "-1" : "0");
        file.PutRecord(++number, record.bytes());
    }
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
    writeEmployees(site.filePath(QStringLiteral("data/Zemployee.dat")));
    WriteDemoCatalogue(site.path());
    WriteDemoSales(site.path(), today);
    WriteItemsSoldTemplate(site.filePath(QStringLiteral("ItemsSold.vrd")));
}

} // namespace qlon
