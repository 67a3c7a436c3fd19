#pragma once

#include "store/SalesStore.h"

#include <memory>

class QWidget;

namespace qlon {

class SalesRecordset;

// Opens the site's sales database as a screen's data control does when the screen loads: a
// database that can't be opened shows "Data error event hit err:" with the engine's text, and
// the screen goes on without one.
std::unique_ptr<SalesStore> OpenDataControl(QWidget *screen);
// The same for a recordset that keeps its rows: it stays closed when the database can't be opened.
void OpenDataControl(QWidget *screen, SalesRecordset &recordset);

} // namespace qlon
