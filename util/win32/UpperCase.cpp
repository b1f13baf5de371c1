#include "util/UpperCase.h"

#include <windows.h>

wchar_t SystemUpperCase(wchar_t unit) noexcept {
    CharUpperBuffW(&unit, 1);
    return unit;
}
