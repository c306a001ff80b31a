#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <new>

// Memory that ends. CAMJOB_FAIL_AT=N lets the N-th allocation fail, from 1 and from before main on,
// with CAMJOB_FAIL_FOR=ever also all later ones that would need more than there was by then.
// Without N the number of allocations goes to the file CAMJOB_COUNT_TO.

namespace {

struct Plan {
    long failAt = 0;
    bool isForEver = false;
    const char* countTo = nullptr;
};

Plan ReadPlan() {
    const char* at = std::getenv("CAMJOB_FAIL_AT");
    const char* how = std::getenv("CAMJOB_FAIL_FOR");
    return {at == nullptr ? 0 : std::atol(at),
            how != nullptr && std::strcmp(how, "ever") == 0,
            std::getenv("CAMJOB_COUNT_TO")};
}

const Plan& ThePlan() {
    static const Plan plan = ReadPlan();
    return plan;
}

long s_count = 0;
std::size_t s_used = 0;
std::size_t s_limit = static_cast<std::size_t>(-1);

void* Allocate(std::size_t size) {
    if (s_used + size > s_limit)
        return nullptr;
    void* const memory = std::malloc(size);
    s_used += malloc_usable_size(memory);
    return memory;
}

bool FailsNow() {
    if (++s_count != ThePlan().failAt)
        return false;
    if (ThePlan().isForEver)
        s_limit = s_used;
    return true;
}

struct CountAtEnd {
    ~CountAtEnd() {
        if (ThePlan().countTo == nullptr)
            return;
        if (std::FILE* const file = std::fopen(ThePlan().countTo, "w")) {
            std::fprintf(file, "%ld\n", s_count);
            std::fclose(file);
        }
    }
} s_countAtEnd;

}  // namespace

void* operator new(std::size_t size) {
    for (bool fails = FailsNow();; fails = false) {
        void* const memory = fails ? nullptr : Allocate(size > 0 ? size : 1);
        if (memory != nullptr)
            return memory;
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr)
            throw std::bad_alloc();
        handler();
    }
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return FailsNow() ? nullptr : Allocate(size > 0 ? size : 1);
}

void operator delete(void* memory) noexcept {
    s_used -= memory == nullptr ? 0 : malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
