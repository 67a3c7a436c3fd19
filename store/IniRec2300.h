#pragma once

#include "core/FixedRecord.h"

namespace qlon {

inline constexpr auto IniLayout = LayoutOfRuns<187>(std::array<FieldRun, 49>{{
    {3, 40}, {1, 20}, {1, 50}, {1, 40}, {1, 10}, {1, 20}, {1, 200}, // 0-8
    {12, 1}, {1, 28}, {1, 5}, {4, 20}, {1, 1}, {1, 20}, // 9-28
    {3, 2}, {1, 288}, {1, 5}, {1, 20}, {1, 2}, {3, 5}, {1, 40}, // 29-39
    {1, 5}, {1, 1}, {6, 5}, {1, 40}, {1, 20}, {2, 40}, {2, 10}, // 40-53
    {18, 5}, {1, 20}, {1, 2}, {27, 5}, {1, 20}, {2, 5}, {1, 20}, // 54-104
    {24, 5}, {6, 20}, {24, 5}, {1, 10}, {4, 5}, {1, 10}, {1, 50}, // 105-165
    {15, 5}, {2, 10}, {3, 5}, {1, 265}, // 166-186
}});

// The site's configuration record of QlonINI.dat: 2300 bytes in 187 fixed text fields,
// numbered from 0. The point-of-sale program owns it; this program only reads it.
class IniRec2300 : public FixedRecord<2300, IniLayout>
{
public:
    using FixedRecord::FixedRecord;

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
};

} // namespace qlon
