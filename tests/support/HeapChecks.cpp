#include "tests/support/HeapChecks.h"

#include <windows.h>

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <new>

// Looks at the bytes behind the block too, when the heap lays a pattern there. The library's operators of new
// go with this one, and its other operators of delete call it.
// NOLINTBEGIN(misc-new-delete-overloads)
void operator delete(void* block) noexcept {
    if (block != nullptr && HeapValidate(reinterpret_cast<HANDLE>(_get_heap_handle()), 0, block) == 0) {
        std::fputs("heap: a block that is given back is damaged, or none\n", stderr);
        std::abort();
    }
    std::free(block);  // NOLINT(cppcoreguidelines-no-malloc): what the library's operator new has taken
}

void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}
// NOLINTEND(misc-new-delete-overloads)

bool IsHeapWhole() {
    return HeapValidate(reinterpret_cast<HANDLE>(_get_heap_handle()), 0, nullptr) != 0;
}
