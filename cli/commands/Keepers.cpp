#include "cli/commands/Keepers.h"

#include "cli/commands/Context.h"
#include "cli/report/Refusal.h"

void RequireUnkept(const Context& context, CListKeeper::Kind kind) {
    if (CListKeeper::IsKept(context.platform.files, context.list, kind)) {
        RefuseKept(context, kind);
    }
}

void RefuseKept(const Context& context, CListKeeper::Kind kind) {
    throw CRefusal(kind == CListKeeper::Kind::Window
                       ? Join("the window program keeps ", context.list,
                              " and launches its tasks; end it with its Exit button first")
                       : Join("another scvsched watches ", context.list, "; end it with Ctrl+C first"),
                   kFindings);
}
