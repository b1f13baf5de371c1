#include "script/ScriptGenerator.h"

#include <algorithm>
#include <cstddef>

#include "script/ScriptLanguages.h"
#include "script/ScriptTexts.h"
#include "util/CaseFold.h"
#include "util/Csv.h"
#include "util/WhiteSpace.h"

namespace {

constexpr std::wstring_view kMainNameMark = L"{{MAIN_FUNCTION_NAME}}";
constexpr std::wstring_view kBlankLine = L"\r\n\r\n";
constexpr int kMostParams = 3;

// Replaces every `from`, from left to right. Inserted text is not searched again.
void ReplaceAll(std::wstring& text, std::wstring_view from, std::wstring_view to) {
    std::size_t begin = 0;
    std::size_t found = text.find(from);
    if (found == std::wstring::npos) {
        return;
    }
    std::wstring result;
    for (; found != std::wstring::npos; found = text.find(from, begin)) {
        result.append(text, begin, found - begin).append(to);
        begin = found + from.size();
    }
    text = std::move(result.append(text, begin));
}

// The first `part`; none when the text begins with it, even if it occurs again later.
std::size_t FindAfterStart(std::wstring_view text, std::wstring_view part) {
    const std::size_t found = text.find(part);
    return found == 0 ? std::wstring_view::npos : found;
}

// The value escaped for a JScript string literal.
std::wstring JScriptLiteral(std::wstring value) {
    ReplaceAll(value, L"\\", L"\\\\");
    ReplaceAll(value, L"\"", L"\\\"");
    ReplaceAll(value, L"\r", L"\\r");
    ReplaceAll(value, L"\n", L"\\n");
    return value;
}

// A value of several lines as a VBScript expression: "a" + vbNewLine + "b". Quotes inside the value are not
// doubled.
std::wstring VBScriptExpression(std::wstring value) {
    ReplaceAll(value, L"\r\n", L"\r");
    ReplaceAll(value, L"\n", L"\r");
    std::wstring expression;
    bool inLine = false;
    for (const wchar_t unit : value) {
        if ((unit != L'\r') != inLine) {
            expression += L'"';
            inLine = !inLine;
        }
        expression += unit;
    }
    if (inLine) {
        expression += L'"';
    }
    ReplaceAll(expression, L"\"\r\"", L"\" + vbNewLine + \"");
    ReplaceAll(expression, L"\r\"", L"vbNewLine + \"");
    ReplaceAll(expression, L"\"\r", L"\" + vbNewLine");
    ReplaceAll(expression, L"\r", L"vbNewLine");
    while (expression.find(L"vbNewLinevbNewLine") != std::wstring::npos) {
        ReplaceAll(expression, L"vbNewLinevbNewLine", L"vbNewLine + vbNewLine");
    }
    return expression;
}

void FillPlaceholder(std::wstring& text, std::wstring_view language, int index, std::wstring value) {
    const std::wstring placeholder = L"%PARAM_" + std::to_wstring(index) + L'%';
    if (language != kVBScript) {
        ReplaceAll(text, placeholder, JScriptLiteral(std::move(value)));
        return;
    }
    const std::wstring quoted = L'"' + placeholder + L'"';
    if (value.find_first_of(kLineBreak) != std::wstring::npos) {
        ReplaceAll(text, quoted, VBScriptExpression(std::move(value)));
    } else if (value.find(L"vbNewLine") != std::wstring::npos || value.find(L"vbTab") != std::wstring::npos) {
        ReplaceAll(text, quoted, value);
    } else {
        ReplaceAll(value, L"\"", L"\"\"");
        ReplaceAll(text, placeholder, value);
    }
}

// Wraps the result of the script's main function into a call of `mainName`.
void ChainResult(std::wstring& script, std::wstring_view language, std::wstring_view mainName) {
    const bool isVBScript = EqualNoCase(language, kVBScript);
    if (!isVBScript && !EqualNoCase(language, kJScript)) {
        return;
    }
    const std::wstring_view opening = isVBScript ? L"Main =" : L"return";
    const std::size_t begin = script.find(opening);
    const std::size_t end =
        begin == std::wstring::npos ? begin : script.find(isVBScript ? kLineBreak : L";", begin);
    if (end == std::wstring::npos) {
        return;
    }
    // In JScript the expression begins at the first space behind "return"; without a space before the end
    // directly behind the word.
    const std::size_t afterOpening = begin + opening.size();
    const std::size_t space = isVBScript ? afterOpening : script.find(L' ', afterOpening);
    const std::size_t expression = space < end ? space : afterOpening;

    const std::wstring chained = std::wstring(isVBScript ? L"Main = " : L"return ")
                                     .append(mainName)
                                     .append(L" (")
                                     .append(script, expression, end - expression)
                                     .append(L", url ) ");
    script.replace(begin, end - begin, chained);
}

}  // namespace

CScriptGenerator::stNumberRange CScriptGenerator::GetTemplateNumbers(std::wstring_view language) noexcept {
    if (EqualNoCase(language, kVBScript)) {
        return {61318, 61336};
    }
    if (EqualNoCase(language, kJScript)) {
        return {62001, 62015};
    }
    return {0, -1};
}

std::wstring CScriptGenerator::InstantiateTemplate(std::wstring_view language, const stTemplate* record,
                                                   std::wstring_view mainName) const {
    if (record == nullptr) {
        return {};
    }
    std::wstring text = m_texts.GetTemplate(record->number);
    for (int index = 1; index <= kMostParams; ++index) {
        FillPlaceholder(text, language, index,
                        index <= record->params.GetSize() ? record->params[index - 1] : std::wstring());
    }
    ReplaceAll(text, kMainNameMark, mainName);
    return text;
}

std::wstring CScriptGenerator::GenerateScript(std::wstring_view language,
                                              std::span<const stTemplate> records) const {
    if (records.empty()) {
        return {};
    }
    if (records.size() == 1) {
        return InstantiateTemplate(language, records.data(), kMainFunction);
    }
    std::wstring functions;
    std::wstring call = L"text";
    int number = 0;
    for (const stTemplate& record : records) {
        const std::wstring name = std::wstring(kMainFunction) + std::to_wstring(++number);
        const std::wstring text = InstantiateTemplate(language, &record, name);
        if (!text.empty()) {
            functions.append(kBlankLine).append(text);
            call = name + L'(' + call + L", url)";
        }
    }
    std::wstring wrapper;
    if (EqualNoCase(language, kVBScript)) {
        wrapper = L"Function Main ( text, url )\r\n\r\n\tMain = " + call + L"\r\n\r\nEnd Function";
    } else if (EqualNoCase(language, kJScript)) {
        wrapper = L"function Main ( text, url ) {\r\n\r\n\treturn " + call + L";\r\n\r\n}";
    } else {
        return functions;
    }
    return std::wstring(kLineBreak).append(wrapper).append(kBlankLine).append(Trim(functions));
}

std::wstring CScriptGenerator::AddToScript(std::wstring_view language, std::wstring_view script,
                                           const stTemplate* record) const {
    if (record == nullptr) {
        return {};
    }
    const bool hasMain = FindAfterStart(script, kMainFunction) != std::wstring_view::npos;
    std::wstring name(kMainFunction);
    for (int number = 2; FindAfterStart(script, name) != std::wstring_view::npos; ++number) {
        name = std::wstring(kMainFunction) + std::to_wstring(number);
    }
    std::wstring result(script);
    if (hasMain) {
        ChainResult(result, language, name);
    }
    return result.append(kBlankLine).append(InstantiateTemplate(language, record, name));
}

std::wstring CScriptGenerator::GetTemplateSignature(std::int32_t number) const {
    std::wstring text = m_texts.GetTemplate(number);
    ReplaceAll(text, L"  ", L" ");
    const std::size_t main = FindAfterStart(text, kMainNameMark);
    if (main != std::wstring::npos) {
        text.erase(0, main);
    }
    std::size_t helper = FindAfterStart(text, L"\r\nFunction");
    if (helper == std::wstring::npos) {
        helper = FindAfterStart(text, L"\r\nfunction");
    }
    const std::size_t begin = helper == std::wstring::npos ? helper : text.find(L' ', helper);
    const std::size_t end = begin == std::wstring::npos ? begin : text.find(L')', begin);
    if (end == std::wstring::npos) {
        return {};
    }
    return std::wstring(Trim(std::wstring_view(text).substr(begin, end + 1 - begin)));
}

std::wstring CScriptGenerator::GetTemplateFunctionName(std::int32_t number) const {
    const std::wstring signature = GetTemplateSignature(number);
    return std::wstring(Trim(std::wstring_view(signature).substr(0, signature.find(L'('))));
}

CStringArray CScriptGenerator::GetTemplateParamNames(std::int32_t number, std::ptrdiff_t firstIndex) const {
    const std::wstring signature = GetTemplateSignature(number);
    const std::size_t open = FindAfterStart(signature, L"(");
    CStringArray names;
    if (open == std::wstring::npos) {
        return names;
    }
    CCsv pieces;
    pieces.Split(std::wstring_view(signature).substr(open + 1, signature.rfind(L')') - open - 1), L',', false,
                 false);
    for (std::ptrdiff_t index = std::max<std::ptrdiff_t>(firstIndex, 0); index < pieces.GetSize(); ++index) {
        names.Add(pieces[index]);
    }
    return names;
}

std::wstring CScriptGenerator::GetTemplateDescription(std::int32_t number) const {
    const std::wstring text = m_texts.GetTemplate(number);
    std::size_t begin = text.find(L"\r\n'");
    if (begin == std::wstring::npos) {
        begin = text.find(L"\r\n//");
    }
    if (begin == std::wstring::npos || begin == 0) {
        return {};
    }
    const std::size_t end = text.find(kLineBreak, begin + kLineBreak.size());
    std::wstring_view line = Trim(std::wstring_view(text).substr(begin, end - begin));
    for (const wchar_t mark : {L'\'', L'/'}) {
        line.remove_prefix(std::min(line.find_first_not_of(mark), line.size()));
    }
    return std::wstring(Trim(line));
}
