#include "core/Yield.h"

#include <QCoreApplication>

namespace qlon {

void Yield()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

} // namespace qlon
