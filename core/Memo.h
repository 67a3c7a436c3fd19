#pragma once

#include <QByteArray>

#include <algorithm>
#include <string_view>
#include <type_traits>
#include <unordered_map>
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
        auto known = m_values.find(key);
        if (known == m_values.end()) {
            // Read before the memo forgets: a reading that fails leaves the last entry in place.
            Value value = compute();
            if (m_values.size() >= limit)
                m_values.clear();
            known = m_values.emplace(owned(key), std::move(value)).first;
        }
        m_lastKey = &known->first;
        m_lastValue = &known->second;
        return *m_lastValue;
    }
    // A text key as a view, looked up as raw data.
    template<typename View, typename Compute>
    requires std::is_same_v<Key, QByteArray> && std::is_same_v<View, QByteArrayView>
    const Value &get(View key, Compute &&compute)
    {
        return get(QByteArray::fromRawData(key.data(), key.size()), std::forward<Compute>(compute));
    }

    Memo() = default;
    // A copy keeps its own entries, and finds its last one anew.
    Memo(const Memo &other)
        : m_values(other.m_values)
    {
    }
    Memo &operator=(const Memo &other)
    {
        m_values = other.m_values;
        m_lastKey = nullptr;
        m_lastValue = nullptr;
        return *this;
    }

private:
    static constexpr std::size_t limit = 100000;

    // A text hashes by its bytes.
    struct KeyHash
    {
        std::size_t operator()(const QByteArray &key) const
        {
            return std::hash<std::string_view>{}(std::string_view(key.constData(), std::size_t(key.size())));
        }
        template<typename Other>
        std::size_t operator()(const Other &key) const
        {
            return std::hash<Other>{}(key);
        }
    };

    static Key owned(const Key &key)
    {
        if constexpr (std::is_same_v<Key, QByteArray>)
            return QByteArray(key.constData(), key.size());
        else
            return key;
    }

    // A map of nodes: an entry stays where it is until the memo forgets all.
    std::unordered_map<Key, Value, KeyHash> m_values;
    // The entry the last call gave, so that no key or value is copied for a key that repeats.
    const Key *m_lastKey = nullptr;
    const Value *m_lastValue = nullptr;
};

} // namespace qlon
