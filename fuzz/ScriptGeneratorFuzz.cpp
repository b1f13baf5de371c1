#include "script/ScriptGenerator.h"

#include <optional>

#include "fuzz/FuzzInput.h"
#include "script/ScriptLanguages.h"
#include "script/ScriptTexts.h"

namespace {

// Every template is `text`.
class COneTemplate : public IScriptTexts {
public:
    explicit COneTemplate(std::wstring text) : m_text(std::move(text)) {}
    [[nodiscard]] std::wstring GetTemplate(std::int32_t) const override { return m_text; }
    [[nodiscard]] std::wstring GetCatalogue(std::wstring_view) const override { return {}; }

private:
    std::wstring m_text;
};

// What a JScript engine makes of one string literal; nothing when it is none.
std::optional<std::wstring> JScriptValue(std::wstring_view literal) {
    std::wstring value;
    std::size_t at = 1;
    for (; at < literal.size() && literal[at] != L'"'; ++at) {
        wchar_t unit = literal[at];
        if (unit == L'\r' || unit == L'\n') {
            return {};
        }
        if (unit == L'\\' && ++at < literal.size()) {
            unit = literal[at] == L'r' ? L'\r' : literal[at] == L'n' ? L'\n' : literal[at];
        }
        value += unit;
    }
    return at + 1 == literal.size() ? std::optional(value) : std::nullopt;
}

// What a VBScript engine makes of string literals and vbNewLine joined by plus signs.
std::optional<std::wstring> VBScriptValue(std::wstring_view expression) {
    constexpr std::wstring_view kNewLine = L"vbNewLine";
    constexpr std::wstring_view kPlus = L" + ";
    std::wstring value;
    while (true) {
        if (expression.starts_with(kNewLine)) {
            value += L"\r\n";
            expression.remove_prefix(kNewLine.size());
        } else if (const std::size_t end = expression.find(L'"', 1);
                   expression.starts_with(L'"') && end != std::wstring::npos) {
            value += expression.substr(1, end - 1);
            expression.remove_prefix(end + 1);
        } else {
            return {};
        }
        if (expression.empty()) {
            return value;
        }
        if (!expression.starts_with(kPlus)) {
            return {};
        }
        expression.remove_prefix(kPlus.size());
    }
}

std::wstring WithVBScriptLineBreaks(const std::wstring& value) {
    std::wstring result;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] == L'\n' && at > 0 && value[at - 1] == L'\r') {
            continue;
        }
        result +=
            value[at] == L'\r' || value[at] == L'\n' ? std::wstring(L"\r\n") : std::wstring(1, value[at]);
    }
    return result;
}

void FillWith(const std::wstring& value) {
    if (value.find(L"%PARAM_") != std::wstring::npos || value.find(L"{{") != std::wstring::npos) {
        return;  // is filled in by itself
    }
    const COneTemplate text(L"\"%PARAM_1%\"");
    const CScriptGenerator generator(text);
    CScriptGenerator::stTemplate record;
    record.params.Add(value);
    Require(JScriptValue(generator.InstantiateTemplate(kJScript, &record, L"Main")) == value);
    // Quotes between line breaks are not doubled, and the words run together are torn apart even in a
    // literal.
    if (value.find_first_of(L"\r\n") != std::wstring::npos && value.find(L'"') == std::wstring::npos &&
        value.find(L"vbNewLinevbNewLine") == std::wstring::npos) {
        Require(VBScriptValue(generator.InstantiateTemplate(kVBScript, &record, L"Main")) ==
                WithVBScriptLineBreaks(value));
    }
}

// "Main = " and "return " are of one length.
void AddTo(std::wstring_view language, const std::wstring& script) {
    const COneTemplate text(L"{{MAIN_FUNCTION_NAME}}");
    const CScriptGenerator generator(text);
    const CScriptGenerator::stTemplate record;
    const std::wstring result = generator.AddToScript(language, script, &record);
    const std::size_t end = result.rfind(L"\r\n\r\nMain");
    const std::wstring name = result.substr(end + 4);
    const bool countsAsEmpty = script.find(L"Main") == 0 || script.find(L"Main") == std::wstring::npos;
    Require(countsAsEmpty ? name == L"Main" : script.find(name) == std::wstring::npos);
    // Either nothing is touched, or a call is put round something, and all before and after it stays.
    const std::size_t call = countsAsEmpty ? std::wstring::npos : result.find(name + L" (");
    if (call >= end) {
        Require(result == script + L"\r\n\r\n" + name);
        return;
    }
    constexpr std::wstring_view kClosing = L", url ) ";
    const std::wstring before = result.substr(0, call - std::wstring_view(L"Main = ").size());
    Require(script.starts_with(before));
    Require(script.substr(before.size()).find(language == kVBScript ? L"Main =" : L"return") == 0);
    bool same = false;
    for (std::size_t at = result.find(kClosing, call); at < end && !same;
         at = result.find(kClosing, at + 1)) {
        same = script.ends_with(result.substr(at + kClosing.size(), end - at - kClosing.size()));
    }
    Require(same);
}

}  // namespace

// The first byte chooses what the rest is: a user's value or, in either language, a user's script.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::wstring text = TextOf(data + 1, size - 1);
    if (data[0] % 3 == 0) {
        FillWith(text);
    } else {
        AddTo(data[0] % 3 == 1 ? kVBScript : kJScript, text);
    }
    return 0;
}
