#include "script/win32/ScriptControllerFactory.h"

#include "script/ScriptLanguages.h"
#include "script/win32/MSScriptController.h"

std::unique_ptr<IScriptController> CScriptControllerFactory::CreateController() {
    auto controller = std::make_unique<CMSScriptController>();
    return controller->Create(kJScript) != 0 ? std::move(controller) : nullptr;
}
