#include "tests/support/watched_new.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

namespace ruvex::test {
namespace {

thread_local bool counting = false;
thread_local std::size_t count = 0;
thread_local std::size_t failingOne = 0;

// What FailingElsewhere does to every thread that is not spared.
thread_local bool spared = false;
std::atomic<bool> countingElsewhere{false};
std::atomic<std::size_t> countElsewhere{0};
std::atomic<std::size_t> failingElsewhere{0};

constexpr int kAsItCame = -1;
std::atomic<int> freshByte{kAsItCame};

std::atomic<std::uint64_t> allocated{0};

bool runsOut(std::size_t size) {
    allocated.fetch_add(size, std::memory_order_relaxed);
    if (countingElsewhere && !spared && ++countElsewhere == failingElsewhere) return true;
    return counting && ++count == failingOne;
}

void* filled(void* memory, std::size_t size) {
    const int byte = freshByte.load(std::memory_order_relaxed);
    if (memory && byte != kAsItCame) std::memset(memory, byte, size);
    return memory;
}

void* allocate(std::size_t size) noexcept {
    return runsOut(size) ? nullptr : filled(std::malloc(size > 0 ? size : 1), size);
}

void* allocate(std::size_t size, std::align_val_t alignment) noexcept {
    const auto step = static_cast<std::size_t>(alignment);
    if (runsOut(size)) return nullptr;
    return filled(std::aligned_alloc(step, (size + step - 1) / step * step), size);
}

void* orThrow(void* memory) {
    if (!memory) throw std::bad_alloc();
    return memory;
}

}  // namespace

FailingNew::FailingNew(std::size_t failing) {
    count = 0;
    failingOne = failing;
    counting = true;
}

FailingNew::~FailingNew() {
    counting = false;
}

std::size_t FailingNew::allocations() const {
    return count;
}

bool FailingNew::failed() const {
    return failingOne > 0 && count >= failingOne;
}

FailingElsewhere::FailingElsewhere(std::size_t failing) {
    spared = true;
    countElsewhere = 0;
    failingElsewhere = failing;
    countingElsewhere = true;
}

FailingElsewhere::~FailingElsewhere() {
    countingElsewhere = false;
    spared = false;
}

std::size_t FailingElsewhere::allocations() const {
    return countElsewhere;
}

FilledNew::FilledNew(unsigned char byte) {
    freshByte = byte;
}

FilledNew::~FilledNew() {
    freshByte = kAsItCame;
}

std::uint64_t allocatedBytes() {
    return allocated.load(std::memory_order_relaxed);
}

}  // namespace ruvex::test

// All forms, since a library may use any of them, and a sanitizer's own take the place of those
// that are left out.

#define RUVEX_WATCH(NEW, DELETE)                                                              \
    void* NEW(std::size_t size) {                                                             \
        return ruvex::test::orThrow(ruvex::test::allocate(size));                             \
    }                                                                                         \
    void* NEW(std::size_t size, std::align_val_t alignment) {                                 \
        return ruvex::test::orThrow(ruvex::test::allocate(size, alignment));                  \
    }                                                                                         \
    void* NEW(std::size_t size, const std::nothrow_t&) noexcept {                             \
        return ruvex::test::allocate(size);                                                   \
    }                                                                                         \
    void* NEW(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept { \
        return ruvex::test::allocate(size, alignment);                                        \
    }                                                                                         \
    void DELETE(void* memory) noexcept {                                                      \
        std::free(memory);                                                                    \
    }                                                                                         \
    void DELETE(void* memory, std::size_t) noexcept {                                         \
        std::free(memory);                                                                    \
    }                                                                                         \
    void DELETE(void* memory, std::align_val_t) noexcept {                                    \
        std::free(memory);                                                                    \
    }                                                                                         \
    void DELETE(void* memory, std::size_t, std::align_val_t) noexcept {                       \
        std::free(memory);                                                                    \
    }                                                                                         \
    void DELETE(void* memory, const std::nothrow_t&) noexcept {                               \
        std::free(memory);                                                                    \
    }                                                                                         \
    void DELETE(void* memory, std::align_val_t, const std::nothrow_t&) noexcept {             \
        std::free(memory);                                                                    \
    }

RUVEX_WATCH(operator new, operator delete)
RUVEX_WATCH(operator new[], operator delete[])

#undef RUVEX_WATCH
