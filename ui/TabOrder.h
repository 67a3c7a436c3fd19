#pragma once

class QWidget;

namespace qlon {

// Sets the order in which Tab moves through a screen's controls to the order of its layout:
// a grid row by row, each row from left to right, a box from its first item to its last, and a
// framed group's controls where the group stands.
void SetTabOrderByLayout(QWidget *screen);

} // namespace qlon
