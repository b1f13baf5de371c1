#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "core/list/ProfileLine.h"

// Changes to the text of one section.

// A key and the value that it is to have.
struct ProfileEntry {
    std::wstring_view key;
    std::wstring value;
};

enum class SectionEdit {
    None,     // the section holds the entries already
    Rewrite,  // it needs another text
    NoFit,    // the encoding cannot hold the entries
};

inline constexpr std::size_t kNoKey = static_cast<std::size_t>(-1);

// The index of the line's key among `keys`, kNoKey when it is not there. `keyOf` returns the name of one of
// them. The search starts at `next`, which is moved behind the key that was found: keys that come in the
// order of the lines are found at once.
template <typename Keys, typename KeyOf>
[[nodiscard]] std::size_t FindKey(const ProfileLine& line, const Keys& keys, std::size_t& next, KeyOf keyOf) {
    for (std::size_t tried = 0; tried < keys.size(); ++tried) {
        const std::size_t i = next + tried < keys.size() ? next + tried : next + tried - keys.size();
        if (HasName(line, keyOf(keys[i]))) {
            next = i + 1;
            return i;
        }
    }
    return kNoKey;
}

// The text of a new section. False when the encoding cannot hold it.
[[nodiscard]] bool TryWriteSection(const ProfileFormat& format, std::wstring_view name,
                                   std::span<const ProfileEntry> entries, std::string& text);

// Sets the entries, which must have different keys, in a section. `section` starts at its header and contains
// at least the whole section. For Rewrite `rewritten` becomes the new text of the section. A line keeps its
// indentation, its key's spelling and its line break; new keys are added behind the last line that is not
// blank:
//
//     "[s]\n Key = old ; note\n\n[t]\n"  with key=new and more=1 becomes  "[s]\n Key=new\nmore=1\n\n"
[[nodiscard]] SectionEdit EditSection(const ProfileFormat& format, std::string_view section,
                                      std::span<const ProfileEntry> entries, std::string& rewritten);
