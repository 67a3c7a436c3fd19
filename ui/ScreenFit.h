#pragma once

#include <QSize>

class QWidget;

namespace qlon {

// A screen larger than the display it opens on (a 1024 x 768 display at 125%, say) is shown in a
// scrolled area, so that every control stays within reach; one that fits is left as it is.
// True when the screen was put in a scrolled area.
bool FitOnDisplay(QWidget *screen, const QSize &available);

} // namespace qlon
