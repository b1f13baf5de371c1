#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "util/StringArray.h"

class IScriptTexts;

// The function that a script is entered by, and what ends a script's lines.
inline constexpr wchar_t kMainFunction[] = L"Main";
inline constexpr std::wstring_view kLineBreak = L"\r\n";

// Makes scripts out of templates. A script's entry is a function Main ( text, url ) that returns the new
// text; a template is such a function and the helper that it calls with up to three values of the user's.
//
// Nothing here reports a failure: whatever script a user has, a text comes back. Scripts are searched as
// plain text, so comments and strings of theirs count like code.
class CScriptGenerator {
public:
    // What the dialogs and the generator pass to each other.
    struct stTemplate {
        std::int32_t number = -1;  // -1 for none
        CStringArray params;       // missing ones are empty, those after the third are ignored
    };
    // The templates that the lists of a language offer; first is greater than last when there are none.
    struct stNumberRange {
        std::int32_t first;
        std::int32_t last;
    };

    // The texts must outlive the generator.
    explicit CScriptGenerator(const IScriptTexts& texts) noexcept : m_texts(texts) {}

    // Case does not count in the language's name.
    [[nodiscard]] static stNumberRange GetTemplateNumbers(std::wstring_view language) noexcept;

    // The template with its values filled in and its main function named `mainName`; empty without a
    // template. Only the exact name "VBScript" means that language here, any other is written as JScript.
    //
    // In JScript the helper receives each value as it stands. In VBScript a value with line breaks does so
    // unless it holds double quotes as well, which are not doubled then; one with the word vbNewLine or vbTab
    // is an expression of the user's; any other is received as it stands. A value with the text of a later
    // placeholder, or of the main function's, has that filled in.
    [[nodiscard]] std::wstring InstantiateTemplate(std::wstring_view language, const stTemplate* record,
                                                   std::wstring_view mainName) const;

    // A whole script in one step: each template's main function receives what the one before returned.
    // Without records, empty.
    [[nodiscard]] std::wstring GenerateScript(std::wstring_view language,
                                              std::span<const stTemplate> records) const;

    // The script with one more template: its main function, under a name that is free, receives what Main
    // returned so far. A script whose main function has no result statement of the usual form gets the
    // functions only. Empty without a record.
    [[nodiscard]] std::wstring AddToScript(std::wstring_view language, std::wstring_view script,
                                           const stTemplate* record) const;

    // The helper's name and parameters, as in "Left_String ( text , searchFor , reverseSearch )"; empty when
    // the template has no helper.
    [[nodiscard]] std::wstring GetTemplateSignature(std::int32_t number) const;
    // Empty when the template has no helper; such a template is not offered in lists.
    [[nodiscard]] std::wstring GetTemplateFunctionName(std::int32_t number) const;
    // From `firstIndex` on; 1 leaves out the text that every helper takes first.
    [[nodiscard]] CStringArray GetTemplateParamNames(std::int32_t number, std::ptrdiff_t firstIndex) const;
    // The comment line before the helper, without its marks.
    [[nodiscard]] std::wstring GetTemplateDescription(std::int32_t number) const;

private:
    const IScriptTexts& m_texts;
};
