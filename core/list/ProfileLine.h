#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "util/TextEncoding.h"

// One line of a private-profile text, not decoded. Offsets count bytes from the start of the text; the views
// point into the text. CR, LF and CR LF each end a line. Two examples, with the fields that are set:
//
//     "  Key = 'a b' \r\n"   Kind::Key, name "Key", value "'a b'", hasValue
//     " [ Name ] more\n"    Kind::Section, name "Name"
struct ProfileLine {
    enum class Kind { Blank, Comment, Section, Key };

    Kind kind = Kind::Blank;
    TextEncoding encoding = TextEncoding::Ansi;
    bool hasValue = false;        // a key followed by "="
    std::size_t begin = 0;        // of the line, its indentation included
    std::size_t end = 0;          // of its content
    std::size_t next = 0;         // behind its line break
    std::string_view name = {};   // of a section or key; see DecodeName
    std::string_view value = {};  // without blanks round it, quotes kept
};

// How the lines of a text are written.
struct ProfileFormat {
    TextEncoding encoding = TextEncoding::Ansi;
    std::string lineBreak = {};  // encoded
};

// The line that starts at `position`, which is less than the size of `text`.
[[nodiscard]] ProfileLine ReadProfileLine(TextEncoding encoding, std::string_view text, std::size_t position);

// Start of the first section header at or after `position`, which is the start of a line; the size of `text`
// when there is none.
[[nodiscard]] std::size_t FindSectionLine(TextEncoding encoding, std::string_view text, std::size_t position);

// The name of a section or key line.
[[nodiscard]] std::wstring DecodeName(const ProfileLine& line);

// Appends encoded lines to a text, or to a part of one. A last line of `text` that has no line break gets one
// first.
void AppendLines(const ProfileFormat& format, std::string_view lines, std::string& text);

// Whether the line's name is `name`, without regard to case.
[[nodiscard]] bool HasName(const ProfileLine& line, std::wstring_view name);

// The hash of a name: `place` is its first slot, `step` the probe distance after a collision. Equal for names
// that HasName treats as equal. Names that end in consecutive numbers have consecutive places, so that
// visiting numbered sections in order accesses memory in order.
struct NameHash {
    std::uint32_t place;
    std::uint32_t step;
};
[[nodiscard]] NameHash HashName(std::wstring_view name);
[[nodiscard]] NameHash HashName(const ProfileLine& line);
