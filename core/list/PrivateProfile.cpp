#include "core/list/PrivateProfile.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

#include "core/list/StoredNumbers.h"
#include "util/CaseFold.h"

namespace {

using Kind = ProfileLine::Kind;

// Marks in a slot of the index.
constexpr std::uint32_t kRepeated = 0x80000000U;  // more sections have that name
constexpr std::uint32_t kRemoved = 0x7fffffffU;

constexpr std::size_t kNotFound = static_cast<std::size_t>(-1);

// The text without what the platform's reader does not hand out.
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

std::wstring WithoutBreaks(std::wstring value) {
    std::replace_if(
        value.begin(), value.end(), [](wchar_t unit) { return unit == L'\r' || unit == L'\n' || unit == 0; },
        L' ');
    return value;
}

// The key that comes next in the callers' order is tried first.
template <typename Keys, typename KeyOf>
std::size_t FindKey(const ProfileLine& line, const Keys& keys, std::size_t& next, KeyOf keyOf) {
    for (std::size_t tried = 0; tried < keys.size(); ++tried) {
        const std::size_t i = next + tried < keys.size() ? next + tried : next + tried - keys.size();
        if (HasName(line, keyOf(keys[i]))) {
            next = i + 1;
            return i;
        }
    }
    return kNotFound;
}

// The slots that a name may be in, one after the other.
class CProbe {
public:
    // The number of slots is prime, so that any step leads to all of them.
    CProbe(NameHash hash, std::size_t slots)
        : m_slot(hash.place % slots), m_step(1 + hash.step % (slots - 1)), m_slots(slots) {}

    [[nodiscard]] std::size_t Slot() const { return m_slot; }
    void Next() {
        m_slot += m_step;
        m_slot -= m_slot < m_slots ? 0 : m_slots;
    }

private:
    std::size_t m_slot;
    std::size_t m_step;
    std::size_t m_slots;
};

std::size_t PrimeFrom(std::size_t number) {
    for (number |= 1U;; number += 2) {
        std::size_t divisor = 3;
        while (divisor * divisor <= number && number % divisor != 0) {
            divisor += 2;
        }
        if (divisor * divisor > number) {
            return number;
        }
    }
}

// Whether the line's value reads as the entry's will.
bool HoldsValue(const ProfileLine& line, const CPrivateProfile::Entry& entry) {
    std::wstring decoded;
    AppendDecoded(line.encoding, line.value, decoded);
    return line.hasValue && decoded == WithoutBreaks(entry.value);
}

// Whether the text goes on with KEY=VALUE at `at`, in ASCII without any control character. Then `at` is moved
// behind that line. Nearly all lines of a list that is saved again are so; neither decoding nor encoding them
// is what makes the save quick.
bool SkipLine(std::string_view text, std::size_t& at, const CPrivateProfile::Entry& entry) {
    const auto equals = [](char byte, wchar_t unit) {
        return unit >= L' ' && unit < 0x80 && byte == static_cast<char>(unit);
    };
    const std::size_t valueAt = at + entry.key.size() + 1;
    const std::size_t end = valueAt + entry.value.size();
    if (end >= text.size() || text[valueAt - 1] != '=' ||
        !std::equal(entry.key.begin(), entry.key.end(), text.begin() + static_cast<std::ptrdiff_t>(at),
                    [&](wchar_t unit, char byte) { return equals(byte, unit); }) ||
        !std::equal(entry.value.begin(), entry.value.end(),
                    text.begin() + static_cast<std::ptrdiff_t>(valueAt),
                    [&](wchar_t unit, char byte) { return equals(byte, unit); })) {
        return false;
    }
    if (text[end] == '\n') {
        at = end + 1;
        return true;
    }
    if (text.substr(end, 2) != "\r\n") {
        return false;
    }
    at = end + 2;
    return true;
}

// Copies the text of a section and changes it on the way.
class CSectionRewriter {
public:
    explicit CSectionRewriter(std::string_view text) : m_old(text) {}

    [[nodiscard]] bool IsChanged() const noexcept { return m_copied > 0; }
    // Of the old text up to `position`; nothing when that is copied already.
    void CopyTo(std::size_t position) {
        if (position > m_copied) {
            m_new += m_old.substr(m_copied, position - m_copied);
            m_copied = position;
        }
    }
    // The line keeps its indentation, its key's spelling and its line break. False when its encoding cannot
    // hold the value.
    [[nodiscard]] bool TryReplaceValue(const ProfileLine& line, const std::wstring& value) {
        CopyTo(static_cast<std::size_t>(line.name.data() - m_old.data()) + line.name.size());
        m_copied = line.end;
        return AppendEncoded(line.encoding, L"=", m_new) &&
               AppendEncoded(line.encoding, WithoutBreaks(value), m_new);
    }
    [[nodiscard]] std::string& Text() noexcept { return m_new; }

private:
    std::string_view m_old;
    std::size_t m_copied = 0;
    std::string m_new;
};

// The entries that are to be set in a section, and which of them its lines have shown so far.
class CEntryOrder {
public:
    explicit CEntryOrder(std::span<const CPrivateProfile::Entry> entries)
        : m_entries(entries), m_seen(entries.size()), m_missing(entries.size()) {}

    [[nodiscard]] bool IsAnyMissing() const noexcept { return m_missing > 0; }
    // Moves `at` behind the line there when that is the next entry's already; see SkipLine.
    [[nodiscard]] bool TrySkipLine(std::string_view text, std::size_t& at) {
        if (m_next == m_entries.size() || m_seen[m_next] || !SkipLine(text, at, m_entries[m_next])) {
            return false;
        }
        MarkSeen(m_next);
        return true;
    }
    // The entry of the line's key, if no earlier line had that key; else null.
    [[nodiscard]] const CPrivateProfile::Entry* Take(const ProfileLine& line) {
        const std::size_t i =
            FindKey(line, m_entries, m_next, [](const CPrivateProfile::Entry& entry) { return entry.key; });
        if (i == kNotFound || m_seen[i]) {
            return nullptr;
        }
        MarkSeen(i);
        return &m_entries[i];
    }
    // Until `visit` returns false, and then false.
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

    std::span<const CPrivateProfile::Entry> m_entries;
    std::vector<bool> m_seen;
    std::size_t m_missing;
    std::size_t m_next = 0;
};

bool HasRepeatedKey(std::span<const CPrivateProfile::Entry> entries) {
    for (std::size_t i = 1; i < entries.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const std::wstring_view left = entries[i].key;
            const std::wstring_view right = entries[j].key;
            // Most keys differ in their length or at their end.
            if (left.size() == right.size() &&
                (left.empty() || ToUpper(left.back()) == ToUpper(right.back())) && EqualNoCase(left, right)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

CPrivateProfile::CPrivateProfile(std::string bytes)
    : m_bytes(std::move(bytes)), m_encoding(DetectEncoding(m_bytes)) {
    if (m_bytes.size() >= kRemoved) {
        throw std::length_error("private-profile text of 2 GB or more");  // GCOVR_EXCL_LINE
    }
    const std::string_view text = Original();
    const std::size_t start = ByteOrderMark(m_encoding).size();
    const ProfileLine line = start < text.size() ? ReadProfileLine(m_encoding, text, start) : ProfileLine();
    m_lineBreak =
        line.next > line.end ? std::string(text.substr(line.end, line.next - line.end)) : Encode(L"\r\n");
    // A task takes some 400 bytes. The table may not cost more than twice the text, whatever that is: there
    // are no more than 66,000 names of at most two bytes, and any other takes five bytes with its bracket and
    // line break, so that a slot for every four bytes and 84,000 more are always enough.
    if (!MakeIndex(text.size() / 64 + 16) && !MakeIndex(text.size() / 16 + 16)) {
        static_cast<void>(MakeIndex(text.size() / 4 + 84000));
    }
}

// Reading.

// With the byte-order mark, so that offsets are the same, and without an odd last byte.
std::string_view CPrivateProfile::Original() const {
    const std::string_view all = m_bytes;
    return all.substr(0, all.size() - (UnitSize(m_encoding) == 2 ? all.size() % 2 : 0));
}

const CPrivateProfile::Piece* CPrivateProfile::FindPiece(Position section) const {
    const std::size_t size = Original().size();
    if (section >= size) {
        return section - size < m_added.size() ? &m_added[section - size] : nullptr;
    }
    // A save of all sections edits one after the other.
    if (m_edited.empty() || m_edited.rbegin()->first < section) {
        return nullptr;
    }
    const auto edited = m_edited.find(section);
    return edited != m_edited.end() ? &edited->second : nullptr;
}

// Behind the last section, edits included.
CPrivateProfile::Position CPrivateProfile::EndOfPositions() const {
    return static_cast<Position>(Original().size() + m_added.size());
}

// From the header on; at least to the end of the section.
std::string_view CPrivateProfile::SectionText(Position section) const {
    const Piece* const piece = FindPiece(section);
    return piece != nullptr ? piece->text : Original().substr(section);
}

ProfileLine CPrivateProfile::HeaderOf(Position section) const {
    return ReadProfileLine(m_encoding, SectionText(section), 0);
}

CPrivateProfile::Position CPrivateProfile::EndOf(Position section) const {
    const Piece* const piece = FindPiece(section);
    if (piece != nullptr) {
        return piece->end;
    }
    const std::string_view text = Original();
    const std::size_t next = ReadProfileLine(m_encoding, text, section).next;
    return static_cast<Position>(FindSectionLine(m_encoding, text, next));
}

// The first section that is not removed at or after `position`, which is the start or end of one;
// EndOfPositions() when there is none.
CPrivateProfile::Position CPrivateProfile::FirstSectionFrom(Position position) const {
    const std::string_view text = Original();
    while (position < EndOfPositions()) {
        const Piece* const piece = FindPiece(position);
        const std::size_t found = piece == nullptr    ? FindSectionLine(m_encoding, text, position)
                                  : piece->hasSection ? position
                                                      : piece->end;
        if (found == position) {
            break;
        }
        position = static_cast<Position>(found);
    }
    return position;
}

std::optional<std::wstring> CPrivateProfile::GetString(std::wstring_view section,
                                                       std::wstring_view key) const {
    return std::move(GetStrings(section, {&key, 1}).front());
}

std::vector<std::optional<std::wstring>> CPrivateProfile::GetStrings(
    std::wstring_view section, std::span<const std::wstring_view> keys) const {
    std::vector<std::optional<std::wstring>> values(keys.size());
    const auto found = Find(section);
    if (!found) {
        return values;
    }
    const std::string_view text = SectionText(*found);
    std::vector<bool> seen(keys.size());
    std::size_t missing = keys.size();
    std::size_t next = 0;
    for (std::size_t at = HeaderOf(*found).next; at < text.size() && missing > 0;) {
        const ProfileLine line = ReadProfileLine(m_encoding, text, at);
        at = line.next;
        if (line.kind == Kind::Section) {
            break;
        }
        if (line.kind != Kind::Key) {
            continue;
        }
        const std::size_t i = FindKey(line, keys, next, [](std::wstring_view key) { return key; });
        if (i == kNotFound || seen[i]) {
            continue;
        }
        seen[i] = true;
        --missing;
        if (line.hasValue) {
            values[i] = DecodeValue(line);
        }
    }
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
    return m_isConverted || !m_edited.empty() || !m_added.empty();
}

bool CPrivateProfile::IsEmpty() const {
    return m_added.empty() && m_bytes.size() == ByteOrderMark(m_encoding).size();
}

bool CPrivateProfile::HasSection(std::wstring_view section) const {
    return Find(section).has_value();
}

void CPrivateProfile::ForEachSection(const std::function<void(std::wstring_view name)>& visit) const {
    auto section = FirstSectionFrom(static_cast<Position>(ByteOrderMark(m_encoding).size()));
    for (; section < EndOfPositions(); section = FirstSectionFrom(EndOf(section))) {
        visit(DecodeName(HeaderOf(section)));
    }
}

// The index.

// False when there are too many sections for that many slots.
bool CPrivateProfile::MakeIndex(std::size_t slots) {
    m_slots.assign(PrimeFrom(slots), 0);
    m_usedSlots = 0;
    const std::string_view text = Original();
    for (auto at = FindSectionLine(m_encoding, text, ByteOrderMark(m_encoding).size()); at < text.size();) {
        const ProfileLine header = ReadProfileLine(m_encoding, text, at);
        CProbe probe(HashName(header), m_slots.size());
        std::wstring name;
        for (; m_slots[probe.Slot()] != 0; probe.Next()) {
            if (name.empty()) {
                name = DecodeName(header);
            }
            if (HasName(HeaderOf((m_slots[probe.Slot()] & ~kRepeated) - 1), name)) {
                break;
            }
        }
        Position& slot = m_slots[probe.Slot()];
        if (slot != 0) {
            slot |= kRepeated;
        } else {
            slot = static_cast<Position>(at + 1);
            if (5 * ++m_usedSlots > 4 * m_slots.size()) {
                return false;
            }
        }
        at = FindSectionLine(m_encoding, text, header.next);
    }
    return true;
}

void CPrivateProfile::GrowIndex() {
    std::vector<Position> old = std::exchange(m_slots, {});
    std::erase_if(old, [](Position slot) { return slot == 0 || slot == kRemoved; });
    m_usedSlots = old.size();
    m_slots.assign(PrimeFrom(4 * m_usedSlots + 16), 0);
    for (const Position entry : old) {
        CProbe probe(HashName(HeaderOf((entry & ~kRepeated) - 1)), m_slots.size());
        while (m_slots[probe.Slot()] != 0) {
            probe.Next();
        }
        m_slots[probe.Slot()] = entry;
    }
}

// The slot of the section, or the free one where it would be.
std::size_t CPrivateProfile::FindSlot(std::wstring_view section) const {
    CProbe probe(HashName(section), m_slots.size());
    for (;; probe.Next()) {
        const Position slot = m_slots[probe.Slot()];
        if (slot == 0 || (slot != kRemoved && HasName(HeaderOf((slot & ~kRepeated) - 1), section))) {
            return probe.Slot();
        }
    }
}

std::optional<CPrivateProfile::Position> CPrivateProfile::Find(std::wstring_view section) const {
    const Position found = m_slots[FindSlot(section)];
    return found == 0 ? std::nullopt : std::optional<Position>((found & ~kRepeated) - 1);
}

// Writing.

void CPrivateProfile::SetStrings(std::wstring_view section, std::span<const Entry> entries) {
    if (HasRepeatedKey(entries)) {
        for (const Entry& entry : entries) {
            SetStrings(section, {&entry, 1});
        }
        return;
    }
    const auto found = Find(section);
    if (!found && entries.empty()) {
        return;
    }
    if (!(found ? TrySetInSection(*found, entries) : TryAddSection(section, entries))) {
        ConvertToUtf16();
        SetStrings(section, entries);
    }
}

bool CPrivateProfile::RemoveSection(std::wstring_view section) {
    const std::size_t slot = FindSlot(section);
    if (m_slots[slot] == 0) {
        return false;
    }
    const bool repeated = (m_slots[slot] & kRepeated) != 0;
    const Position position = (m_slots[slot] & ~kRepeated) - 1;
    const Position end = EndOf(position);
    const std::string_view text = SectionText(position);
    std::string rest;
    for (std::size_t at = HeaderOf(position).next; at < text.size();) {
        const ProfileLine line = ReadProfileLine(m_encoding, text, at);
        at = line.next;
        if (line.kind == Kind::Section) {
            break;
        }
        if (line.kind != Kind::Key) {
            rest += text.substr(line.begin, line.next - line.begin);
        }
    }
    m_slots[slot] = kRemoved;
    Replace(position, Piece{std::move(rest), end, false});
    if (repeated) {
        Position next = FirstSectionFrom(end);
        while (next < EndOfPositions() && !HasName(HeaderOf(next), section)) {
            next = FirstSectionFrom(EndOf(next));
        }
        if (next < EndOfPositions()) {
            m_slots[slot] = (next + 1) | kRepeated;  // perhaps no more: then the next search finds none
        }
    }
    return true;
}

std::string CPrivateProfile::Serialise() const {
    const std::string_view text = Original();
    std::string bytes;
    std::size_t size = m_bytes.size();
    for (const auto& [position, piece] : m_edited) {
        size += piece.text.size();
    }
    for (const Piece& piece : m_added) {
        size += piece.text.size();
    }
    bytes.reserve(size);
    std::size_t at = 0;
    for (const auto& [position, piece] : m_edited) {
        bytes += text.substr(at, position - at);
        AppendText(bytes, piece.text);
        at = std::min<std::size_t>(piece.end, text.size());  // the end can lie behind removed added sections
    }
    bytes += text.substr(at);
    for (const Piece& piece : m_added) {
        AppendText(bytes, piece.text);
    }
    bytes += std::string_view(m_bytes).substr(text.size());
    return bytes;
}

std::string CPrivateProfile::Encode(std::wstring_view text) const {
    std::string bytes;
    static_cast<void>(AppendEncoded(m_encoding, text, bytes));
    return bytes;
}

// Appends lines, ending the one before them if nothing does. `text` is a piece or everything so far.
void CPrivateProfile::AppendText(std::string& text, std::string_view more) const {
    const std::size_t unit = UnitSize(m_encoding);
    if (!more.empty() && !text.empty() && text != ByteOrderMark(m_encoding)) {
        const std::size_t low = text.size() - (m_encoding == TextEncoding::Utf16LE ? 2 : 1);
        const bool isAscii =
            unit == 1 || text[text.size() - (m_encoding == TextEncoding::Utf16LE ? 1 : 2)] == 0;
        if (!isAscii || (text[low] != '\n' && text[low] != '\r')) {
            text += m_lineBreak;
        }
    }
    text += more;
}

// False when the encoding cannot hold the entry.
bool CPrivateProfile::TryAppendLine(std::string& text, const Entry& entry) const {
    const bool fits = AppendEncoded(m_encoding, entry.key, text) && AppendEncoded(m_encoding, L"=", text) &&
                      AppendEncoded(m_encoding, WithoutBreaks(entry.value), text);
    text += m_lineBreak;
    return fits;
}

bool CPrivateProfile::TryAddSection(std::wstring_view section, std::span<const Entry> entries) {
    if (EndOfPositions() >= kRemoved - 1) {
        throw std::length_error("private-profile text with too many sections");
    }
    std::string text = Encode(L"[");
    bool fits = AppendEncoded(m_encoding, section, text);
    text += Encode(L"]") + m_lineBreak;
    for (const Entry& entry : entries) {
        fits = fits && TryAppendLine(text, entry);
    }
    if (!fits) {
        return false;
    }
    if (5 * (m_usedSlots + 1) > 4 * m_slots.size()) {
        GrowIndex();
    }
    const std::size_t slot = FindSlot(section);
    const Position position = EndOfPositions();
    m_added.push_back(Piece{std::move(text), position + 1});
    m_slots[slot] = position + 1;
    ++m_usedSlots;
    return true;
}

bool CPrivateProfile::TrySetInSection(Position section, std::span<const Entry> entries) {
    AbsorbRemoved(section);
    const std::string_view text = SectionText(section);
    CEntryOrder order(entries);
    CSectionRewriter rewriter(text);
    std::size_t insertAt = HeaderOf(section).next;  // behind the last line that is not blank
    std::size_t at = insertAt;
    while (at < text.size() && order.IsAnyMissing()) {
        if (UnitSize(m_encoding) == 1 && order.TrySkipLine(text, at)) {
            insertAt = at;
            continue;
        }
        const ProfileLine line = ReadProfileLine(m_encoding, text, at);
        if (line.kind == Kind::Section) {
            break;
        }
        at = line.next;
        insertAt = line.kind != Kind::Blank ? line.next : insertAt;
        const Entry* const entry = line.kind == Kind::Key ? order.Take(line) : nullptr;
        if (entry != nullptr && !HoldsValue(line, *entry) && !rewriter.TryReplaceValue(line, entry->value)) {
            return false;
        }
    }
    if (!order.IsAnyMissing() && !rewriter.IsChanged()) {
        return true;
    }
    rewriter.CopyTo(insertAt);
    std::string added;
    const bool fits = order.ForEachMissing([&](const Entry& entry) { return TryAppendLine(added, entry); });
    AppendText(rewriter.Text(), added);
    rewriter.CopyTo(FindSectionLine(m_encoding, text, at));
    const Position end = EndOf(section);
    if (fits) {
        Replace(section, Piece{std::move(rewriter.Text()), end});
    }
    return fits;
}

void CPrivateProfile::Replace(Position section, Piece piece) {
    const std::size_t size = Original().size();
    if (section >= size) {
        m_added[section - size] = std::move(piece);
    } else {
        m_edited.insert_or_assign(m_edited.end(), section, std::move(piece));
    }
}

// What is left of removed sections behind a section belongs to it from now on.
void CPrivateProfile::AbsorbRemoved(Position section) {
    if (m_edited.empty() && m_added.empty()) {
        return;
    }
    const Position end = EndOf(section);
    const Piece* next = FindPiece(end);
    if (next == nullptr || next->hasSection) {
        return;
    }
    const Piece* const own = FindPiece(section);
    Piece whole{own != nullptr ? own->text : std::string(Original().substr(section, end - section)), end};
    for (; next != nullptr && !next->hasSection; next = FindPiece(whole.end)) {
        AppendText(whole.text, next->text);
        const Position taken = whole.end;
        whole.end = next->end;
        if (m_edited.erase(taken) == 0) {
            Replace(taken, Piece{{}, whole.end, false});
        }
    }
    Replace(section, std::move(whole));
}

void CPrivateProfile::ConvertToUtf16() {
    const std::string bytes = Serialise();
    std::string converted(ByteOrderMark(TextEncoding::Utf16LE));
    converted.reserve(2 * bytes.size() + 2);
    std::wstring text;
    for (std::size_t at = ByteOrderMark(m_encoding).size(); at < bytes.size();) {
        const ProfileLine line = ReadProfileLine(m_encoding, bytes, at);
        text.clear();
        AppendDecoded(m_encoding, std::string_view(bytes).substr(at, line.end - at), text);
        AppendDecoded(m_encoding, std::string_view(bytes).substr(line.end, line.next - line.end), text);
        static_cast<void>(AppendEncoded(TextEncoding::Utf16LE, text, converted));
        at = line.next;
    }
    *this = CPrivateProfile(std::move(converted));
    m_isConverted = true;
}
