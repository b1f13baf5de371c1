#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "ui/resource.h"

// Decisions of a process at its start, and the message of a second process to the first.

// The caption of the main dialog without its version. A second process searches a window with this title.
// Tray icon and tray menu show this name.
inline constexpr const wchar_t* kProgramTitle = L"SCV Scheduler";
// This event exists while an instance runs; it is never signalled.
inline constexpr const wchar_t* kInstanceEventName = L"SCVSchedulerApp";

// Whether the program starts in the tray: when the raw command line contains "background" anywhere, in any
// case, even inside a path.
[[nodiscard]] bool StartsHidden(std::wstring_view commandLine) noexcept;

// The command by which Windows starts the program at log-on, hidden in the tray.
[[nodiscard]] std::wstring StartupCommand(const std::wstring& executablePath);

// The data word of the WM_COPYDATA with which a second process sends its project to the running one. It is
// the number of the command that shows the window.
inline constexpr std::uintptr_t kHandOverTag = ID_SHOW_WINDOW;

// The byte count that is sent with a project path. It is the number of characters on purpose: only the first
// half of the path arrives, no project is found for it, and the running window is only shown.
[[nodiscard]] std::uint32_t HandOverByteCount(std::wstring_view projectPath) noexcept;

// The path received: the whole UTF-16 units in the `byteCount` bytes at `data`, cut to the longest path.
// Reads no byte beyond them. `data` may be null and need not be aligned; the bytes may come from any program.
[[nodiscard]] std::wstring ReadHandOver(const void* data, std::size_t byteCount);

// The version as the title shows it: without trailing zeros, then without trailing dots, whatever number they
// belong to (3.0.0 gives 3.0 and, kept on purpose, 2.1.10 gives 2.1.1).
[[nodiscard]] std::wstring_view TrimVersion(std::wstring_view version) noexcept;

// The dialog's title: caption, a blank and the trimmed version; the caption alone without a version.
[[nodiscard]] std::wstring WindowTitle(std::wstring_view caption, std::wstring_view version);
