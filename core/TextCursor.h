#pragma once

#include <QByteArrayView>

namespace qlon {

// A reading position in a text, for the small hand-written parsers of numbers, dates and times.
class TextCursor
{
public:
    explicit TextCursor(QByteArrayView text)
        : m_text(text)
    {
    }

    bool atEnd() const { return m_position == m_text.size(); }
    char peek() const { return atEnd() ? '\0' : m_text.at(m_position); }

    bool take(char wanted)
    {
        if (atEnd() || peek() != wanted)
            return false;
        ++m_position;
        return true;
    }

    // Takes one character out of the given set and gives it back, or '\0' when the next one isn't in the set.
    char takeAnyOf(QByteArrayView wanted)
    {
        const char next = peek();
        if (atEnd() || !wanted.contains(next))
            return '\0';
        ++m_position;
        return next;
    }

    bool takeCaseless(QByteArrayView word)
    {
        const QByteArrayView ahead = m_text.sliced(m_position).first(qMin(word.size(), m_text.size() - m_position));
        if (ahead.compare(word, Qt::CaseInsensitive) != 0)
            return false;
        m_position += word.size();
        return true;
    }

    // Passes over any run of the given characters and tells whether there was one.
    bool skipAnyOf(QByteArrayView skipped)
    {
        const qsizetype start = m_position;
        while (!atEnd() && skipped.contains(peek()))
            ++m_position;
        return m_position != start;
    }

    QByteArrayView takeDigits()
    {
        const qsizetype start = m_position;
        while (isDigit(peek()))
            ++m_position;
        return m_text.sliced(start, m_position - start);
    }

    static bool isDigit(char c) { return c >= '0' && c <= '9'; }

private:
    QByteArrayView m_text;
    qsizetype m_position = 0;
};

} // namespace qlon
