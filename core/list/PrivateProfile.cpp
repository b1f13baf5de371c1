#include "core/list/PrivateProfile.h"

#include <algorithm>
#include <utility>

#include "core/list/StoredNumbers.h"

namespace {

using Kind = ProfileLine::Kind;

// The value as GetPrivateProfileString returns it: cut at a NUL, one pair of enclosing quotes removed.
std::wstring DecodeValue(const ProfileLine& line) {
    std::wstring value;
    AppendDecoded(line.encoding, line.value, value);
    value.resize(std::min(value.find(L'\0'), value.size()));
    if (value.size() > 1 && value.front() == value.back() &&
        (value.front() == L'"' || value.front() == L'\'')) {
        value.pop_back();
        value.erase(0, 1);
    }
    return value;
}

// Calls `visit` with each key line of the section until it returns false.
template <typename Visit>
void ForEachKey(TextEncoding encoding, std::string_view section, Visit visit) {
    for (std::size_t at = ReadProfileLine(encoding, section, 0).next; at < section.size();) {
        const ProfileLine line = ReadProfileLine(encoding, section, at);
        at = line.next;
        if (line.kind == Kind::Section || (line.kind == Kind::Key && !visit(line))) {
            return;
        }
    }
}

// The comments and blank lines of a section.
std::string WithoutKeys(TextEncoding encoding, std::string_view section) {
    std::string rest;
    for (std::size_t at = ReadProfileLine(encoding, section, 0).next; at < section.size();) {
        const ProfileLine line = ReadProfileLine(encoding, section, at);
        at = line.next;
        if (line.kind == Kind::Section) {
            break;
        }
        if (line.kind != Kind::Key) {
            rest += section.substr(line.begin, line.next - line.begin);
        }
    }
    return rest;
}

}  // namespace

CPrivateProfile::CPrivateProfile(std::string bytes) : m_text(std::move(bytes)), m_index(m_text) {}

// Reading.

std::optional<std::wstring> CPrivateProfile::GetString(std::wstring_view section,
                                                       std::wstring_view key) const {
    return std::move(GetStrings(section, {&key, 1}).front());
}

std::vector<std::optional<std::wstring>> CPrivateProfile::GetStrings(
    std::wstring_view section, std::span<const std::wstring_view> keys) const {
    std::vector<std::optional<std::wstring>> values(keys.size());
    const auto found = m_index.Find(m_text, section);
    if (!found) {
        return values;
    }
    std::vector<bool> seen(keys.size());
    std::size_t missing = keys.size();
    std::size_t next = 0;
    ForEachKey(m_text.Format().encoding, m_text.TextOf(*found), [&](const ProfileLine& line) {
        const std::size_t i = FindKey(line, keys, next, [](std::wstring_view key) { return key; });
        if (i != kNoKey && !seen[i]) {
            seen[i] = true;
            --missing;
            values[i] = line.hasValue ? std::optional(DecodeValue(line)) : std::nullopt;
        }
        return missing > 0;
    });
    return values;
}

std::int32_t CPrivateProfile::GetInt(std::wstring_view section, std::wstring_view key,
                                     std::int32_t missing) const {
    const auto value = GetString(section, key);
    if (!value || value->empty()) {
        return missing;
    }
    return ParseProfileInt(*value);
}

bool CPrivateProfile::IsEdited() const {
    return m_isConverted || m_text.IsEdited();
}

bool CPrivateProfile::IsEmpty() const {
    return m_text.IsEmpty();
}

bool CPrivateProfile::HasSection(std::wstring_view section) const {
    return m_index.Find(m_text, section).has_value();
}

void CPrivateProfile::ForEachSection(const std::function<void(std::wstring_view name)>& visit) const {
    for (auto at = m_text.First(); at < m_text.End(); at = m_text.FirstFrom(m_text.EndOf(at))) {
        visit(DecodeName(m_text.HeaderOf(at)));
    }
}

// Writing.

void CPrivateProfile::SetStrings(std::wstring_view section, std::span<const Entry> entries) {
    const auto found = m_index.Find(m_text, section);
    if (!found && entries.empty()) {
        return;
    }
    if (!(found ? TrySetInSection(*found, entries) : TryAddSection(section, entries))) {
        ConvertToUtf16();
        SetStrings(section, entries);
    }
}

bool CPrivateProfile::TrySetInSection(CProfileText::Position section, std::span<const Entry> entries) {
    m_text.AbsorbRemoved(section);
    std::string rewritten;
    const SectionEdit edit = EditSection(m_text.Format(), m_text.TextOf(section), entries, rewritten);
    if (edit == SectionEdit::Rewrite) {
        m_text.Replace(section, std::move(rewritten));
    }
    return edit != SectionEdit::NoFit;
}

bool CPrivateProfile::TryAddSection(std::wstring_view section, std::span<const Entry> entries) {
    std::string text;
    if (!TryWriteSection(m_text.Format(), section, entries, text)) {
        return false;
    }
    m_index.Add(m_text, m_text.Add(std::move(text)));
    return true;
}

bool CPrivateProfile::RemoveSection(std::wstring_view section) {
    const auto removed = m_index.Remove(m_text, section);
    if (removed) {
        m_text.Remove(*removed, WithoutKeys(m_text.Format().encoding, m_text.TextOf(*removed)));
    }
    return removed.has_value();
}

std::string CPrivateProfile::Serialise() const {
    return m_text.Serialise();
}

void CPrivateProfile::ConvertToUtf16() {
    const TextEncoding encoding = m_text.Format().encoding;
    const std::string bytes = m_text.Serialise();
    std::string converted(ByteOrderMark(TextEncoding::Utf16LE));
    converted.reserve(2 * bytes.size() + 2);
    std::wstring text;
    for (std::size_t at = ByteOrderMark(encoding).size(); at < bytes.size();) {
        const ProfileLine line = ReadProfileLine(encoding, bytes, at);
        text.clear();
        AppendDecoded(encoding, std::string_view(bytes).substr(at, line.end - at), text);
        AppendDecoded(encoding, std::string_view(bytes).substr(line.end, line.next - line.end), text);
        static_cast<void>(AppendEncoded(TextEncoding::Utf16LE, text, converted));
        at = line.next;
    }
    *this = CPrivateProfile(std::move(converted));
    m_isConverted = true;
}
