#pragma once

#include <memory>

#include "script/win32/IScriptController.h"

class CScriptControllerFactory {
public:
    // A controller over the Script Control, created for JScript: callers set the language that they want
    // afterwards. Null when the machine has no such engine. The calling thread has been readied for
    // components (see util/ComApartment.h) and stays so for as long as the controller lives.
    [[nodiscard]] static std::unique_ptr<IScriptController> CreateController();
};
