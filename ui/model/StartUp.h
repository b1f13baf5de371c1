#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "ui/resource.h"

// What a process decides when it starts, and what a second process sends to the first.

// Caption of the main dialog without its version, the title by which a second process looks for the first,
// and the name that tray icon and tray menu show.
inline constexpr const wchar_t* kProgramTitle = L"SCV Scheduler";
// Its existence says that an instance runs; it is never signalled.
inline constexpr const wchar_t* kInstanceEventName = L"SCVSchedulerApp";

// Whether the raw command line asks for a start in the tray: it holds "background" anywhere, in any case,
// even inside a path.
[[nodiscard]] bool StartsHidden(std::wstring_view commandLine) noexcept;

// The command by which Windows starts the program at log-on, hidden in the tray.
[[nodiscard]] std::wstring StartupCommand(const std::wstring& executablePath);

// Data word of the WM_COPYDATA by which a second process hands its project over to the running one: the same
// number as the command that shows the window.
inline constexpr std::uintptr_t kHandOverTag = ID_SHOW_WINDOW;

// The byte count that goes with a project path. It is the number of characters on purpose, so that only the
// first half of the path arrives, no project is found for it, and the running window merely shows.
[[nodiscard]] std::uint32_t HandOverByteCount(std::wstring_view projectPath) noexcept;

// The path received: the whole UTF-16 units in the `byteCount` bytes at `data`, cut to the longest path.
// Reads no byte beyond them. `data` may be null and need not be aligned; the bytes may come from any program.
[[nodiscard]] std::wstring ReadHandOver(const void* data, std::size_t byteCount);

// The version as the title shows it: without trailing zeros, then without trailing dots, whatever number they
// belong to (3.0.0 gives 3.0 and, kept on purpose, 2.1.10 gives 2.1.1).
[[nodiscard]] std::wstring_view TrimVersion(std::wstring_view version) noexcept;

// The dialog's title: caption, a blank and the trimmed version; the caption alone without a version.
[[nodiscard]] std::wstring WindowTitle(std::wstring_view caption, std::wstring_view version);
