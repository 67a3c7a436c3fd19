#pragma once

namespace qlon {

// One turn of the event loop: paints the screen and serves pending events, clicks on other
// buttons included, then returns. Long runs call it at fixed points; it is how "Stop" is heard.
void Yield();

} // namespace qlon
