#include "store/StartDates.h"

#include "core/TextFile.h"

namespace qlon {

StartDates ReadStartDates(const QString &hostPath)
{
    TextFile file(hostPath, TextFile::Mode::Input);
    StartDates dates;
    if (!file.AtEnd())
        dates.from = file.ReadField();
    if (!file.AtEnd())
        dates.to = file.ReadField();
    return dates;
}

} // namespace qlon
