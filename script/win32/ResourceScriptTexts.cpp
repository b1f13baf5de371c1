#include "script/win32/ResourceScriptTexts.h"

#include <windows.h>

#include <array>

#include "script/ScriptLanguages.h"
#include "util/AnsiText.h"
#include "util/CaseFold.h"

namespace {

std::wstring ReadText(const wchar_t* name) {
    const HMODULE module = GetModuleHandleW(nullptr);
    const HRSRC resource = FindResourceW(module, name, L"DATA");
    const HGLOBAL loaded = resource == nullptr ? nullptr : LoadResource(module, resource);
    const void* bytes = loaded == nullptr ? nullptr : LockResource(loaded);
    if (bytes == nullptr) {
        return {};
    }
    return DecodeAnsi({static_cast<const char*>(bytes), SizeofResource(module, resource)});
}

}  // namespace

std::wstring CResourceScriptTexts::GetTemplate(std::int32_t number) const {
    std::array<wchar_t, 256> name{};
    // The system uses only 16 bits of the number.
    if (number < 0 || number > 0xFFFF ||
        LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(number), name.data(),
                    static_cast<int>(name.size())) == 0) {
        return {};
    }
    return ReadText(name.data());
}

std::wstring CResourceScriptTexts::GetCatalogue(std::wstring_view language) const {
#define SCRIPT_TEMPLATE(number, name, file)
#define SCRIPT_CATALOGUE(title, name, file) \
    if (EqualNoCase(language, k##title)) {  \
        return ReadText(L"" #name);         \
    }
#include "script/ScriptTexts.def"
#undef SCRIPT_TEMPLATE
#undef SCRIPT_CATALOGUE
    return {};
}
