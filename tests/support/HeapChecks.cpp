#include "tests/support/HeapChecks.h"

#include <windows.h>

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <new>

// Also checks the bytes behind the block when the heap writes a pattern there. The library's operators new
// match this operator, and its other operators delete call it. NOLINTBEGIN(misc-new-delete-overloads)
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
