#include "core/Like.h"

#include "core/Ansi.h"

#include <optional>

namespace qlon {
namespace {

// Whether the character is in the bracket list that starts after "[" at `at`; `at` moves past the
// closing "]". None when the list isn't closed.
std::optional<bool> inList(QByteArrayView pattern, qsizetype &at, char character)
{
    const bool negated = at < pattern.size() && pattern[at] == '!';
    if (negated)
        ++at;
    bool found = false;
    const char wanted = UpperAnsi(character);
    for (qsizetype first = at; at < pattern.size(); ++at) {
        if (pattern[at] == ']' && at > first)
            return found != negated;
        const bool isRange = at + 2 < pattern.size() && pattern[at + 1] == '-' && pattern[at + 2] != ']';
        if (isRange) {
            found = found || (UpperAnsi(pattern[at]) <= wanted && wanted <= UpperAnsi(pattern[at + 2]));
            at += 2;
        } else {
            found = found || UpperAnsi(pattern[at]) == wanted;
        }
    }
    return std::nullopt;
}

bool matchesFrom(QByteArrayView text, qsizetype textAt, QByteArrayView pattern, qsizetype patternAt)
{
    while (patternAt < pattern.size()) {
        const char token = pattern[patternAt++];
        if (token == '*') {
            for (qsizetype rest = textAt; rest <= text.size(); ++rest) {
                if (matchesFrom(text, rest, pattern, patternAt))
                    return true;
            }
            return false;
        }
        if (textAt == text.size())
            return false;
        const char character = text[textAt++];
        if (token == '?')
            continue;
        if (token == '#') {
            if (character < '0' || character > '9')
                return false;
            continue;
        }
        if (token == '[') {
            const std::optional<bool> member = inList(pattern, patternAt, character);
            if (!member || !*member)
                return false;
            ++patternAt; // past "]"
            continue;
        }
        if (UpperAnsi(token) != UpperAnsi(character))
            return false;
    }
    return textAt == text.size();
}

} // namespace

bool MatchesLike(QByteArrayView text, QByteArrayView pattern)
{
    return matchesFrom(text, 0, pattern, 0);
}

} // namespace qlon
