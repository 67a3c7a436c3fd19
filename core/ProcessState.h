#pragma once

namespace qlon {

// The process-wide state of the primitives back as at start: the system clock, no file open.
// The layers above reset their own state through ResetSiteState and ResetProgramState, each
// calling the one below, so that a test starts from the state a fresh program has.
void ResetCoreState();

} // namespace qlon
