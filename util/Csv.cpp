#include "util/Csv.h"

#include "util/WhiteSpace.h"

namespace {

std::wstring FieldValue(std::wstring_view field, wchar_t quote) {
    if (field.size() < 2 || field.front() != quote || field.back() != quote) {
        return std::wstring(Trim(field));
    }
    const std::wstring_view inner = field.substr(1, field.size() - 2);
    std::wstring value;
    value.reserve(inner.size());
    for (std::size_t i = 0; i < inner.size(); ++i) {
        value += inner[i];
        if (inner[i] == quote && i + 1 < inner.size() && inner[i + 1] == quote) {
            ++i;
        }
    }
    return value;
}

// Splits a text without NUL.
class CFieldScanner {
public:
    CFieldScanner(std::wstring_view text, wchar_t separator, bool allowQuotes, bool quotesAnywhere)
        : m_text(text),
          m_separator(separator),
          m_allowQuotes(allowQuotes),
          m_quotesAnywhere(quotesAnywhere) {}

    [[nodiscard]] bool IsAtEnd() const noexcept { return m_start > m_text.size(); }
    [[nodiscard]] std::wstring ReadField() {
        const std::size_t end = FindEnd();
        std::wstring value = FieldValue(m_text.substr(m_start, end - m_start), m_quote);
        const bool isLineEnd = IsAt(end, L'\r') && IsAt(end + 1, L'\n');
        m_start = end + (isLineEnd ? 2 : 1);
        return value;
    }

private:
    enum class State {
        Outside,  // outside quotes: separators count
        Inside,
        Doubled,  // at the first of two quotes, which do not close
    };

    [[nodiscard]] bool IsAt(std::size_t position, wchar_t unit) const {
        return position < m_text.size() && m_text[position] == unit;
    }
    [[nodiscard]] bool OpensQuotes(std::size_t position) const {
        return m_allowQuotes && (m_quotesAnywhere || position == m_start) &&
               (IsAt(position, L'"') || IsAt(position, L'\''));
    }
    [[nodiscard]] State StateAfter(State state, std::size_t position) {
        switch (state) {
            case State::Outside:
                if (!OpensQuotes(position)) {
                    return State::Outside;
                }
                m_quote = m_text[position];
                return State::Inside;
            case State::Inside:
                if (!IsAt(position, m_quote)) {
                    return State::Inside;
                }
                return IsAt(position + 1, m_quote) ? State::Doubled : State::Outside;
            case State::Doubled:
                break;
        }
        return State::Inside;
    }
    // The end of the field that starts at m_start.
    [[nodiscard]] std::size_t FindEnd() {
        State state = State::Outside;
        for (std::size_t i = m_start; i < m_text.size(); ++i) {
            state = StateAfter(state, i);
            if (state == State::Outside && m_text[i] == m_separator) {
                return i;
            }
        }
        return m_text.size();
    }

    std::wstring_view m_text;
    wchar_t m_separator;
    bool m_allowQuotes;
    bool m_quotesAnywhere;
    std::size_t m_start = 0;  // of the next field
    wchar_t m_quote = L'"';   // the quote that was opened last
};

}  // namespace

std::int32_t CCsv::Split(std::wstring_view text, wchar_t separator, bool allowQuotes, bool quotesAnywhere) {
    RemoveAll();
    text = text.substr(0, text.find(L'\0'));
    if (text.empty()) {
        return 0;
    }
    std::int32_t count = 0;
    for (CFieldScanner scanner(text, separator, allowQuotes, quotesAnywhere); !scanner.IsAtEnd(); ++count) {
        Add(scanner.ReadField());
    }
    return count;
}
