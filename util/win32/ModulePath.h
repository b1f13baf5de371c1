#pragma once

#include <string>

// The full path of the running executable, of any length; empty when the system does not return it.
[[nodiscard]] std::wstring GetModulePath();
