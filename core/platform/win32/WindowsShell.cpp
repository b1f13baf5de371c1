#include <windows.h>

#include <shellapi.h>

#include <algorithm>

#include "core/launch/ExtractionProgram.h"
#include "core/platform/Shell.h"
#include "util/win32/AssociatedProgram.h"
#include "util/win32/FileTests.h"
#include "util/win32/Registry.h"

bool CWindowsShell::FileExists(const std::wstring& path) {
    return ::FileExists(path) != 0;
}

bool CWindowsShell::CanOpenForWriting(const std::wstring& path) {
    return ::CanOpenForWriting(path) != 0;
}

std::wstring CWindowsShell::RegisteredProgram(const std::wstring& key) {
    std::wstring program;
    RegReadString(HKEY_CURRENT_USER, key, kProgramValue, program);
    // A value may be stored with more than one terminator.
    program.resize(std::min(program.size(), program.find(L'\0')));
    return program;
}

std::wstring CWindowsShell::AssociatedProgram(const std::wstring& extension) {
    std::wstring program;
    GetAssociatedProgram(extension, program);
    return program;
}

std::intptr_t CWindowsShell::Open(const std::wstring& program, const std::wstring& parameters) {
    return reinterpret_cast<std::intptr_t>(
        ShellExecuteW(nullptr, L"open", program.c_str(), parameters.c_str(), nullptr, SW_SHOWNORMAL));
}
