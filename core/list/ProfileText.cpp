#include "core/list/ProfileText.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

CProfileText::CProfileText(std::string bytes) : m_bytes(std::move(bytes)) {
    if (m_bytes.size() >= kMaxPositions) {
        throw std::length_error("private-profile text of 2 GB or more");  // GCOVR_EXCL_LINE
    }
    m_format.encoding = DetectEncoding(m_bytes);
    const std::string_view text = Original();
    const std::size_t start = ByteOrderMark(m_format.encoding).size();
    const ProfileLine line =
        start < text.size() ? ReadProfileLine(m_format.encoding, text, start) : ProfileLine();
    if (line.next > line.end) {
        m_format.lineBreak = text.substr(line.end, line.next - line.end);
    } else {
        static_cast<void>(AppendEncoded(m_format.encoding, L"\r\n", m_format.lineBreak));
    }
}

// The bytes as read, with the byte-order mark, so that offsets stay the same, but without an odd last byte.
std::string_view CProfileText::Original() const {
    const std::string_view all = m_bytes;
    return all.substr(0, all.size() - (UnitSize(m_format.encoding) == 2 ? all.size() % 2 : 0));
}

const CProfileText::Piece* CProfileText::FindPiece(Position section) const {
    const std::size_t size = Original().size();
    if (section >= size) {
        return section - size < m_added.size() ? &m_added[section - size] : nullptr;
    }
    // A save edits the sections in order, so the next one is usually behind all edited ones.
    if (m_edited.empty() || m_edited.rbegin()->first < section) {
        return nullptr;
    }
    const auto edited = m_edited.find(section);
    return edited != m_edited.end() ? &edited->second : nullptr;
}

bool CProfileText::IsEmpty() const {
    return m_added.empty() && m_bytes.size() == ByteOrderMark(m_format.encoding).size();
}

CProfileText::Position CProfileText::First() const {
    return FirstFrom(static_cast<Position>(ByteOrderMark(m_format.encoding).size()));
}

CProfileText::Position CProfileText::FirstFrom(Position position) const {
    const std::string_view text = Original();
    while (position < End()) {
        const Piece* const piece = FindPiece(position);
        const std::size_t found = piece == nullptr    ? FindSectionLine(m_format.encoding, text, position)
                                  : piece->hasSection ? position
                                                      : piece->end;
        if (found == position) {
            break;
        }
        position = static_cast<Position>(found);
    }
    return position;
}

CProfileText::Position CProfileText::End() const {
    return static_cast<Position>(Original().size() + m_added.size());
}

CProfileText::Position CProfileText::EndOf(Position section) const {
    const Piece* const piece = FindPiece(section);
    if (piece != nullptr) {
        return piece->end;
    }
    const std::string_view text = Original();
    const std::size_t next = ReadProfileLine(m_format.encoding, text, section).next;
    return static_cast<Position>(FindSectionLine(m_format.encoding, text, next));
}

std::string_view CProfileText::TextOf(Position section) const {
    const Piece* const piece = FindPiece(section);
    return piece != nullptr ? piece->text : Original().substr(section);
}

ProfileLine CProfileText::HeaderOf(Position section) const {
    return ReadProfileLine(m_format.encoding, TextOf(section), 0);
}

CProfileText::Position CProfileText::Add(std::string text) {
    const Position position = End();
    if (position + 1 >= kMaxPositions) {
        throw std::length_error("private-profile text with too many sections");  // GCOVR_EXCL_LINE
    }
    m_added.push_back(Piece{std::move(text), position + 1});
    return position;
}

void CProfileText::AbsorbRemoved(Position section) {
    if (!m_hasRemoved) {
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
        AppendLines(m_format, next->text, whole.text);
        const Position taken = whole.end;
        whole.end = next->end;
        if (m_edited.erase(taken) == 0) {
            Put(taken, Piece{{}, whole.end, false});
        }
    }
    Put(section, std::move(whole));
}

void CProfileText::Replace(Position section, std::string text) {
    Put(section, Piece{std::move(text), EndOf(section)});
}

void CProfileText::Remove(Position section, std::string rest) {
    Put(section, Piece{std::move(rest), EndOf(section), false});
    m_hasRemoved = true;
}

void CProfileText::Put(Position section, Piece piece) {
    const std::size_t size = Original().size();
    if (section >= size) {
        m_added[section - size] = std::move(piece);
    } else {
        m_edited.insert_or_assign(m_edited.end(), section, std::move(piece));
    }
}

std::string CProfileText::Serialise() const {
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
        AppendLines(m_format, piece.text, bytes);
        at = std::min<std::size_t>(piece.end,
                                   text.size());  // the end is further if the piece absorbed added ones
    }
    bytes += text.substr(at);
    for (const Piece& piece : m_added) {
        AppendLines(m_format, piece.text, bytes);
    }
    bytes += std::string_view(m_bytes).substr(text.size());
    return bytes;
}
