#pragma once

#include <QString>

namespace qlon::test {

// The message boxes shown since the test began, one "message: TITLE | TEXT" line each.
QString ShownMessages();

} // namespace qlon::test
