#pragma once

#include "ui/Report.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace qlon {

// The report engine as both Items Sold prints drive it: the template ItemsSold.vrd under the
// site root, its "top" section again on each new page with the words of the old template in
// place of the dates, and the page number in its footer. The margins of "0.05" are whole numbers
// to the engine, so they are 0 in every print.
class ItemsSoldEngine
{
public:
    // Loads the template; the report goes where the program prints (a PDF of that name beside
    // the site's data when no printer is there). Raises the engine's failures.
    explicit ItemsSoldEngine(const QString &pdfName);

    Report &report() { return *m_report; }
    bool loaded() const { return m_loaded; }
    // Where the report went when it went to a PDF.
    const QString &pdfPath() const { return m_pdfPath; }

    // Sets the value of a named cell of a section, when the template has both.
    void fillCell(const char *section, const QString &cell, const QByteArray &value);

private:
    void newPage();
    void printFooter();

    QString m_pdfPath;
    std::unique_ptr<Report> m_report;
    bool m_loaded = false;
};

} // namespace qlon
