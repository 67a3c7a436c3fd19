#pragma once

#include <QString>

namespace qlon {

// The hidden worker screen, as the main screen uses it during Calculate Sales: before each row
// the main screen writes the worker's Label1 (the row's tag) and Label2 (its status), then asks
// it to count the row's sales.
class SalesWorker
{
public:
    virtual ~SalesWorker() = default;

    // A run starts: sales read for an earlier run no longer count.
    virtual void BeginRun() = 0;
    // The worker's Label1 (the item looked for) and Label2 (its status).
    virtual void WriteLabels(const QString &item, const QString &status) = 0;
    virtual void Get_Sales() = 0;
    // The run has ended, finished or stopped.
    virtual void EndRun() = 0;
};

} // namespace qlon
