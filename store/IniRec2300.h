#pragma once

#include "core/FixedField.h"

#include <QByteArray>

#include <array>

namespace qlon {

// The site's configuration record of QlonINI.dat: 2300 bytes in 187 fixed text fields,
// numbered from 0. The point-of-sale program owns it; this program only reads it.
class IniRec2300
{
public:
    static constexpr int size = 2300;
    static constexpr int fieldCount = 187;

    enum Field {
        SiteName = 0,
        SiteRootField = 5,
        ReportPrinter = 7,
        ReportFontSize = 22,
        StatusPrinter28 = 28,
        StatusPrinter34 = 34,
        EmployeeRootField = 39,
        LiquorRebuild = 46,
        DataRootField = 48,
        SecondRootField = 50,
        StatusPrinter72 = 72,
        FirstRouteName = 129,
        LastRouteName = 134,
    };

    static FieldSpan span(int field);

    IniRec2300();
    explicit IniRec2300(QByteArray bytes);

    // The field's bytes, blanks included.
    QByteArray field(int field) const;
    QByteArray trimmedField(int field) const;
    void setField(int field, QByteArrayView text);

    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

} // namespace qlon
