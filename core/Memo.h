#pragma once

#include <QByteArray>
#include <QHash>

#include <algorithm>
#include <optional>
#include <type_traits>

namespace qlon {

// What a costly reading gives for a key, kept for keys that repeat, as the dates, times, prices
// and quantities of sales rows do. Rows in time order repeat the key of the row before most of
// all: that one is answered without a lookup. Past a limit the memo forgets all it kept, so keys
// that never repeat cost no more memory than the limit.
template<typename Key, typename Value>
class Memo
{
public:
    // The value kept for the key, or what `compute` gives, which is kept. A QByteArray key may be
    // raw data: what is kept is a copy.
    template<typename Compute>
    const Value &get(const Key &key, Compute &&compute)
    {
        if (m_last && m_last->first == key)
            return m_last->second;
        auto known = m_values.constFind(key);
        if (known == m_values.constEnd()) {
            if (m_values.size() >= limit)
                m_values.clear();
            known = m_values.insert(owned(key), compute());
        }
        m_last.emplace(known.key(), known.value());
        return m_last->second;
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
    std::optional<std::pair<Key, Value>> m_last; // shares the kept key and value
};

} // namespace qlon
