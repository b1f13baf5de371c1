#include <clocale>
#include <cwctype>

#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is in no other

#include "util/UpperCase.h"

wchar_t SystemUpperCase(wchar_t unit) noexcept {
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return static_cast<wchar_t>(towupper_l(static_cast<wint_t>(unit), unicode));
}
