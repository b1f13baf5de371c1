#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/list/ProfileLine.h"

// The text of a private-profile file as a row of sections: the bytes as they were read, the texts that have
// taken the place of some sections, and the sections that were added at the end. It knows where sections
// start and end, not what they are called.
//
// "[a]\nk=1\n;c\n[b]\n" with b removed and a section [d] added: 0 is the position of [a], 12 that of what is
// left of [b], which is nothing, and 16, the number of bytes read, that of [d].
class CProfileText {
public:
    // Where a section starts: its offset in the bytes as read. Added sections are numbered on from the end of
    // these bytes.
    using Position = std::uint32_t;
    // There are fewer positions than that; as many bytes and added sections can be held together.
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
    // Before a section is rewritten: lines of removed sections behind it belong to it from now on.
    void AbsorbRemoved(Position section);
    // Gives the section, header included, another text.
    void Replace(Position section, std::string text);
    // Leaves `rest`, comments and blank lines, in the place of the section.
    void Remove(Position section, std::string rest);

    [[nodiscard]] std::string Serialise() const;

private:
    // What has taken the place of a section of the original text, or an added section.
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
