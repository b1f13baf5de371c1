#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "util/TextEncoding.h"

// One line of a private-profile text, still encoded. Offsets are bytes from the start of the text, the views
// look into it. CR and LF each end a line, CR LF together end one.
struct ProfileLine {
    enum class Kind { Blank, Comment, Section, Key };

    Kind kind = Kind::Blank;
    TextEncoding encoding = TextEncoding::Ansi;
    bool hasValue = false;   // a key followed by "="
    std::size_t begin = 0;   // of the line, its indentation included
    std::size_t end = 0;     // of its content
    std::size_t next = 0;    // behind its line break
    std::string_view name;   // of a section or key; see DecodeName
    std::string_view value;  // without blanks round it, quotes kept
};

// The line that starts at `position`, which is less than the size of `text`.
[[nodiscard]] ProfileLine ReadProfileLine(TextEncoding encoding, std::string_view text, std::size_t position);

// Start of the first section header at or after `position`, which is the start of a line; the size of `text`
// when there is none.
[[nodiscard]] std::size_t FindSectionLine(TextEncoding encoding, std::string_view text, std::size_t position);

// The name of a section or key line.
[[nodiscard]] std::wstring DecodeName(const ProfileLine& line);

// Whether the line's name is `name`, without regard to case.
[[nodiscard]] bool HasName(const ProfileLine& line, std::wstring_view name);

// Where a name is looked for in a hash table: at `place`, then every `step` further. Alike for all names that
// HasName takes for the same. Names that differ in a number at their end have neighbouring places, so that
// numbered sections are entered and found in the order of the memory; `step` leads others out of their way.
struct NameHash {
    std::uint32_t place;
    std::uint32_t step;
};
[[nodiscard]] NameHash HashName(std::wstring_view name);
[[nodiscard]] NameHash HashName(const ProfileLine& line);
