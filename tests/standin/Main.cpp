#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <ctime>
#include <string>

#include "util/Handle.h"
#include "util/ProcessHardening.h"
#include "util/Utf8.h"

namespace {

constexpr DWORD kForever = 24 * 60 * 60 * 1000;

std::wstring ProjectOf(const wchar_t* commandLine) {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(commandLine, &count);
    std::wstring project = count > 1 ? arguments[1] : L"";
    LocalFree(arguments);
    return project;
}

// Milliseconds to hold the project, by its text.
DWORD HoldOf(HANDLE project) {
    char text[64] = {};
    DWORD length = 0;
    double seconds = 0;
    if (!ReadFile(project, text, sizeof text, &length, nullptr) ||
        std::from_chars(text, text + length, seconds).ec != std::errc() || !std::isfinite(seconds) ||
        seconds < 0) {
        return 0;
    }
    return static_cast<DWORD>(std::min(seconds * 1000, static_cast<double>(kForever)));
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
    const wchar_t* const commandLine = GetCommandLineW();
    const std::wstring project = ProjectOf(commandLine);
    if (project.empty()) {
        return 2;
    }
    CFileHandle held(CreateFileW(project.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
    const DWORD hold = held ? HoldOf(held.Get()) : 0;
    if (hold == 0) {
        held.Close();
    }
    const std::string line = std::to_string(_time64(nullptr)) + '\t' + std::to_string(GetCurrentProcessId()) +
                             '\t' + ToUtf8(commandLine) + '\n';
    if (!Append(project + L".runs.txt", line)) {
        return 1;
    }
    Sleep(hold);
    return 0;
}
