#pragma once

namespace qlon::web {

// `qlon serve` (the reports in a browser) and `qlon user add|remove NAME` (who may sign in);
// neither needs a display. The status to end with, or -1 when the command line is neither.
int RunWebCommand(int argc, char *argv[]);

} // namespace qlon::web
