#pragma once

#include <QString>

class QWidget;

namespace qlon {

// Keeps the screen's size and place in `settingsFile` under its name as it is hidden, and gives it
// them back now, as a desktop program's windows come back where they were left.
void RememberWindowPlace(QWidget *screen, const QString &settingsFile);

} // namespace qlon
