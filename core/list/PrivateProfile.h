#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/list/ProfileLine.h"
#include "util/TextEncoding.h"

// The text of a private-profile (INI) file: read once, edited in memory, written once. Reading follows the
// rules of Windows' own functions; what is not edited stays as it was to the byte. Names compare without
// regard to case; of a section or key that occurs twice the first counts.
//
// The text is ANSI unless it starts with a UTF-16 or UTF-8 byte-order mark, and becomes UTF-16LE with a
// byte-order mark when something is set that its encoding cannot hold. Texts passed in and out are UTF-16.
//
// It keeps the bytes as they are, an index of a few bytes a section, and the sections that were edited.
// Looking a section up costs the same whatever the size of the text; a key is searched in its section.
class CPrivateProfile {
public:
    struct Entry {
        std::wstring_view key;
        std::wstring value;
    };

    // The whole file as read; empty for a file to be made. Raises std::length_error from 2 GB on.
    explicit CPrivateProfile(std::string bytes);

    // The value as the Windows function hands it out into an unlimited buffer: trimmed, ended by a NUL, one
    // pair of enclosing quotes removed. Nothing when the key is missing or has no "=".
    [[nodiscard]] std::optional<std::wstring> GetString(std::wstring_view section,
                                                        std::wstring_view key) const;
    // As GetString for each key, in one pass over the section that is quickest when the keys stand in this
    // order. The result has one element a key; no key may be given twice.
    [[nodiscard]] std::vector<std::optional<std::wstring>> GetStrings(
        std::wstring_view section, std::span<const std::wstring_view> keys) const;
    // By the rules of GetPrivateProfileIntW (ParseProfileInt); `missing` for a key that is missing or empty.
    [[nodiscard]] std::int32_t GetInt(std::wstring_view section, std::wstring_view key,
                                      std::int32_t missing) const;
    // False while the text is as it was read.
    [[nodiscard]] bool IsEdited() const;
    // No text but a byte-order mark.
    [[nodiscard]] bool IsEmpty() const;
    [[nodiscard]] bool HasSection(std::wstring_view section) const;
    // Calls `visit` with the name of each section in the order of the text, repeated ones included. `visit`
    // may not change the text.
    void ForEachSection(const std::function<void(std::wstring_view name)>& visit) const;

    // Sets the keys one after the other: a key that exists keeps its place, a new one goes behind the last
    // line of its section that is not blank, a new section to the end of the text. Values are written as they
    // are given, line breaks and NUL as blanks; a line that holds its value already stays as it is. Names
    // must be such as can be read back: without line breaks or blanks round them, without "]" in a section or
    // "=" in a key, a key not starting with ";" or "[".
    void SetStrings(std::wstring_view section, std::span<const Entry> entries);
    // Removes header and keys of the first section of that name; comments and blank lines stay. False when
    // there is none.
    bool RemoveSection(std::wstring_view section);

    [[nodiscard]] std::string Serialise() const;

private:
    // Where a section starts: its offset in m_bytes, or from the end of the text on for the added ones.
    using Position = std::uint32_t;

    // What has taken the place of a section of the original text, or an added section.
    struct Piece {
        std::string text = {};
        Position end = 0;        // of what it replaces
        bool hasSection = true;  // false once the section is removed: comments and blank lines at most
    };

    [[nodiscard]] std::string_view Original() const;
    [[nodiscard]] const Piece* FindPiece(Position section) const;
    [[nodiscard]] Position EndOfPositions() const;
    [[nodiscard]] std::string_view SectionText(Position section) const;
    [[nodiscard]] ProfileLine HeaderOf(Position section) const;
    [[nodiscard]] Position EndOf(Position section) const;
    [[nodiscard]] Position FirstSectionFrom(Position position) const;

    [[nodiscard]] bool MakeIndex(std::size_t slots);
    void GrowIndex();
    [[nodiscard]] std::size_t FindSlot(std::wstring_view section) const;
    [[nodiscard]] std::optional<Position> Find(std::wstring_view section) const;

    [[nodiscard]] std::string Encode(std::wstring_view text) const;
    void AppendText(std::string& text, std::string_view more) const;
    [[nodiscard]] bool TrySetInSection(Position section, std::span<const Entry> entries);
    [[nodiscard]] bool TryAddSection(std::wstring_view section, std::span<const Entry> entries);
    [[nodiscard]] bool TryAppendLine(std::string& text, const Entry& entry) const;
    void Replace(Position section, Piece piece);
    void AbsorbRemoved(Position section);
    void ConvertToUtf16();

    std::string m_bytes;  // as read, byte-order mark and odd last byte included
    TextEncoding m_encoding;
    std::string m_lineBreak;             // encoded, as the text uses it
    std::map<Position, Piece> m_edited;  // in the place of sections of the original text
    std::vector<Piece> m_added;          // the first has the position of the end of the original text
    // Open-addressing hash table of the first section of each name: position + 1, 0 for a free slot.
    std::vector<Position> m_slots;
    std::size_t m_usedSlots = 0;
    bool m_isConverted = false;
};
