#pragma once

class QWidget;

namespace qlon {

// Shows the program's manual, the README it is shipped with, in a window of its own; where the
// README isn't to be found, says where it is installed.
void ShowManual(QWidget *parent);

} // namespace qlon
