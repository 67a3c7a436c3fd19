#pragma once

namespace qlon {

// The site's folders, its configuration record and the values screens share back as at start,
// and the primitives' state with them.
void ResetSiteState();

} // namespace qlon
