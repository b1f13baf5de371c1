#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Where the texts of the script library come from: the program's resources, or in tests the files that those
// are made of. Lines end with CR LF.
class IScriptTexts {
public:
    IScriptTexts() = default;
    IScriptTexts(const IScriptTexts&) = delete;
    IScriptTexts& operator=(const IScriptTexts&) = delete;
    virtual ~IScriptTexts() = default;

    // The template of that number (see ScriptTexts.def); empty when there is none.
    [[nodiscard]] virtual std::wstring GetTemplate(std::int32_t number) const = 0;
    // What the language has built in, one entry a line; case does not count in the language's name, and an
    // unknown one has nothing.
    [[nodiscard]] virtual std::wstring GetCatalogue(std::wstring_view language) const = 0;
};
