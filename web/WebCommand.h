#pragma once

#include <QString>

namespace qlon::web {

// `qlon serve` (the reports in a browser) and `qlon user add|remove NAME` (who may sign in), `word`
// being the command's word; neither needs a display. The status to end with.
int RunWebCommand(const QString &word, int argc, char *argv[]);

} // namespace qlon::web
