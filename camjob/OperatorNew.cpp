#include <cstddef>
#include <mimalloc.h>
#include <new>

// Memory straight from mimalloc, where the tool has it: through the C++ library each piece takes
// two calls more. As there, and unlike mimalloc's own operators, the new handler is asked when
// there is none.

namespace {

void* TryAgain(std::size_t size) {
    while (const std::new_handler handler = std::get_new_handler()) {
        handler();
        if (void* const memory = mi_malloc(size))
            return memory;
    }
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    void* const memory = mi_malloc(size);
    return memory != nullptr ? memory : TryAgain(size);
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete(void* memory) noexcept {
    mi_free(memory);
}

void operator delete[](void* memory) noexcept {
    mi_free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    mi_free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    mi_free(memory);
}
