#pragma once

#include "core/launch/ListKeeper.h"

struct Context;

// Throws CRefusal, with what the user can do, when a program of this kind keeps the list.
void RequireUnkept(const Context& context, CListKeeper::Kind kind);
// Throws the same CRefusal without looking whether the list is kept.
[[noreturn]] void RefuseKept(const Context& context, CListKeeper::Kind kind);
