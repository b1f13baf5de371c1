#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/list/ProfileText.h"
#include "core/list/SectionEdit.h"
#include "core/list/SectionIndex.h"

// The text of a private-profile (INI) file: read once, edited in memory, written once. Reading follows the
// rules of Windows' own functions; what is not edited stays as it was to the byte. Names compare without
// regard to case; of a section or key that occurs twice the first counts.
//
// The text is ANSI unless it starts with a UTF-16 or UTF-8 byte-order mark, and becomes UTF-16LE with a
// byte-order mark when something is set that its encoding cannot hold. Texts passed in and out are UTF-16.
//
// Finding a section takes constant time; a key is searched in its section. Memory: the text, a few bytes for
// each section, and the texts of the edited sections.
class CPrivateProfile {
public:
    using Entry = ProfileEntry;

    // `bytes` is the whole file, empty for a new one. Throws std::length_error for 2 GB or more.
    explicit CPrivateProfile(std::string bytes);

    // The value as GetPrivateProfileStringW would return it with an unlimited buffer: without the blanks
    // around it, cut at a NUL, without one pair of enclosing quotes. For instance, key = "a b"  has the value
    // a b. Nothing when the key is missing or has no "=".
    [[nodiscard]] std::optional<std::wstring> GetString(std::wstring_view section,
                                                        std::wstring_view key) const;
    // GetString for each key, in one pass over the section. Fastest when the section has the keys in this
    // order. Returns one value per key; no key may be given twice.
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

    // Sets the keys; no key may be given twice. An existing key keeps its place. A new key is added behind
    // the last line of its section that is not blank, a new section at the end of the text. Values are
    // written as given, but line breaks and NUL become blanks. A line that holds its value already stays
    // unchanged. Names must be readable again: without line breaks, without blanks around them, no "]" in a
    // section, no
    // "=" in a key, no ";" or "[" at the start of a key.
    void SetStrings(std::wstring_view section, std::span<const Entry> entries);
    // Removes header and keys of the first section of that name; comments and blank lines stay. False when
    // there is none.
    bool RemoveSection(std::wstring_view section);

    [[nodiscard]] std::string Serialise() const;

private:
    [[nodiscard]] bool TrySetInSection(CProfileText::Position section, std::span<const Entry> entries);
    [[nodiscard]] bool TryAddSection(std::wstring_view section, std::span<const Entry> entries);
    void ConvertToUtf16();

    CProfileText m_text;
    CSectionIndex m_index;
    bool m_isConverted = false;
};
