#include "script/ScriptGenerator.h"

#include "fuzz/FuzzInput.h"
#include "script/ScriptLanguages.h"
#include "script/ScriptTexts.h"

namespace {

// Template 0 is `text`; any other number is a script with a main function alone.
struct CTexts : IScriptTexts {
    [[nodiscard]] std::wstring GetTemplate(std::int32_t number) const override {
        return number == 0 ? text : L"{{MAIN_FUNCTION_NAME}}";
    }
    [[nodiscard]] std::wstring GetCatalogue(std::wstring_view) const override { return {}; }

    std::wstring text;
};

}  // namespace

// Uses the text as template, as value and as the script to which another one is added.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CTexts texts;
    texts.text = TextOf(data, size);
    const CScriptGenerator generator(texts);
    Require(generator.GetTemplateSignature(0).starts_with(generator.GetTemplateFunctionName(0)));
    static_cast<void>(generator.GetTemplateDescription(0));
    static_cast<void>(generator.GetTemplateParamNames(0, 1));
    CScriptGenerator::stTemplate record{.number = 0, .params = {}};
    record.params.Add(texts.text);
    for (const wchar_t* language : {kVBScript, kJScript}) {
        static_cast<void>(generator.InstantiateTemplate(language, &record, L"Main"));
        const CScriptGenerator::stTemplate main{.number = 1, .params = {}};
        const std::wstring result = generator.AddToScript(language, texts.text, &main);
        const std::wstring name = result.substr(result.rfind(L"\r\n\r\nMain") + 4);
        const std::size_t taken = texts.text.find(name);  // which does not count at the very beginning
        Require(taken == 0 || taken == std::wstring::npos);
    }
    return 0;
}
