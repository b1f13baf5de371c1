#pragma once

#include <string>

#include "script/IScriptController.h"

// What the script editor does with an engine. The controller reports failures to the user; they count here
// only when it returns less than 0. No controller does: it returns 0. So Parse reports success, and OK
// accepts the script, even after an error was shown. Kept so on purpose.

// Passes the script to the engine.
[[nodiscard]] bool ParseScript(IScriptController& controller, const std::wstring& language,
                               const std::wstring& script);

// Calls the script's Main with `text`, and with an empty URL if it has more than one parameter. Returns the
// results that are not empty, each on a line of its own.
[[nodiscard]] std::wstring TestScript(IScriptController& controller, const std::wstring& language,
                                      const std::wstring& script, const std::wstring& text);
