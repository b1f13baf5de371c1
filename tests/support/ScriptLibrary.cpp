#include "tests/support/ScriptLibrary.h"

#ifdef _WIN32
#include "script/ResourceScriptTexts.h"

const IScriptTexts& ScriptLibrary() {
    static const CResourceScriptTexts texts;
    return texts;
}
#else
#include <fstream>
#include <iterator>

#include "script/ScriptLanguages.h"
#include "script/ScriptTexts.h"
#include "util/AnsiText.h"
#include "util/CaseFold.h"

namespace {

class CScriptFiles : public IScriptTexts {
public:
    [[nodiscard]] std::wstring GetTemplate(std::int32_t wanted) const override {
        switch (wanted) {
#define SCRIPT_TEMPLATE(number, name, file) \
    case number:                            \
        return ReadText(file);
#define SCRIPT_CATALOGUE(title, name, file)
#include "script/ScriptTexts.def"
#undef SCRIPT_TEMPLATE
#undef SCRIPT_CATALOGUE
            default:
                return {};
        }
    }
    [[nodiscard]] std::wstring GetCatalogue(std::wstring_view language) const override {
#define SCRIPT_TEMPLATE(number, name, file)
#define SCRIPT_CATALOGUE(title, name, file) \
    if (EqualNoCase(language, k##title)) {  \
        return ReadText(file);              \
    }
#include "script/ScriptTexts.def"
#undef SCRIPT_TEMPLATE
#undef SCRIPT_CATALOGUE
        return {};
    }

private:
    static std::wstring ReadText(const char* file) {
        std::ifstream stream(std::string(SCV_CHECKOUT "/") + file, std::ios::binary);
        return DecodeAnsi(std::string(std::istreambuf_iterator<char>(stream), {}));
    }
};

}  // namespace

const IScriptTexts& ScriptLibrary() {
    static const CScriptFiles texts;
    return texts;
}
#endif
