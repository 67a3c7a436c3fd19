#pragma once

#include <QString>

namespace qlon::web {

// `qlon serve` (the reports in a browser) and `qlon user add|remove NAME` (who may sign in), run by
// `qlon-serve` in `qlon`'s place; neither needs a display. The status to end with.
int RunWebCommand(int argc, char *argv[]);

} // namespace qlon::web
