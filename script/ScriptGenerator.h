#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "util/StringArray.h"

class IScriptTexts;

// The name of a script's entry function, and the line break of scripts.
inline constexpr wchar_t kMainFunction[] = L"Main";
inline constexpr std::wstring_view kLineBreak = L"\r\n";

// Makes scripts from templates. A script's entry is a function Main ( text, url ) that returns the new text.
// A template has such a function and a helper, which the function calls with up to three values from the
// user.
//
// No function here reports a failure: for any script of a user it returns a text. Scripts are searched as
// plain text, so comments and strings count like code.
class CScriptGenerator {
public:
    // What the dialogs and the generator pass to each other.
    struct stTemplate {
        std::int32_t number = -1;  // -1 for none
        CStringArray params;       // the values; missing ones are empty, those after the third are ignored
    };
    // The numbers of a language's templates; first is greater than last when there are none. The first
    // template is only a main function; the others are in the lists.
    struct stNumberRange {
        std::int32_t first;
        std::int32_t last;
    };

    // The texts must outlive the generator.
    explicit CScriptGenerator(const IScriptTexts& texts) noexcept : m_texts(texts) {}

    // Case does not count in the language's name.
    [[nodiscard]] static stNumberRange GetTemplateNumbers(std::wstring_view language) noexcept;

    // The template with its values filled in and its main function named `mainName`; empty without a
    // template. Here only the exact name "VBScript" means that language; any other name means JScript.
    //
    // In JScript the helper receives each value unchanged. In VBScript too, with two exceptions: in a value
    // with line breaks double quotes are not doubled, so that the script does not parse; any other value that
    // contains vbNewLine or vbTab is inserted as an expression. If a value contains a later placeholder or
    // that of the main function's name, the placeholder is replaced too.
    [[nodiscard]] std::wstring InstantiateTemplate(std::wstring_view language, const stTemplate* record,
                                                   std::wstring_view mainName) const;

    // A whole script: each template's main function receives the result of the one before. Empty without
    // records.
    [[nodiscard]] std::wstring GenerateScript(std::wstring_view language,
                                              std::span<const stTemplate> records) const;

    // The script with one more template, whose main function gets an unused name and receives the result that
    // Main returned before. If the main function has no result statement of the usual form, only the
    // functions are added. Empty without a record.
    [[nodiscard]] std::wstring AddToScript(std::wstring_view language, std::wstring_view script,
                                           const stTemplate* record) const;

    // The helper's name and parameters, as in "Left_String ( text , searchFor , reverseSearch )"; empty when
    // the template has no helper.
    [[nodiscard]] std::wstring GetTemplateSignature(std::int32_t number) const;
    // Empty when the template has no helper; such a template is not offered in lists.
    [[nodiscard]] std::wstring GetTemplateFunctionName(std::int32_t number) const;
    // The helper's parameters from index `firstIndex` on; 1 leaves out the text, the first one of every
    // helper.
    [[nodiscard]] CStringArray GetTemplateParamNames(std::int32_t number, std::ptrdiff_t firstIndex) const;
    // The comment line before the helper, without its marks.
    [[nodiscard]] std::wstring GetTemplateDescription(std::int32_t number) const;

private:
    const IScriptTexts& m_texts;
};
