#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <string>

#include "util/Utf8.h"
#include "util/win32/Handle.h"
#include "util/win32/ProcessHardening.h"

namespace {

// The project's text is the time in milliseconds for which to hold it open.
DWORD HoldOf(const CFileHandle& project) {
    constexpr double kForever = 24 * 60 * 60 * 1000;
    char text[64] = {};
    DWORD length = 0;
    if (!project || !ReadFile(project.Get(), text, sizeof text - 1, &length, nullptr)) {
        return 0;
    }
    const double milliseconds = std::strtod(text, nullptr) * 1000;
    return milliseconds > 0 ? static_cast<DWORD>(std::min(milliseconds, kForever)) : 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    HardenProcess();
    if (__argc < 2) {
        return 2;
    }
    const std::wstring project = __wargv[1];
    CFileHandle held(CreateFileW(project.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
    const DWORD hold = HoldOf(held);
    if (hold == 0) {
        held.Close();
    }
    // Opened without shared writing, so that the lines of two processes cannot mix.
    CFileHandle record;
    for (int attempt = 0; !record && attempt < 1000; ++attempt) {
        Sleep(attempt == 0 ? 0 : 10);
        record = CFileHandle(CreateFileW((project + L".runs.txt").c_str(), FILE_APPEND_DATA, FILE_SHARE_READ,
                                         nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    const std::string line = std::to_string(_time64(nullptr)) + '\t' + std::to_string(GetCurrentProcessId()) +
                             '\t' + ToUtf8(GetCommandLineW()) + '\n';
    DWORD written = 0;
    if (!WriteFile(record.Get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr)) {
        return 1;
    }
    record.Close();
    Sleep(hold);
    return 0;
}
