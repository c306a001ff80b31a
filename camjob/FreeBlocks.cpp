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

/// Those of one thread.
class FreeBlocks {
  public:
    FreeBlocks() = default;
    FreeBlocks(const FreeBlocks&) = delete;
    FreeBlocks& operator=(const FreeBlocks&) = delete;
    ~FreeBlocks() {
        for (List& list : m_lists) {
            while (void* const block = Take(list))
                std::free(block);
            list.room = 0;
        }
    }

    /// Null when there is none.
    void* Take(std::size_t size) { return size < kSizes ? Take(m_lists[size]) : nullptr; }

    /// False when the block is not kept.
    bool Keep(void* block, std::size_t size) {
        if (size >= kSizes || m_lists[size].room == 0)
            return false;
        List& list = m_lists[size];
        --list.room;
        list.first = new (block) Block{list.first};
        return true;
    }

  private:
    struct Block {
        Block* next;
    };
    struct List {
        Block* first = nullptr;
        unsigned room = kMaxOfOneSize;
    };
    static void* Take(List& list) {
        if (list.first == nullptr)
            return nullptr;
        ++list.room;
        return std::exchange(list.first, list.first->next);
    }

    std::array<List, kSizes> m_lists{};
};

thread_local constinit FreeBlocks t_freeBlocks;

void GiveBack(void* block, std::size_t size) {
    if (!t_freeBlocks.Keep(block, size))
        std::free(block);
}

}  // namespace

void* operator new(std::size_t bytes) {
    if (void* const block = t_freeBlocks.Take(SizeFor(bytes)))
        return block;
    for (;;) {
        if (void* const block = std::malloc(bytes))
            return block;
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr)
            throw std::bad_alloc();
        handler();
    }
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
