#pragma once

#include <memory>

#include "script/IScriptController.h"

class CScriptControllerFactory {
public:
    // A controller with the Script Control, created for JScript: callers then set the language that they
    // need. Null when the machine has no such engine. COM must be initialised for the calling thread (see
    // util/win32/ComApartment.h) during the controller's lifetime.
    [[nodiscard]] static std::unique_ptr<IScriptController> CreateController();
};
