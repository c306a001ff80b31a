#include "plugin/output/LargePages.h"

#ifdef __linux__
#include <cstdint>
#include <sys/mman.h>
#endif

namespace plugin {

void WishForLargePages([[maybe_unused]] char* memory, [[maybe_unused]] std::size_t size) {
#ifdef __linux__
    constexpr std::uintptr_t kLargePage = std::uintptr_t{1} << 21;
    const auto begin = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t first = (begin + kLargePage - 1) / kLargePage * kLargePage;
    const std::uintptr_t end = (begin + size) / kLargePage * kLargePage;
    if (first < end)
        ::madvise(memory + (first - begin), end - first, MADV_HUGEPAGE);
#endif
}

}  // namespace plugin
