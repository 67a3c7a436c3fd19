#pragma once

class QWidget;

namespace qlon {

class SiteSettings;

// Asks a manager, on a first start that finds no site, for the folder of the stations' share,
// until a folder that holds the site is picked or the question is cancelled. The picked site is
// mapped for this run and saved for the next; true when there is one.
bool AskForSite(QWidget *parent, const SiteSettings &settings);

} // namespace qlon
