#pragma once

#include <QFile>

namespace qlon {

class PathMap;

// Tells whether another instance of the program already runs against the same site, and holds
// this instance's claim for as long as the guard lives: a byte-range lock on a small file of the
// program's own in the site's Temp folder, which other machines on the share see through the
// file server's locks, and which the system lets go of when a program dies.
class InstanceGuard
{
public:
    // The site is the one that drive C: stands for in `sitePaths`.
    explicit InstanceGuard(const PathMap &sitePaths);

    bool anotherInstanceRuns() const { return !m_claimed; }

private:
    QFile m_lock;
    bool m_claimed;
};

} // namespace qlon

namespace qlon {

// The platform's test for a running instance of the program, asked once at start: true when
// another instance runs against the same site, on this machine or another one on the share.
// The first answer holds for the life of the program.
bool AnotherInstanceRuns();

} // namespace qlon
