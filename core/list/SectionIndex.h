#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "core/list/ProfileText.h"

// Finds the sections of a text by name, without regard to case; of sections with equal names it knows the
// first. An open-addressing hash table of four bytes a slot, because the names stay in the text: for a text
// of nothing but short headers std::unordered_set takes nine times the text, this table takes as much as the
// text.
//
// The text is passed to each call and must be the one that the index was made for.
class CSectionIndex {
public:
    using Position = CProfileText::Position;

    explicit CSectionIndex(const CProfileText& text);

    [[nodiscard]] std::optional<Position> Find(const CProfileText& text, std::wstring_view name) const;
    // Adds a section of the text whose name the index does not have.
    void Add(const CProfileText& text, Position section);
    // Call it before the first section of this name is removed from the text: removes it from the index and
    // returns it. The index then has the next section of this name, if there is one.
    std::optional<Position> Remove(const CProfileText& text, std::wstring_view name);

private:
    [[nodiscard]] bool TryFill(const CProfileText& text, std::size_t slots);
    void Grow(const CProfileText& text);
    [[nodiscard]] std::size_t FindSlot(const CProfileText& text, std::wstring_view name) const;
    [[nodiscard]] std::size_t FindSlot(const CProfileText& text, const ProfileLine& header) const;
    [[nodiscard]] bool IsNearlyFull(std::size_t used) const noexcept;

    std::vector<Position> m_slots;  // position + 1 and perhaps a mark; 0 for a free slot
    std::size_t m_usedSlots = 0;
};
