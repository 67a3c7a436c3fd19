#pragma once

#include <QString>

namespace qlon {

// Writes the default template of the printed Items Sold report, ItemsSold.vrd: the span on top,
// the items three across, the grand total and the page number. The site owns the file; the
// program only writes one for a site that has none. False when it can't be written.
bool WriteItemsSoldTemplate(const QString &hostPath);
// That template's text.
QString ItemsSoldTemplateText();

// Whether a report prints through the default template when the site has none: `qlon report` does,
// so that a nightly PDF is never missing for want of a file; the screens print nothing then, as
// they always did.
void UseDefaultTemplateWhenMissing(bool use);
bool UsesDefaultTemplateWhenMissing();

} // namespace qlon
