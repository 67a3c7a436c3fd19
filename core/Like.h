#pragma once

#include <QByteArrayView>

namespace qlon {

// Whether the text matches a LIKE pattern of the old data engine, letters compared without
// regard to case: "*" any run of characters, "?" any one character, "#" any one digit, and
// "[abc]", "[a-z]" or "[!abc]" one character of (or not of) the list. "[*]" stands for the
// character itself. A "[" without its "]" matches nothing.
bool MatchesLike(QByteArrayView text, QByteArrayView pattern);

} // namespace qlon
