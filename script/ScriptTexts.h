#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Provides the texts of templates and catalogues: from the program's resources, or in tests from the files of
// which the resources are made. Lines end with CR LF.
class IScriptTexts {
public:
    IScriptTexts() = default;
    IScriptTexts(const IScriptTexts&) = delete;
    IScriptTexts& operator=(const IScriptTexts&) = delete;
    virtual ~IScriptTexts() = default;

    // The template of that number (see ScriptTexts.def); empty when there is none.
    [[nodiscard]] virtual std::wstring GetTemplate(std::int32_t number) const = 0;
    // The built-in functions of the language, one per line; empty for an unknown language. Case does not
    // count in its name.
    [[nodiscard]] virtual std::wstring GetCatalogue(std::wstring_view language) const = 0;
};
