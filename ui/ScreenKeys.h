#pragma once

class QWidget;

namespace qlon {

// The keys every screen answers, as a desktop program's do: Escape presses its Close, Cancel or
// Done (not a Done that would end the program), Ctrl+P its Print, Ctrl+Q closes every window, F1
// shows the manual.
void AddStandardKeys(QWidget *screen);

// Every text box, picker, calendar and list of the screen that has no accessible name takes the
// text of its label: the label whose buddy it is, else the label before it in its layout's row, else
// the one above it; without any, its tip, or what it is on which screen ("Phone List list").
void NameControlsFromLabels(QWidget *screen);

// A button that ends the program when pressed: Escape leaves it alone.
void MarkAsProgramsEnd(QWidget *button);

} // namespace qlon
