#include "ui/win32/StartupRegistration.h"

#include <windows.h>

#include "ui/model/StartUp.h"
#include "util/win32/ModulePath.h"
#include "util/win32/Registry.h"

namespace {

constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t kRunValue[] = L"SCVScheduler";

}  // namespace

bool IsStartedWithWindows() {
    std::wstring command;
    RegReadString(HKEY_CURRENT_USER, kRunKey, kRunValue, command);
    return !command.empty();
}

void StartWithWindows(bool start) {
    if (!start) {
        RegRemoveValue(HKEY_CURRENT_USER, kRunKey, kRunValue);
    } else if (const std::wstring path = GetModulePath(); !path.empty()) {
        RegWriteString(HKEY_CURRENT_USER, kRunKey, kRunValue, StartupCommand(path).c_str());
    }
}
