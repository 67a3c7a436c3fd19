#pragma once

#include <QByteArrayView>
#include <QString>

namespace qlon {

// The program that reads a Jet file's catalogue apart from this process, qlon-jet-check, which
// stands beside the program, and how long it may take; an empty path reads Jet files in this
// process alone.
void SetJetChecker(const QString &programPath, int milliseconds = 30000);

// libmdb can loop for ever or crash on a damaged catalogue, so the checker reads the file's
// catalogue and the table's columns first, with its output kept off ours and a time limit.
// A checker that fails, crashes or runs out of time raises "Unrecognized database format" for
// the file; a missing table is left for the reader to tell.
void CheckJetFile(const QString &hostPath, QByteArrayView table);

// The checker's own work: 0 when the file's catalogue and the table's columns read, 1 when the
// file isn't a database, 2 when the table isn't in it.
int CheckJetFileHere(const QString &hostPath, QByteArrayView table);

} // namespace qlon
