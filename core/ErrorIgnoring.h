#pragma once

#include "core/RuntimeError.h"

#include <optional>
#include <utility>

namespace qlon {

// Several procedures pass over failures part-way through: a statement that fails is left out,
// nothing is reported, and the next statement runs. Results of the reports depend on that, so
// these regions code its outcomes explicitly with the helpers below, and nothing else.

// A value that could not be computed is not assigned: the target keeps what it held.
template<typename Target, typename Value>
void AssignUnlessFailed(Target &target, const std::optional<Value> &value)
{
    if (value)
        target = *value;
}

// A test that can't be evaluated acts as if it held: control goes on under the test.
inline bool HoldsUnlessFailed(const std::optional<bool> &test)
{
    return test.value_or(true);
}

// A statement that raises a run-time error is left out, unless a station held a file past the
// program's wait.
template<typename Statement>
void SkipOnFailure(Statement &&statement)
{
    try {
        std::forward<Statement>(statement)();
    } catch (const RuntimeError &error) {
        if (error.isHeldElsewhere())
            throw;
    }
}

} // namespace qlon
