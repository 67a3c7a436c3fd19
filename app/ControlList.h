#pragma once

#include <QTextStream>

namespace qlon {

// Prints the screen and every named control on it, one a line: its name, kind, caption and the
// script commands it takes, separated by tabs. The screen is made but not loaded, so no site is
// needed. The status to end with: 2 for a screen the program doesn't have.
int ListControls(const QString &screenName, QTextStream &out, QTextStream &err);

} // namespace qlon
