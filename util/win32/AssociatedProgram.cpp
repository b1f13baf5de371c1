#include "util/win32/AssociatedProgram.h"

#include <iterator>

#include "util/OpenCommand.h"
#include "util/win32/Registry.h"

namespace {

// Empty also for a value that does not fit into the buffer.
std::wstring EnvironmentValue(const std::wstring& name) {
    wchar_t buffer[260];
    const DWORD length = GetEnvironmentVariableW(name.c_str(), buffer, std::size(buffer));
    return length < std::size(buffer) ? std::wstring(buffer, length) : std::wstring();
}

}  // namespace

int GetAssociatedProgram(const std::wstring& extension, std::wstring& programPath) {
    std::wstring type;
    if (RegReadString(HKEY_CLASSES_ROOT, L'.' + extension, nullptr, type) != 0) {
        return 0;
    }
    std::wstring command;
    if (RegReadString(HKEY_CLASSES_ROOT, type + L"\\shell\\open\\command", nullptr, command) != 0) {
        return 0;
    }
    programPath = ProgramOfOpenCommand(command, EnvironmentValue);
    return 1;
}
