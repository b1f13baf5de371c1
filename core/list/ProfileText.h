#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/list/ProfileLine.h"

// The text of a private-profile file as a sequence of sections: the bytes as they were read, the texts that
// replace some sections, and the sections added at the end. It knows where sections start and end, but not
// their names.
//
// Example: "[a]\nk=1\n;c\n[b]\n" with [b] removed and a section [d] added. [a] has position 0, the (empty)
// rest of [b] has position 11, and [d] has position 15, the number of bytes read.
class CProfileText {
public:
    // Identifies a section: its offset in the bytes as read. Added sections have consecutive numbers from the
    // size of these bytes on.
    using Position = std::uint32_t;
    // Positions are less than this, so this limits the sum of bytes and added sections.
    static constexpr Position kMaxPositions = 0x7fffffff;

    // Throws std::length_error for kMaxPositions bytes (2 GB) or more.
    explicit CProfileText(std::string bytes);

    [[nodiscard]] const ProfileFormat& Format() const noexcept { return m_format; }
    // The size of the bytes as read.
    [[nodiscard]] std::size_t Size() const noexcept { return m_bytes.size(); }
    // False while the text is as it was read.
    [[nodiscard]] bool IsEdited() const noexcept { return !m_edited.empty() || !m_added.empty(); }
    // No text but a byte-order mark.
    [[nodiscard]] bool IsEmpty() const;

    // The first section; End() when there is none.
    [[nodiscard]] Position First() const;
    // The first section that is not removed at or after `position`, which is the start or end of one; End()
    // when there is none.
    [[nodiscard]] Position FirstFrom(Position position) const;
    [[nodiscard]] Position End() const;
    [[nodiscard]] Position EndOf(Position section) const;
    // From the header on; at least to the end of the section.
    [[nodiscard]] std::string_view TextOf(Position section) const;
    [[nodiscard]] ProfileLine HeaderOf(Position section) const;

    // Adds a section at the end. Throws std::length_error when no position is left for it.
    Position Add(std::string text);
    // Call it before a section is rewritten: lines left of removed sections behind it become part of it.
    void AbsorbRemoved(Position section);
    // Gives the section, header included, another text.
    void Replace(Position section, std::string text);
    // Replaces the section by `rest`, its comments and blank lines.
    void Remove(Position section, std::string rest);

    [[nodiscard]] std::string Serialise() const;

private:
    // The replacement of a section of the original text, or an added section.
    struct Piece {
        std::string text = {};
        Position end = 0;        // of what it replaces
        bool hasSection = true;  // false once the section is removed: comments and blank lines at most
    };

    [[nodiscard]] std::string_view Original() const;
    [[nodiscard]] const Piece* FindPiece(Position section) const;
    void Put(Position section, Piece piece);

    std::string m_bytes;  // as read, byte-order mark and odd last byte included
    ProfileFormat m_format;
    std::map<Position, Piece> m_edited;  // in the place of sections of the original text
    std::vector<Piece> m_added;          // the first has the position of the end of the original text
    bool m_hasRemoved = false;           // whether a section was ever removed
};
