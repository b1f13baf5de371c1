#pragma once

#include <windows.h>

#include <string>

// The system's text for an error code or a HRESULT, without a line break at its end; the bare number for one
// that it has no text for. In the user's language.
[[nodiscard]] std::wstring SystemErrorText(DWORD code);

// Throws std::runtime_error with that text (FromWhat).
[[noreturn]] void RaiseSystemError(DWORD code);
