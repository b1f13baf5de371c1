#include "ui/model/DirectRun.h"

std::wstring DirectRunFailure(const std::wstring& programPath, std::intptr_t shellResult) {
    if (shellResult > 32) {
        return {};
    }
    return L"Failure to run '" + programPath + L"'. Error: " + std::to_wstring(shellResult);
}
