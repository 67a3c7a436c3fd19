#pragma once

#include <QByteArray>
#include <QHash>

#include <type_traits>

namespace qlon {

// What a costly reading gives for a key, kept for keys that repeat, as the dates, times, prices
// and quantities of sales rows do. Past a limit it forgets all it kept, so keys that never repeat
// cost no more memory than the limit.
template<typename Key, typename Value>
class Memo
{
public:
    // The value kept for the key, or what `compute` gives, which is kept. A QByteArray key may be
    // raw data: what is kept is a copy.
    template<typename Compute>
    const Value &get(const Key &key, Compute &&compute)
    {
        auto known = m_values.constFind(key);
        if (known == m_values.constEnd()) {
            if (m_values.size() >= limit)
                m_values.clear();
            known = m_values.insert(owned(key), compute());
        }
        return *known;
    }

private:
    static constexpr qsizetype limit = 100000;

    static Key owned(const Key &key)
    {
        if constexpr (std::is_same_v<Key, QByteArray>)
            return QByteArray(key.constData(), key.size());
        else
            return key;
    }

    QHash<Key, Value> m_values;
};

} // namespace qlon
