#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The text of a private-profile (INI) file: read once, edited in memory, written once. Reading follows the
// rules of Windows' own functions; what is not edited stays as it was to the byte. Names compare without
// regard to case; of a section or key that occurs twice the first counts.
//
// The text is ANSI unless it starts with a UTF-16 or UTF-8 byte-order mark, and becomes UTF-16LE with a
// byte-order mark when a value is set that its encoding cannot hold. Texts passed in and out are UTF-16.
class CPrivateProfile {
public:
    struct Entry {
        std::wstring_view key;
        std::wstring value;
    };

    // The whole file as read; empty for a file to be made.
    explicit CPrivateProfile(std::string bytes);

    // The value as the Windows function hands it out into an unlimited buffer: trimmed, one pair of enclosing
    // quotes removed. Nothing when the key is missing or has no "=".
    [[nodiscard]] std::optional<std::wstring> GetString(std::wstring_view section,
                                                        std::wstring_view key) const;
    // As GetString for each key, in one pass over the section; the result has one element a key.
    [[nodiscard]] std::vector<std::optional<std::wstring>> GetStrings(
        std::wstring_view section, std::span<const std::wstring_view> keys) const;
    // By the rules of GetPrivateProfileIntW.
    [[nodiscard]] std::int32_t GetInt(std::wstring_view section, std::wstring_view key,
                                      std::int32_t missing) const;
    [[nodiscard]] bool HasSection(std::wstring_view section) const;
    // Calls `visit` with the name of each section in the order of the text, repeated ones included.
    void ForEachSection(const std::function<void(std::wstring_view name)>& visit) const;

    // Sets the keys one after the other: a key that exists keeps its place, a new one goes to the end of its
    // section, a new section to the end of the text. Values are written as they are given, line breaks and
    // NUL as blanks.
    void SetStrings(std::wstring_view section, std::span<const Entry> entries);
    // Removes header and keys of the first section of that name; comments stay. False when there is none.
    bool RemoveSection(std::wstring_view section);

    [[nodiscard]] std::string Serialise() const;
};
