#pragma once

namespace qlon {

// Makes every screen of the program known by its name.
void RegisterScreens();

} // namespace qlon
