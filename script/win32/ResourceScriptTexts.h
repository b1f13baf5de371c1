#pragma once

#include "script/ScriptTexts.h"

// The texts that the running executable carries: resources of type DATA. The name of a template's is the
// text of its number in the string table.
class CResourceScriptTexts : public IScriptTexts {
public:
    [[nodiscard]] std::wstring GetTemplate(std::int32_t number) const override;
    [[nodiscard]] std::wstring GetCatalogue(std::wstring_view language) const override;
};
