#include "bench/LoadPeak.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

#include <malloc.h>

#include "core/list/PrivateProfile.h"

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables, cppcoreguidelines-no-malloc): counts memory
namespace {

std::size_t g_held = 0;
std::size_t g_peak = 0;

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const block = std::malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    g_held += malloc_usable_size(block);
    g_peak = std::max(g_peak, g_held);
    return block;
}

[[gnu::noinline]] void operator delete(void* block) noexcept {
    g_held -= block != nullptr ? malloc_usable_size(block) : 0;
    std::free(block);
}

[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
    g_held -= block != nullptr ? malloc_usable_size(block) : 0;
    std::free(block);
}
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables, cppcoreguidelines-no-malloc)

double PeakOfLoad(std::string text) {
    const std::size_t size = text.size();
    g_peak = g_held;
    const std::size_t before = g_held - malloc_usable_size(text.data());
    const CPrivateProfile profile(std::move(text));
    return static_cast<double>(g_peak - before) / static_cast<double>(size);
}

std::string Repeated(std::string_view piece) {
    std::string text;
    constexpr std::size_t kSize = 64U << 20U;
    text.reserve(kSize + piece.size());
    while (text.size() < kSize) {
        text += piece;
    }
    return text;
}

std::string ManyShortNames() {
    std::string text;
    constexpr std::size_t kSize = 64U << 20U;
    text.reserve(kSize + 8);
    for (unsigned i = 0; text.size() < kSize; ++i) {
        text += '[';
        for (unsigned rest = i, left = 3; left > 0; --left, rest /= 230) {
            text += static_cast<char>(rest % 230 + 14);
        }
        text += '\n';
    }
    return text;
}
