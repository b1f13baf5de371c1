#pragma once

#include "core/launch/ListKeeper.h"

struct Context;

// Throws CRefusal, with the remedy, when a program of that kind keeps the list.
void RequireUnkept(const Context& context, CListKeeper::Kind kind);
// The same where that is known already.
[[noreturn]] void RefuseKept(const Context& context, CListKeeper::Kind kind);
