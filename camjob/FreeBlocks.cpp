// Blocks of memory that were given back, for the next ones that ask for as many bytes.
//
// A member is read and judged in some hundred blocks that do not outlive it. The C library keeps a
// few of each size at hand, too, but of most sizes too few, and asks more each time. Here, too, all
// blocks are the C library's: it does not matter which thread or module gives one back, or how.
//
// Only for the C library whose way to cut blocks this knows; not where a sanitizer watches them.

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define CAMJOB_IS_WATCHED
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define CAMJOB_IS_WATCHED
#endif

#include <cstdlib>

#if defined(__GLIBC__) && !defined(CAMJOB_IS_WATCHED)

#include <array>
#include <cstddef>
#include <malloc.h>
#include <new>
#include <utility>

namespace {

/// Block sizes are multiples of the step, less what the C library notes in each block.
constexpr std::size_t kStep = 16;
constexpr std::size_t kNoted = 8;
/// Up to 4 KB.
constexpr std::size_t kSizes = 256;
constexpr unsigned kMaxOfOneSize = 32;

std::size_t SizeFor(std::size_t bytes) {
    return (bytes + kNoted + kStep - 1) / kStep;
}

struct Block {
    Block* next;
};

/// Of one size.
struct List {
    Block* first;
    unsigned room;
};

/// Those of one thread, by size. There is room from its first Keeping to the end of that: what has
/// neither beginning nor end is not asked for both each time.
thread_local constinit std::array<List, kSizes> t_lists{};

class Keeping {
  public:
    Keeping() {
        for (List& list : t_lists)
            list.room = kMaxOfOneSize;
    }
    Keeping(const Keeping&) = delete;
    Keeping& operator=(const Keeping&) = delete;
    ~Keeping() {
        for (List& list : t_lists) {
            list.room = 0;
            while (Block* const block = list.first) {
                list.first = block->next;
                std::free(block);
            }
        }
    }
};

/// Apart from the usual way, which then needs no registers saved.
[[gnu::noinline]] void* NewBlock(std::size_t bytes) {
    static thread_local const Keeping keeping;
    for (;;) {
        if (void* const block = std::malloc(bytes))
            return block;
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr)
            throw std::bad_alloc();
        handler();
    }
}

void GiveBack(void* block, std::size_t size) {
    if (size >= kSizes || t_lists[size].room == 0)
        return std::free(block);
    List& list = t_lists[size];
    --list.room;
    list.first = new (block) Block{list.first};
}

}  // namespace

void* operator new(std::size_t bytes) {
    const std::size_t size = SizeFor(bytes);
    if (size >= kSizes || t_lists[size].first == nullptr)
        return NewBlock(bytes);
    List& list = t_lists[size];
    ++list.room;
    return std::exchange(list.first, list.first->next);
}

void operator delete(void* block, std::size_t bytes) noexcept {
    if (block != nullptr)
        GiveBack(block, SizeFor(bytes));
}

void operator delete(void* block) noexcept {
    if (block != nullptr)
        GiveBack(block, (malloc_usable_size(block) + kNoted) / kStep);
}

#endif
