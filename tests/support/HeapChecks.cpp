#include "tests/support/HeapChecks.h"

#include <windows.h>

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

HANDLE Heap() {
    return reinterpret_cast<HANDLE>(_get_heap_handle());
}

// Looks at the bytes behind the block too, when the heap lays a pattern there.
void Release(void* block) noexcept {
    if (block != nullptr && HeapValidate(Heap(), 0, block) == 0) {
        std::fputs("heap: a block that is given back is damaged, or none\n", stderr);
        std::abort();
    }
    std::free(block);  // NOLINT(cppcoreguidelines-no-malloc): what the library's operator new has taken
}

}  // namespace

// The library's operators of new go with these.
// NOLINTBEGIN(misc-new-delete-overloads)
void operator delete(void* block) noexcept {
    Release(block);
}

void operator delete(void* block, std::size_t) noexcept {
    Release(block);
}

void operator delete[](void* block) noexcept {
    Release(block);
}

void operator delete[](void* block, std::size_t) noexcept {
    Release(block);
}
// NOLINTEND(misc-new-delete-overloads)

void HeapChecks::OnTestEnd(const testing::TestInfo&) {
    EXPECT_NE(HeapValidate(Heap(), 0, nullptr), 0) << "the heap is damaged";
}
