#include "core/list/ProfileLine.h"

#include <algorithm>

#include "util/CaseFold.h"

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

struct Bytes {
    static constexpr std::size_t kSize = 1;
    static wchar_t At(std::string_view text, std::size_t offset) {
        return static_cast<unsigned char>(text[offset]);
    }
};

template <std::size_t High>
struct Pairs {
    static constexpr std::size_t kSize = 2;
    static wchar_t At(std::string_view text, std::size_t offset) {
        return static_cast<wchar_t>(static_cast<unsigned char>(text[offset + High]) << 8 |
                                    static_cast<unsigned char>(text[offset + 1 - High]));
    }
};

template <typename Visitor>
auto WithUnits(TextEncoding encoding, Visitor visit) {
    switch (encoding) {
        case TextEncoding::Utf16LE:
            return visit(Pairs<1>());
        case TextEncoding::Utf16BE:
            return visit(Pairs<0>());
        default:
            return visit(Bytes());
    }
}

bool IsBreak(wchar_t unit) {
    return unit == L'\n' || unit == L'\r';
}

// A DOS end of file (0x1a) counts as a blank too.
bool IsBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t' || unit == L'\v' || unit == L'\f' || unit == L'\x1a';
}

template <typename Units>
std::string_view Trim(std::string_view text, std::size_t begin, std::size_t end) {
    while (begin < end && IsBlank(Units::At(text, begin))) {
        begin += Units::kSize;
    }
    while (end > begin && IsBlank(Units::At(text, end - Units::kSize))) {
        end -= Units::kSize;
    }
    return text.substr(begin, end - begin);
}

// The name up to the bracket. In an ANSI text the second byte of a double-byte character can be a "]": after
// a byte of 0x80 or more the result is the whole rest of the line, and DecodeName looks for the bracket.
template <typename Units>
std::string_view SectionName(TextEncoding encoding, std::string_view text, std::size_t begin,
                             std::size_t end) {
    for (std::size_t i = begin; i < end; i += Units::kSize) {
        const wchar_t unit = Units::At(text, i);
        if (unit == L']') {
            return Trim<Units>(text, begin, i);
        }
        if (unit >= 0x80 && encoding == TextEncoding::Ansi) {
            break;
        }
    }
    return Trim<Units>(text, begin, end);
}

// The end of a line's content, and its first "=".
struct Content {
    std::size_t end;
    std::size_t equals = kNone;
};

template <typename Units>
Content ReadContent(std::string_view text, std::size_t first) {
    Content content{first};
    for (; content.end < text.size(); content.end += Units::kSize) {
        const wchar_t unit = Units::At(text, content.end);
        if (IsBreak(unit)) {
            break;
        }
        if (unit == L'=' && content.equals == kNone) {
            content.equals = content.end;
        }
    }
    return content;
}

// The start of the line behind the one whose content ends at `end`.
template <typename Units>
std::size_t NextLine(std::string_view text, std::size_t end) {
    if (end >= text.size()) {
        return end;
    }
    const std::size_t next = end + Units::kSize;
    const bool isPair = Units::At(text, end) == L'\r' && next < text.size() && Units::At(text, next) == L'\n';
    return isPair ? next + Units::kSize : next;
}

template <typename Units>
ProfileLine ReadLine(TextEncoding encoding, std::string_view text, std::size_t position) {
    constexpr std::size_t size = Units::kSize;
    std::size_t first = position;
    while (first < text.size() && IsBlank(Units::At(text, first))) {
        first += size;
    }
    const auto [end, equals] = ReadContent<Units>(text, first);
    ProfileLine line{.encoding = encoding, .begin = position, .end = end, .next = NextLine<Units>(text, end)};
    if (first == end) {
        return line;
    }
    switch (Units::At(text, first)) {
        case L';':
            line.kind = ProfileLine::Kind::Comment;
            break;
        case L'[':
            line.kind = ProfileLine::Kind::Section;
            line.name = SectionName<Units>(encoding, text, first + size, end);
            break;
        default:
            line.kind = ProfileLine::Kind::Key;
            line.hasValue = equals != kNone;
            line.name = Trim<Units>(text, first, line.hasValue ? equals : end);
            line.value = line.hasValue ? Trim<Units>(text, equals + size, end) : std::string_view();
    }
    return line;
}

template <typename Units>
std::size_t FindOpeningBracket(std::string_view text, std::size_t position) {
    if constexpr (Units::kSize == 1) {
        return std::min(text.find('[', position), text.size());
    } else {
        while (position < text.size() && Units::At(text, position) != L'[') {
            position += Units::kSize;
        }
        return position;
    }
}

template <typename Units>
std::size_t FindSection(std::string_view text, std::size_t position) {
    for (std::size_t from = position; from < text.size(); from += Units::kSize) {
        from = FindOpeningBracket<Units>(text, from);
        std::size_t begin = from;
        while (begin > position && IsBlank(Units::At(text, begin - Units::kSize))) {
            begin -= Units::kSize;
        }
        if (from < text.size() && (begin == position || IsBreak(Units::At(text, begin - Units::kSize)))) {
            return begin;
        }
    }
    return text.size();
}

class CNameHasher {
public:
    void Add(wchar_t unit) {
        if (unit >= L'0' && unit <= L'9') {
            m_number = m_number * 10 + static_cast<std::uint32_t>(unit - L'0');
            ++m_digits;
            return;
        }
        if (m_digits > 0) {
            m_hash = Mixed(m_hash, m_number);
        }
        m_hash = Mixed(m_hash, m_digits << 16 ^ static_cast<std::uint32_t>(ToUpper(unit)));
        m_number = 0;
        m_digits = 0;
    }
    [[nodiscard]] NameHash Result() const {
        const std::uint32_t place = Mixed(m_hash, m_digits) + m_number;
        return {place, Mixed(place, m_hash)};
    }

private:
    static std::uint32_t Mixed(std::uint32_t hash, std::uint32_t more) {
        hash = (hash ^ more) * 0x9e3779b1U;
        return hash ^ hash >> 15;
    }

    std::uint32_t m_hash = 0;
    std::uint32_t m_number = 0;  // the digits at the end of the units added so far, and their count
    std::uint32_t m_digits = 0;
};

}  // namespace

ProfileLine ReadProfileLine(TextEncoding encoding, std::string_view text, std::size_t position) {
    return WithUnits(encoding,
                     [=]<typename Units>(Units) { return ReadLine<Units>(encoding, text, position); });
}

std::size_t FindSectionLine(TextEncoding encoding, std::string_view text, std::size_t position) {
    return WithUnits(encoding, [=]<typename Units>(Units) { return FindSection<Units>(text, position); });
}

std::wstring DecodeName(const ProfileLine& line) {
    std::wstring name;
    AppendDecoded(line.encoding, line.name, name);
    if (line.kind == ProfileLine::Kind::Section) {
        name.resize(std::min(name.find(L']'), name.size()));
        while (!name.empty() && IsBlank(name.back())) {
            name.pop_back();
        }
    }
    return name;
}

void AppendLines(const ProfileFormat& format, std::string_view lines, std::string& text) {
    const bool isEnded = WithUnits(format.encoding, [&]<typename Units>(Units) {
        return text.size() < Units::kSize || IsBreak(Units::At(text, text.size() - Units::kSize));
    });
    if (!lines.empty() && !isEnded && text != ByteOrderMark(format.encoding)) {
        text += format.lineBreak;
    }
    text += lines;
}

bool HasName(const ProfileLine& line, std::wstring_view name) {
    return WithUnits(line.encoding, [&]<typename Units>(Units) {
        std::size_t i = 0;
        for (std::size_t offset = 0; offset < line.name.size(); offset += Units::kSize, ++i) {
            const wchar_t unit = Units::At(line.name, offset);
            if (Units::kSize == 1 && unit >= 0x80) {
                return EqualNoCase(DecodeName(line), name);
            }
            if (i == name.size() || (unit != name[i] && ToUpper(unit) != ToUpper(name[i]))) {
                return false;
            }
        }
        return i == name.size();
    });
}

NameHash HashName(std::wstring_view name) {
    CNameHasher hasher;
    for (const wchar_t unit : name) {
        hasher.Add(unit);
    }
    return hasher.Result();
}

NameHash HashName(const ProfileLine& line) {
    return WithUnits(line.encoding, [&]<typename Units>(Units) {
        CNameHasher hasher;
        for (std::size_t offset = 0; offset < line.name.size(); offset += Units::kSize) {
            const wchar_t unit = Units::At(line.name, offset);
            if (Units::kSize == 1 && unit >= 0x80) {
                return HashName(DecodeName(line));
            }
            hasher.Add(unit);
        }
        return hasher.Result();
    });
}
