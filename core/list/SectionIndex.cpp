#include "core/list/SectionIndex.h"

#include <utility>

namespace {

using Position = CProfileText::Position;

// Marks in a slot.
constexpr Position kRepeated = 0x80000000U;  // more sections have that name
constexpr Position kRemoved = CProfileText::kMaxPositions;

Position PositionIn(Position slot) {
    return (slot & ~kRepeated) - 1;
}

// Visits the slots in which a name may be, in probe order.
class CProbe {
public:
    // The number of slots is prime, so that any step visits all of them.
    CProbe(NameHash hash, std::size_t slots)
        : m_slot(hash.place % slots), m_step(1 + hash.step % (slots - 1)), m_slots(slots) {}

    [[nodiscard]] std::size_t Slot() const { return m_slot; }
    void Next() {
        m_slot += m_step;
        m_slot -= m_slot < m_slots ? 0 : m_slots;
    }

private:
    std::size_t m_slot;
    std::size_t m_step;
    std::size_t m_slots;
};

std::size_t PrimeFrom(std::size_t number) {
    const auto isPrime = [](std::size_t odd) {
        std::size_t divisor = 3;
        while (divisor * divisor <= odd && odd % divisor != 0) {
            divisor += 2;
        }
        return divisor * divisor > odd;
    };
    number |= 1U;
    while (!isPrime(number)) {
        number += 2;
    }
    return number;
}

}  // namespace

// A task takes about 400 bytes, so the first size usually suffices. The table may not take more than twice
// the memory of the text, whatever the text is. The last size always suffices: there are at most 66,000 names
// of one or two bytes, and every other header takes at least five bytes with its bracket and line break.
CSectionIndex::CSectionIndex(const CProfileText& text) {
    if (!TryFill(text, text.Size() / 64 + 16) && !TryFill(text, text.Size() / 16 + 16)) {
        static_cast<void>(TryFill(text, text.Size() / 4 + 84000));
    }
}

// False when there are too many sections for that many slots.
bool CSectionIndex::TryFill(const CProfileText& text, std::size_t slots) {
    m_slots.assign(PrimeFrom(slots), 0);
    m_usedSlots = 0;
    for (Position at = text.First(); at < text.End();) {
        const ProfileLine header = text.HeaderOf(at);
        Position& slot = m_slots[FindSlot(text, header)];
        if (slot != 0) {
            slot |= kRepeated;
        } else if (IsNearlyFull(m_usedSlots + 1)) {
            return false;
        } else {
            slot = at + 1;
            ++m_usedSlots;
        }
        at = text.FirstFrom(static_cast<Position>(at + header.next));
    }
    return true;
}

bool CSectionIndex::IsNearlyFull(std::size_t used) const noexcept {
    return 5 * used > 4 * m_slots.size();
}

void CSectionIndex::Grow(const CProfileText& text) {
    std::vector<Position> old = std::exchange(m_slots, {});
    std::erase_if(old, [](Position slot) { return slot == 0 || slot == kRemoved; });
    m_usedSlots = old.size();
    m_slots.assign(PrimeFrom(4 * m_usedSlots + 16), 0);
    for (const Position slot : old) {
        CProbe probe(HashName(text.HeaderOf(PositionIn(slot))), m_slots.size());
        while (m_slots[probe.Slot()] != 0) {
            probe.Next();
        }
        m_slots[probe.Slot()] = slot;
    }
}

// The slot of the section with this name, or the free slot for it.
std::size_t CSectionIndex::FindSlot(const CProfileText& text, std::wstring_view name) const {
    CProbe probe(HashName(name), m_slots.size());
    for (;; probe.Next()) {
        const Position slot = m_slots[probe.Slot()];
        if (slot == 0 || (slot != kRemoved && HasName(text.HeaderOf(PositionIn(slot)), name))) {
            return probe.Slot();
        }
    }
}

// The same for a header. Its name is decoded only when its first slot is in use.
std::size_t CSectionIndex::FindSlot(const CProfileText& text, const ProfileLine& header) const {
    const CProbe first(HashName(header), m_slots.size());
    return m_slots[first.Slot()] == 0 ? first.Slot() : FindSlot(text, DecodeName(header));
}

std::optional<Position> CSectionIndex::Find(const CProfileText& text, std::wstring_view name) const {
    const Position slot = m_slots[FindSlot(text, name)];
    return slot == 0 ? std::nullopt : std::optional(PositionIn(slot));
}

void CSectionIndex::Add(const CProfileText& text, Position section) {
    if (IsNearlyFull(m_usedSlots + 1)) {
        Grow(text);
    }
    m_slots[FindSlot(text, text.HeaderOf(section))] = section + 1;
    ++m_usedSlots;
}

std::optional<Position> CSectionIndex::Remove(const CProfileText& text, std::wstring_view name) {
    Position& slot = m_slots[FindSlot(text, name)];
    if (slot == 0) {
        return std::nullopt;
    }
    const Position removed = PositionIn(slot);
    const bool isRepeated = (slot & kRepeated) != 0;
    slot = kRemoved;
    if (!isRepeated) {
        return removed;
    }
    Position next = text.FirstFrom(text.EndOf(removed));
    while (next < text.End() && !HasName(text.HeaderOf(next), name)) {
        next = text.FirstFrom(text.EndOf(next));
    }
    if (next < text.End()) {
        slot = (next + 1) | kRepeated;  // if it is the last one, the search after its removal finds none
    }
    return removed;
}
