#include "script/EditorText.h"

#include <utility>

#include "script/ScriptLanguages.h"
#include "util/Csv.h"
#include "util/WhiteSpace.h"

namespace {

constexpr std::wstring_view kTypedLineBreak = L"\\r\\n";

std::wstring Replaced(std::wstring_view text, std::wstring_view what, std::wstring_view with) {
    std::wstring result;
    for (std::size_t at = 0; (at = text.find(what)) != std::wstring_view::npos;) {
        result.append(text, 0, at).append(with);
        text.remove_prefix(at + what.size());
    }
    return result.append(text);
}

}  // namespace

std::int64_t CaretColumn(std::wstring_view script, std::int64_t position) {
    if (position <= 0) {
        return 1;
    }
    const std::size_t lineFeed = script.substr(0, static_cast<std::size_t>(position)).rfind(L'\n');
    return lineFeed == std::wstring_view::npos ? position : position - static_cast<std::int64_t>(lineFeed);
}

std::wstring CaretText(std::int64_t line, std::int64_t column) {
    return L"Ln " + std::to_wstring(line) + L", Col " + std::to_wstring(column);
}

std::wstring JoinResults(const CStringArray& results) {
    std::wstring text;
    for (const std::wstring& result : results) {
        if (!result.empty()) {
            text.append(text.empty() ? L"" : kLineBreak).append(result);
        }
    }
    return text;
}

std::wstring ToParameterField(std::wstring_view value) {
    return Replaced(value, kLineBreak, kTypedLineBreak);
}

std::wstring FromParameterField(std::wstring_view text) {
    return Replaced(text, kTypedLineBreak, kLineBreak);
}

std::vector<std::wstring> CatalogueEntries(std::wstring_view catalogue) {
    CCsv lines;
    lines.Split(catalogue, L'\n', false, false);
    std::vector<std::wstring> entries;
    for (const std::wstring& line : lines) {
        if (const std::wstring_view entry = Trim(line); !entry.empty()) {
            entries.emplace_back(entry);
        }
    }
    return entries;
}

std::vector<stOfferedTemplate> OfferedTemplates(const CScriptGenerator& generator,
                                                std::wstring_view language) {
    const CScriptGenerator::stNumberRange numbers = CScriptGenerator::GetTemplateNumbers(language);
    std::vector<stOfferedTemplate> offered;
    for (std::int32_t number = numbers.first; number <= numbers.last; ++number) {
        if (std::wstring name = generator.GetTemplateFunctionName(number); !name.empty()) {
            offered.push_back({number, std::move(name)});
        }
    }
    return offered;
}

stScriptFileType ScriptFileType(std::wstring_view language) {
    if (language == kVBScript) {
        return {L"VBScript (*.vbs)|*.vbs|Script Files(*.txt)|*.txt|All Files(*.*)|*.*||", L"vbs"};
    }
    if (language == kJScript) {
        return {L"Java Script (*.js)|*.js|Script Files(*.txt)|*.txt|All Files(*.*)|*.*||", L"js"};
    }
    return {L"VBScript (*.vbs)|*.vbs|Java Script (*.js)|*.js|Script Files(*.txt)|*.txt|All Files(*.*)|*.*||",
            nullptr};
}
