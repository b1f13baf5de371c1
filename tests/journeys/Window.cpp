// Reports the windows of other programs to the journeys in this folder, which need the positions of controls
// and wait for visible effects. Reads one request per line from standard input and prints one reply per line,
// both JSON in UTF-8. A window is its handle. A rectangle is [left, top, right, bottom] in screen pixels.
//
//   ["windows"]                      the top-level windows, the topmost first
//   ["children", WINDOW]             the windows inside it, at every depth
//   ["foreground"]                   {"window", "focus", "menu", "moving"}: the foreground window, its
//                                    control with the focus, whether it shows a menu, and whether it is
//                                    being moved or resized
//   ["paint", WINDOW]                makes a window paint what it has not painted yet
//   ["text", WINDOW]                 the text of a control
//   ["resize", WINDOW, RECTANGLE]    moves and resizes a window, within its limits
//   ["send", WINDOW, MESSAGE, W, L]  the result of a message that has only numbers
//   ["fill", WINDOW, MESSAGE, W, BYTES, AT, TO]
//                                    {"result", "bytes"}: sends a message whose lParam points to a structure
//                                    of these bytes; "bytes" are its bytes afterwards. Unless AT is null,
//                                    the pointer at offset AT of the structure is set to its offset TO.
//   ["hold", FILE]                   opens a file without sharing it
//   ["release"]                      closes all these files
//
// The reply is null when the window is gone or does not answer.
#include <windows.h>

#include <cstdint>
#include <cstring>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "util/Utf8.h"
#include "util/win32/Handle.h"

namespace {

using nlohmann::json;

HWND ToWindow(const json& handle) {
    return reinterpret_cast<HWND>(handle.get<std::intptr_t>());
}
json FromWindow(HWND window) {
    return reinterpret_cast<std::intptr_t>(window);
}

// With a time-out, so that a program that hangs does not make this one hang.
bool Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam, DWORD_PTR& result) {
    constexpr UINT kPatience = 20'000;  // milliseconds
    return SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kPatience, &result) != 0;
}

json Describe(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    RECT client{};
    GetClientRect(window, &client);
    POINT origin{};
    ClientToScreen(window, &origin);
    wchar_t title[256] = {};
    GetWindowTextW(window, title, ARRAYSIZE(title));
    wchar_t kind[64] = {};
    GetClassNameW(window, kind, ARRAYSIZE(kind));
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return {
        {"handle", FromWindow(window)},
        {"x11", reinterpret_cast<std::intptr_t>(GetPropW(window, L"__wine_x11_whole_window"))},
        {"title", ToUtf8(title)},
        {"class", ToUtf8(kind)},
        {"parent", FromWindow(GetParent(window))},
        {"id", GetDlgCtrlID(window)},
        {"process", process},
        {"place", {rect.left, rect.top, rect.right, rect.bottom}},
        {"origin", {origin.x, origin.y}},
        {"client",
         {origin.x, origin.y, origin.x + client.right - client.left, origin.y + client.bottom - client.top}},
        {"shown", IsWindowVisible(window) != FALSE},
        {"enabled", IsWindowEnabled(window) != FALSE}};
}

BOOL CALLBACK AddDescription(HWND window, LPARAM list) {
    reinterpret_cast<json*>(list)->push_back(Describe(window));
    return TRUE;
}

json Windows() {
    json windows = json::array();
    EnumWindows(AddDescription, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

json Children(HWND parent) {
    json windows = json::array();
    EnumChildWindows(parent, AddDescription, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

json Foreground() {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    if (!GetGUIThreadInfo(0, &thread)) {
        return nullptr;
    }
    return {{"window", FromWindow(thread.hwndActive)},
            {"focus", FromWindow(thread.hwndFocus)},
            {"menu", (thread.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE)) != 0},
            {"moving", (thread.flags & GUI_INMOVESIZE) != 0}};
}

json Text(HWND window) {
    std::wstring text(65'536, L'\0');
    DWORD_PTR length = 0;
    if (!Send(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), length)) {
        return nullptr;
    }
    text.resize(length);
    return ToUtf8(text);
}

json Resize(HWND window, const json& place) {
    const int left = place.at(0);
    const int top = place.at(1);
    return SetWindowPos(window, nullptr, left, top, place.at(2).get<int>() - left,
                        place.at(3).get<int>() - top, SWP_NOZORDER | SWP_NOACTIVATE) != FALSE;
}

json SendNumbers(HWND window, const json& request) {
    DWORD_PTR result = 0;
    if (!Send(window, request.at(2).get<UINT>(), request.at(3).get<WPARAM>(), request.at(4).get<LPARAM>(),
              result)) {
        return nullptr;
    }
    return static_cast<std::intptr_t>(result);
}

std::string ToBytes(const json& numbers) {
    std::string bytes;
    for (const json& number : numbers) {
        bytes += static_cast<char>(number.get<int>());
    }
    return bytes;
}

json FillReply(DWORD_PTR result, const std::string& bytes) {
    json numbers = json::array();
    for (const char byte : bytes) {
        numbers.push_back(static_cast<unsigned char>(byte));
    }
    return {{"result", static_cast<std::intptr_t>(result)}, {"bytes", numbers}};
}

// For a message of a common control, whose structure the system does not copy to another process: puts a copy
// into the memory of that process.
json FillThere(HWND window, const json& request, std::string bytes) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const CKernelHandle process(
        OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id));
    auto* block =
        static_cast<char*>(VirtualAllocEx(process.Get(), nullptr, bytes.size(), MEM_COMMIT, PAGE_READWRITE));
    if (!request.at(5).is_null()) {
        const char* target = block + request.at(6).get<std::size_t>();
        std::memcpy(&bytes.at(request.at(5)), &target, sizeof target);
    }
    DWORD_PTR result = 0;
    const bool isDone = block != nullptr &&
                        WriteProcessMemory(process.Get(), block, bytes.data(), bytes.size(), nullptr) &&
                        Send(window, request.at(2), request.at(3), reinterpret_cast<LPARAM>(block), result) &&
                        ReadProcessMemory(process.Get(), block, bytes.data(), bytes.size(), nullptr);
    VirtualFreeEx(process.Get(), block, 0, MEM_RELEASE);
    return isDone ? FillReply(result, bytes) : json();
}

json Fill(HWND window, const json& request) {
    std::string bytes = ToBytes(request.at(4));
    if (request.at(2).get<UINT>() >= WM_USER) {
        return FillThere(window, request, bytes);
    }
    DWORD_PTR result = 0;
    const bool isDone =
        Send(window, request.at(2), request.at(3), reinterpret_cast<LPARAM>(bytes.data()), result);
    return isDone ? FillReply(result, bytes) : json();
}

bool Hold(const std::string& path, std::vector<CFileHandle>& held) {
    held.emplace_back(CreateFileW(FromUtf8(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    return static_cast<bool>(held.back());
}

json ReplyAbout(HWND window, const std::string& verb, const json& request) {
    if (verb == "children") {
        return Children(window);
    }
    if (verb == "text") {
        return Text(window);
    }
    if (verb == "paint") {
        return RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN) != FALSE;
    }
    if (verb == "resize") {
        return Resize(window, request.at(2));
    }
    if (verb == "fill") {
        return Fill(window, request);
    }
    return SendNumbers(window, request);
}

json Reply(const json& request, std::vector<CFileHandle>& held) {
    const std::string verb = request.at(0);
    if (verb == "windows") {
        return Windows();
    }
    if (verb == "foreground") {
        return Foreground();
    }
    if (verb == "hold") {
        return Hold(request.at(1), held);
    }
    if (verb == "release") {
        held.clear();
        return true;
    }
    return ReplyAbout(ToWindow(request.at(1)), verb, request);
}

}  // namespace

int wmain() {
    // Otherwise the system would convert coordinates on a scaled screen.
    SetProcessDPIAware();
    std::vector<CFileHandle> held;
    for (std::string line; std::getline(std::cin, line);) {
        std::cout << Reply(json::parse(line), held).dump() << std::endl;
    }
    return 0;
}
