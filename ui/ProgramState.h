#pragma once

class QTextStream;

namespace qlon {

// Every global the program keeps back as at start: no screen loaded, no scripted answer waiting,
// and the site's state with it. Message boxes are answered from a script and written to
// `messages` when it is given, shown to the user when not.
void ResetProgramState(QTextStream *messages);

} // namespace qlon
