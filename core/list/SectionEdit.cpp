#include "core/list/SectionEdit.h"

#include <algorithm>
#include <vector>

namespace {

using Kind = ProfileLine::Kind;

bool EndsALine(wchar_t unit) {
    return unit == L'\r' || unit == L'\n' || unit == 0;
}

// The value as it is written: a line break or NUL becomes a blank.
std::wstring WithoutBreaks(std::wstring value) {
    std::replace_if(value.begin(), value.end(), EndsALine, L' ');
    return value;
}

// Whether the line holds the entry's value already.
bool HoldsValue(const ProfileLine& line, const ProfileEntry& entry) {
    std::wstring decoded;
    AppendDecoded(line.encoding, line.value, decoded);
    return line.hasValue && decoded == WithoutBreaks(entry.value);
}

// "=" and the value. False when the encoding cannot hold it.
bool TryAppendValue(TextEncoding encoding, const std::wstring& value, std::string& text) {
    const bool isPlain = std::none_of(value.begin(), value.end(), EndsALine);
    return AppendEncoded(encoding, L"=", text) &&
           (isPlain ? AppendEncoded(encoding, value, text)
                    : AppendEncoded(encoding, WithoutBreaks(value), text));
}

// Whether the bytes are these characters, all of them printable ASCII. The loop has no early exit, so that
// compilers can vectorise it.
bool IsAscii(std::string_view bytes, std::wstring_view text) {
    unsigned differences = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned byte = static_cast<unsigned char>(bytes[i]);
        differences |= byte ^ static_cast<unsigned>(text[i]);
        differences |= byte - L' ' < 0x80U - L' ' ? 0U : 1U;
    }
    return differences == 0;
}

// Whether the line at `at` is exactly KEY=VALUE, in one byte per character and printable ASCII. If so, moves
// `at` behind the line. Nearly all lines of a list that is saved again are like this, and a save is fast
// because it neither decodes nor encodes them.
bool SkipLine(std::string_view text, std::size_t& at, const ProfileEntry& entry) {
    const std::size_t valueAt = at + entry.key.size() + 1;
    const std::size_t end = valueAt + entry.value.size();
    if (end >= text.size() || text[valueAt - 1] != '=' || !IsAscii(text.substr(at), entry.key) ||
        !IsAscii(text.substr(valueAt), entry.value)) {
        return false;
    }
    if (text[end] == '\n') {
        at = end + 1;
        return true;
    }
    if (text[end] != '\r' || end + 1 == text.size() || text[end + 1] != '\n') {
        return false;
    }
    at = end + 2;
    return true;
}

// Copies the text of a section and changes it on the way.
class CSectionRewriter {
public:
    CSectionRewriter(std::string_view old, std::string& rewritten) : m_old(old), m_new(rewritten) {
        m_new.clear();
    }

    [[nodiscard]] bool IsChanged() const noexcept { return m_copied > 0; }
    // Copies the old text up to `position`, unless that is copied already.
    void CopyTo(std::size_t position) {
        if (position > m_copied) {
            m_new.reserve(m_old.size() + kRoom);
            m_new += m_old.substr(m_copied, position - m_copied);
            m_copied = position;
        }
    }
    // False when the line's encoding cannot hold the value.
    [[nodiscard]] bool TryReplaceValue(const ProfileLine& line, const std::wstring& value) {
        CopyTo(static_cast<std::size_t>(line.name.data() - m_old.data()) + line.name.size());
        m_copied = line.end;
        return TryAppendValue(line.encoding, value, m_new);
    }

private:
    static constexpr std::size_t kRoom = 32;  // bytes: most values grow by a few digits at most

    std::string_view m_old;
    std::string& m_new;
    std::size_t m_copied = 0;
};

// The entries to set in a section, and which of their keys have been found in its lines so far.
class CEntryOrder {
public:
    // The first `seen` entries have been seen already.
    CEntryOrder(std::span<const ProfileEntry> entries, std::size_t seen)
        : m_entries(entries), m_seen(entries.size()), m_missing(entries.size() - seen), m_next(seen) {
        std::fill_n(m_seen.begin(), seen, true);
    }

    [[nodiscard]] bool IsAnyMissing() const noexcept { return m_missing > 0; }
    // If the line at `at` already holds the next entry, moves `at` behind it; see SkipLine.
    [[nodiscard]] bool TrySkipLine(std::string_view text, std::size_t& at) {
        if (m_next == m_entries.size() || m_seen[m_next] || !SkipLine(text, at, m_entries[m_next])) {
            return false;
        }
        MarkSeen(m_next);
        return true;
    }
    // The entry of the line's key, if no earlier line had that key; else null.
    [[nodiscard]] const ProfileEntry* Take(const ProfileLine& line) {
        const std::size_t i =
            FindKey(line, m_entries, m_next, [](const ProfileEntry& entry) { return entry.key; });
        if (i == kNoKey || m_seen[i]) {
            return nullptr;
        }
        MarkSeen(i);
        return &m_entries[i];
    }
    // Stops when `visit` returns false, and returns false then.
    template <typename Visit>
    [[nodiscard]] bool ForEachMissing(Visit visit) const {
        for (std::size_t i = 0; i < m_entries.size() && m_missing > 0; ++i) {
            if (!m_seen[i] && !visit(m_entries[i])) {
                return false;
            }
        }
        return true;
    }

private:
    void MarkSeen(std::size_t i) {
        m_seen[i] = true;
        --m_missing;
        m_next = i + 1;
    }

    std::span<const ProfileEntry> m_entries;
    std::vector<bool> m_seen;
    std::size_t m_missing;
    std::size_t m_next;
};

// False when the encoding cannot hold the entry.
bool TryAppendLine(const ProfileFormat& format, const ProfileEntry& entry, std::string& text) {
    const bool fits =
        AppendEncoded(format.encoding, entry.key, text) && TryAppendValue(format.encoding, entry.value, text);
    text += format.lineBreak;
    return fits;
}

// The number of entries, from the first on, that the lines from `at` on hold already. Moves `at` behind them.
std::size_t SkipLines(std::string_view section, std::size_t& at, std::span<const ProfileEntry> entries) {
    const auto other = std::find_if_not(entries.begin(), entries.end(), [&](const ProfileEntry& entry) {
        return SkipLine(section, at, entry);
    });
    return static_cast<std::size_t>(other - entries.begin());
}

}  // namespace

bool TryWriteSection(const ProfileFormat& format, std::wstring_view name,
                     std::span<const ProfileEntry> entries, std::string& text) {
    const bool fits = AppendEncoded(format.encoding, L"[", text) &&
                      AppendEncoded(format.encoding, name, text) &&
                      AppendEncoded(format.encoding, L"]", text);
    text += format.lineBreak;
    return fits && std::all_of(entries.begin(), entries.end(),
                               [&](const ProfileEntry& entry) { return TryAppendLine(format, entry, text); });
}

SectionEdit EditSection(const ProfileFormat& format, std::string_view section,
                        std::span<const ProfileEntry> entries, std::string& rewritten) {
    const bool isBytes = UnitSize(format.encoding) == 1;
    std::size_t at = ReadProfileLine(format.encoding, section, 0).next;
    const std::size_t held = isBytes ? SkipLines(section, at, entries) : 0;
    if (held == entries.size()) {
        return SectionEdit::None;
    }
    section = section.substr(0, FindSectionLine(format.encoding, section, at));
    CEntryOrder order(entries, held);
    CSectionRewriter rewriter(section, rewritten);
    std::size_t insertAt = at;  // behind the last line that is not blank
    while (at < section.size() && order.IsAnyMissing()) {
        if (isBytes && order.TrySkipLine(section, at)) {
            insertAt = at;
            continue;
        }
        const ProfileLine line = ReadProfileLine(format.encoding, section, at);
        at = line.next;
        insertAt = line.kind != Kind::Blank ? line.next : insertAt;
        const ProfileEntry* const entry = line.kind == Kind::Key ? order.Take(line) : nullptr;
        if (entry != nullptr && !HoldsValue(line, *entry) && !rewriter.TryReplaceValue(line, entry->value)) {
            return SectionEdit::NoFit;
        }
    }
    if (!order.IsAnyMissing() && !rewriter.IsChanged()) {
        return SectionEdit::None;
    }
    rewriter.CopyTo(insertAt);
    std::string added;
    const bool fits =
        order.ForEachMissing([&](const ProfileEntry& entry) { return TryAppendLine(format, entry, added); });
    AppendLines(format, added, rewritten);
    rewriter.CopyTo(section.size());
    return fits ? SectionEdit::Rewrite : SectionEdit::NoFit;
}
