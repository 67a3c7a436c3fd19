#pragma once

#include <QByteArray>
#include <QHash>

#include <algorithm>
#include <type_traits>
#include <utility>

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
        if (m_lastKey && *m_lastKey == key)
            return *m_lastValue;
        auto known = m_values.constFind(key);
        if (known == m_values.constEnd()) {
            // Read before the memo forgets: a reading that fails leaves the last entry in place.
            Value value = compute();
            if (m_values.size() >= limit)
                m_values.clear();
            known = m_values.insert(owned(key), std::move(value));
        }
        m_lastKey = &known.key();
        m_lastValue = &known.value();
        return *m_lastValue;
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
    // The entry the last call gave, where the hash keeps it, so that no key or value is copied for a
    // key that repeats: each insertion, which may move the entries, sets it anew. A copy of the
    // memo shares the hash until it inserts, and so points into a hash it holds.
    const Key *m_lastKey = nullptr;
    const Value *m_lastValue = nullptr;
};

} // namespace qlon
