#pragma once

#include "script/ScriptTexts.h"

// The texts in the executable's resources of type DATA. The string table has the resource name of each
// template, under the template's number.
class CResourceScriptTexts : public IScriptTexts {
public:
    [[nodiscard]] std::wstring GetTemplate(std::int32_t number) const override;
    [[nodiscard]] std::wstring GetCatalogue(std::wstring_view language) const override;
};
