#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <string>

#include "util/Handle.h"
#include "util/ProcessHardening.h"
#include "util/Utf8.h"

namespace {

// Milliseconds to hold the project, by its text.
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

bool Append(const std::wstring& path, const std::string& line) {
    // Writing is not shared, so that the lines of two processes cannot mix.
    for (int attempt = 0; attempt < 1000; ++attempt) {
        const CFileHandle file(CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                           OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (file) {
            DWORD written = 0;
            return WriteFile(file.Get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr) &&
                   written == line.size();
        }
        Sleep(10);
    }
    return false;
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
    const std::string line = std::to_string(_time64(nullptr)) + '\t' + std::to_string(GetCurrentProcessId()) +
                             '\t' + ToUtf8(GetCommandLineW()) + '\n';
    if (!Append(project + L".runs.txt", line)) {
        return 1;
    }
    Sleep(hold);
    return 0;
}
