#pragma once

#include <windows.h>

#include <string>

// The system's text for an error code or a HRESULT, in the user's language, without a line break at its end.
// The number itself when the system has no text for it.
[[nodiscard]] std::wstring SystemErrorText(DWORD code);

// Throws std::runtime_error with that text (FromWhat).
[[noreturn]] void RaiseSystemError(DWORD code);
