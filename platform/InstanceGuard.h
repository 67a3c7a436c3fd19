#pragma once

#include <QLockFile>
#include <QString>

namespace qlon {

// Tells whether another instance of the program already runs against the same site, and
// holds this instance's claim for as long as the guard lives.
class InstanceGuard
{
public:
    explicit InstanceGuard(const QString &siteFolder);

    bool anotherInstanceRuns() const { return !m_claimed; }

private:
    QLockFile m_lock;
    bool m_claimed;
};

} // namespace qlon

namespace qlon {

// The platform's test for a running instance of the program, asked once at start: true when
// another instance runs against the same site folder (the folder that drive C: stands for).
// The first answer holds for the life of the program.
bool AnotherInstanceRuns();

} // namespace qlon
