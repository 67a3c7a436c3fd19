#include "core/Like.h"

#include "core/Ansi.h"

#include <algorithm>
#include <array>
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

// The part between the stars of "*part*" when it holds no wildcard: the pattern of a search for
// a value that holds the part somewhere.
std::optional<QByteArrayView> containedPart(QByteArrayView pattern)
{
    if (pattern.size() < 2 || pattern.front() != '*' || pattern.back() != '*')
        return std::nullopt;
    const QByteArrayView part = pattern.sliced(1, pattern.size() - 2);
    if (std::any_of(part.begin(), part.end(), [](char token) { return token == '*' || token == '?' || token == '#' || token == '['; }))
        return std::nullopt;
    return part;
}

// UpperAnsi of every byte, looked up rather than worked out for each character of a long walk.
const std::array<char, 256> &upperCase()
{
    static const std::array<char, 256> table = [] {
        std::array<char, 256> upper{};
        for (int byte = 0; byte < 256; ++byte)
            upper[std::size_t(byte)] = UpperAnsi(char(byte));
        return upper;
    }();
    return table;
}

bool sameLetters(QByteArrayView text, QByteArrayView part)
{
    const std::array<char, 256> &upper = upperCase();
    return std::equal(text.begin(), text.end(), part.begin(), part.end(), [&upper](char character, char wanted) {
        return upper[static_cast<unsigned char>(character)] == upper[static_cast<unsigned char>(wanted)];
    });
}

bool holdsPart(QByteArrayView text, QByteArrayView part)
{
    for (qsizetype start = 0; start + part.size() <= text.size(); ++start) {
        if (sameLetters(text.sliced(start, part.size()), part))
            return true;
    }
    return false;
}

} // namespace

bool MatchesLike(QByteArrayView text, QByteArrayView pattern)
{
    // The general walk tries every start too, at a cost per character many times this one's.
    if (const std::optional<QByteArrayView> part = containedPart(pattern))
        return holdsPart(text, *part);
    return matchesFrom(text, 0, pattern, 0);
}

} // namespace qlon
