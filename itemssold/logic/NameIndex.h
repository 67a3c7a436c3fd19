#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qlon {

// The first row of each name, as a walk of the rows from the top finds it. Every sold line asks
// for its name, so the hashes lie in one flat table that is probed in line and stays within the
// processor's cache.
class NameIndex
{
public:
    // Notes the row as the one for its name, unless a row before has the name.
    void add(QByteArrayView name, int row);
    // The row of the name, or -1 when no row has it.
    int find(QByteArrayView name) const;

private:
    struct Slot
    {
        std::uint32_t hash = 0;
        int entry = -1; // none
    };
    struct Entry
    {
        std::string name;
        int row;
    };

    // The slot that holds the name, or the empty one where it would go.
    std::size_t slotOf(std::string_view name, std::size_t hash) const;
    void grow();

    std::vector<Slot> m_slots; // a power of two of them, at most half in use
    std::vector<Entry> m_entries;
};

} // namespace qlon
