#pragma once

#include <QByteArrayList>
#include <QDate>

namespace qlon {

// The report options of the Items Sold screen, read once when a scan starts: "Food", "Bar",
// "Both", "Retail" and "All".
struct ReportOptions
{
    bool food = false;
    bool bar = false;
    bool both = false;
    bool retail = false;
    bool all = false;
};

// What a scan tells its screen as it goes, and asks it.
class ScanProgress
{
public:
    virtual ~ScanProgress() = default;
    virtual void setMaximum(int maximum) = 0;
    virtual void setValue(int value) = 0;
    // Gives the event loop a turn and tells whether the user asked to stop.
    virtual bool stopRequested() = 0;
    // A month's sales file is about to be read.
    virtual void monthStarted(QDate month) { Q_UNUSED(month); }
};

// The catalogue rows of a report: one row for each sellable name of the catalogue files below
// the site root, "name|Price|class|Department" with the fields at their full widths as stored
// and the class "F" (food buttons and modifiers), "L" (drinks) or "R" (retail). The passes run
// in the order Button, Modifier, Drink, Retail, as the options choose them; a name on several
// buttons gives several rows. A stop leaves the rows gathered so far.
struct CatalogueRows
{
    QByteArrayList rows;
    bool stopped = false;
};
CatalogueRows ReadCatalogue(const ReportOptions &options, ScanProgress &progress);

// Removes each row that equals, in all four fields, the row before it in the sorted list: the
// same result as passes from the top that each remove the second of the first equal pair.
void RemoveDuplicates(QByteArrayList &sortedRows);

// The rows as the screen holds them for a scan: sorted on their first field ("0a ") and freed of
// duplicates.
QByteArrayList SortedCatalogue(const QByteArrayList &rows);

} // namespace qlon
