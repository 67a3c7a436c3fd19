#include "itemssold/logic/NameIndex.h"

#include <functional>
#include <string_view>

namespace qlon {

namespace {

constexpr std::size_t firstSize = 64;

std::string_view textOf(QByteArrayView view)
{
    return {view.data(), std::size_t(view.size())};
}

std::size_t hashOf(std::string_view name)
{
    return std::hash<std::string_view>{}(name);
}

} // namespace

void NameIndex::add(QByteArrayView name, int row)
{
    if ((m_entries.size() + 1) * 2 > m_slots.size())
        grow();
    const std::size_t hash = hashOf(textOf(name));
    Slot &slot = m_slots[slotOf(textOf(name), hash)];
    if (slot.entry >= 0)
        return;
    slot = {std::uint32_t(hash), int(m_entries.size())};
    m_entries.push_back({std::string(textOf(name)), row});
}

int NameIndex::find(QByteArrayView name) const
{
    if (m_slots.empty())
        return -1;
    const Slot &slot = m_slots[slotOf(textOf(name), hashOf(textOf(name)))];
    return slot.entry >= 0 ? m_entries[std::size_t(slot.entry)].row : -1;
}

std::size_t NameIndex::slotOf(std::string_view name, std::size_t hash) const
{
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        const Slot &slot = m_slots[at];
        if (slot.entry < 0 || (slot.hash == std::uint32_t(hash) && m_entries[std::size_t(slot.entry)].name == name))
            return at;
    }
}

void NameIndex::grow()
{
    m_slots.assign(m_slots.empty() ? firstSize : m_slots.size() * 2, Slot());
    for (std::size_t entry = 0; entry < m_entries.size(); ++entry) {
        const std::size_t hash = hashOf(m_entries[entry].name);
        m_slots[slotOf(m_entries[entry].name, hash)] = {std::uint32_t(hash), int(entry)};
    }
}

} // namespace qlon
