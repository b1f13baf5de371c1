#include "core/list/PrivateProfile.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

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

bool HasRepeatedKey(std::span<const CPrivateProfile::Entry> entries) {
    for (std::size_t i = 1; i < entries.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (EqualNoCase(entries[i].key, entries[j].key)) {
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
    std::wstring_view text = *value;
    while (!text.empty() && text.front() <= L' ') {
        text.remove_prefix(1);
    }
    const bool negative = text.starts_with(L'-');
    if (negative || text.starts_with(L'+')) {
        text.remove_prefix(1);
    }
    std::uint32_t base = 10;
    for (const auto& [prefix, prefixBase] :
         {std::pair(L"0x", 16U), std::pair(L"0o", 8U), std::pair(L"0b", 2U)}) {
        if (text.starts_with(prefix)) {
            base = prefixBase;
            text.remove_prefix(2);
            break;
        }
    }
    std::uint32_t number = 0;
    for (const wchar_t unit : text) {
        const wchar_t upper = ToUpper(unit);
        const auto digit = static_cast<std::uint32_t>(upper >= L'A' && upper <= L'F' ? upper - L'A' + 10
                                                      : unit >= L'0' && unit <= L'9' ? unit - L'0'
                                                                                     : 99);
        if (digit >= base) {
            break;
        }
        number = number * base + digit;
    }
    return static_cast<std::int32_t>(negative ? 0U - number : number);
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
    std::vector<EncodedEntry> encoded(entries.size());
    std::string name;
    bool fits = AppendEncoded(m_encoding, section, name);
    for (std::size_t i = 0; i < entries.size() && fits; ++i) {
        fits = AppendEncoded(m_encoding, entries[i].key, encoded[i].key) &&
               AppendEncoded(m_encoding, WithoutBreaks(entries[i].value), encoded[i].value);
    }
    if (!fits) {
        ConvertToUtf16();
        SetStrings(section, entries);
    } else if (const auto found = Find(section)) {
        SetInSection(*found, entries, encoded);
    } else if (!entries.empty()) {
        AddSection(section, encoded);
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
    if (!more.empty() && text != ByteOrderMark(m_encoding)) {
        const std::string_view last = std::string_view(text).substr(text.size() - unit);
        if (last != Encode(L"\n") && last != Encode(L"\r")) {
            text += m_lineBreak;
        }
    }
    text += more;
}

void CPrivateProfile::AppendLine(std::string& text, const EncodedEntry& entry) const {
    text += entry.key;
    text += Encode(L"=");
    text += entry.value;
    text += m_lineBreak;
}

void CPrivateProfile::AddSection(std::wstring_view section, std::span<const EncodedEntry> entries) {
    if (EndOfPositions() >= kRemoved - 1) {
        throw std::length_error("private-profile text with too many sections");  // GCOVR_EXCL_LINE
    }
    if (5 * (m_usedSlots + 1) > 4 * m_slots.size()) {
        GrowIndex();
    }
    std::string text = Encode(L"[") + Encode(section) + Encode(L"]") + m_lineBreak;
    for (const EncodedEntry& entry : entries) {
        AppendLine(text, entry);
    }
    const std::size_t slot = FindSlot(section);
    const Position position = EndOfPositions();
    m_added.push_back(Piece{std::move(text), position + 1});
    m_slots[slot] = position + 1;
    ++m_usedSlots;
}

void CPrivateProfile::SetInSection(Position section, std::span<const Entry> entries,
                                   std::span<const EncodedEntry> encoded) {
    AbsorbRemoved(section);
    const std::string_view text = SectionText(section);
    std::string edited;
    std::size_t copied = 0;                         // so far, from text to edited
    std::size_t insertAt = HeaderOf(section).next;  // behind the last line that is not blank
    std::vector<bool> seen(entries.size());
    std::size_t next = 0;
    std::size_t at = insertAt;
    while (at < text.size()) {
        const ProfileLine line = ReadProfileLine(m_encoding, text, at);
        if (line.kind == Kind::Section) {
            break;
        }
        at = line.next;
        if (line.kind != Kind::Blank) {
            insertAt = line.next;
        }
        const std::size_t i = line.kind == Kind::Key
                                  ? FindKey(line, entries, next, [](const Entry& entry) { return entry.key; })
                                  : kNotFound;
        if (i == kNotFound || seen[i]) {
            continue;
        }
        seen[i] = true;
        std::wstring decoded;
        if (line.hasValue && line.value != encoded[i].value) {
            AppendDecoded(m_encoding, line.value, decoded);
        }
        if (!line.hasValue ||
            (line.value != encoded[i].value && decoded != WithoutBreaks(entries[i].value))) {
            const auto nameEnd = static_cast<std::size_t>(line.name.data() - text.data()) + line.name.size();
            edited += text.substr(copied, nameEnd - copied);
            edited += Encode(L"=");
            edited += encoded[i].value;
            copied = line.end;
        }
    }
    const bool complete = std::find(seen.begin(), seen.end(), false) == seen.end();
    if (complete && copied == 0) {
        return;
    }
    if (!complete) {
        std::string added;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (!seen[i]) {
                AppendLine(added, encoded[i]);
            }
        }
        edited += text.substr(copied, insertAt - copied);
        AppendText(edited, added);
        copied = insertAt;
    }
    edited += text.substr(copied, at - copied);
    const Position end = EndOf(section);
    Replace(section, Piece{std::move(edited), end});
}

void CPrivateProfile::Replace(Position section, Piece piece) {
    const std::size_t size = Original().size();
    (section < size ? m_edited[section] : m_added[section - size]) = std::move(piece);
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
}
