#include "tests/support/watched_memory.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <link.h>
#include <malloc.h>
#include <new>
#include <string_view>

// The C library's own allocation, under the names that replacements are to call.
extern "C" {
void* __libc_malloc(std::size_t size);                           // NOLINT
void* __libc_calloc(std::size_t count, std::size_t size);        // NOLINT
void* __libc_realloc(void* memory, std::size_t size);            // NOLINT
void __libc_free(void* memory);                                  // NOLINT
void* __libc_memalign(std::size_t alignment, std::size_t size);  // NOLINT
}

namespace ruvex::test {
namespace {

constexpr std::size_t kLeastCopy = 1024;

// Addresses of one object in memory. Other threads may read them while they are stored.
struct Range {
    std::atomic<std::uintptr_t> first{UINTPTR_MAX};
    std::atomic<std::uintptr_t> end{0};

    // Contains nothing, or what it did before, until both are stored.
    void become(std::uintptr_t newFirst, std::uintptr_t newEnd) {
        end = newEnd;
        first = newFirst;
    }

    bool contains(const void* address) const {
        const auto number = reinterpret_cast<std::uintptr_t>(address);
        return number >= first && number < end;
    }
};

struct Counters {
    std::atomic<std::uint64_t> program{0};
    std::atomic<std::uint64_t> module{0};
    std::atomic<std::uint64_t> libraries{0};

    ByOwner values() const { return {program, module, libraries}; }
};

// Stored by learnOwners alone.
Range program;
Range module;
Counters allocated;
Counters copied;
std::atomic<std::int64_t> inUse{0};

void count(Counters& counters, std::size_t bytes, const void* caller) {
    std::atomic<std::uint64_t>& counter = program.contains(caller)  ? counters.program
                                          : module.contains(caller) ? counters.module
                                                                    : counters.libraries;
    counter.fetch_add(bytes, std::memory_order_relaxed);
}

void learn(Range& range, const dl_phdr_info& object) {
    std::uintptr_t first = UINTPTR_MAX, end = 0;
    for (int i = 0; i < object.dlpi_phnum; ++i) {
        const auto& segment = object.dlpi_phdr[i];
        if (segment.p_type != PT_LOAD) continue;
        const std::uintptr_t begin = object.dlpi_addr + segment.p_vaddr;
        first = std::min<std::uintptr_t>(first, begin);
        end = std::max<std::uintptr_t>(end, begin + segment.p_memsz);
    }
    range.become(first, end);
}

int learnOwner(dl_phdr_info* object, std::size_t, void*) {
    const std::string_view name = object->dlpi_name;
    // The first object, which has no name, is the program.
    if (name.empty() && program.end == 0) learn(program, *object);
    if (name.ends_with("V_Ruvex.so")) learn(module, *object);
    return 0;
}

/// By single bytes, so that the compiler makes no call of memcpy of it.
__attribute__((optimize("no-tree-loop-distribute-patterns"))) void copyBytes(std::byte* to,
                                                                             const std::byte* from,
                                                                             std::size_t size) {
#ifdef __x86_64__
    const bool forwards = to <= from || to >= from + size;
    if (forwards) {
        asm volatile("rep movsb" : "+D"(to), "+S"(from), "+c"(size) : : "memory");
        return;
    }
#endif
    if (to <= from) {
        for (std::size_t i = 0; i < size; ++i) to[i] = from[i];
    } else {
        for (std::size_t i = size; i > 0; --i) to[i - 1] = from[i - 1];
    }
}

void* copy(void* to, const void* from, std::size_t size, const void* caller) {
    if (size >= kLeastCopy) count(copied, size, caller);
    copyBytes(static_cast<std::byte*>(to), static_cast<const std::byte*>(from), size);
    return to;
}

/// Counts memory that was allocated for `size` bytes, and gives it.
void* taken(void* memory, std::size_t size, const void* caller) {
    count(allocated, size, caller);
    inUse.fetch_add(static_cast<std::int64_t>(malloc_usable_size(memory)),
                    std::memory_order_relaxed);
    return memory;
}

/// Counts memory that is going to be freed.
void* given(void* memory) {
    inUse.fetch_sub(static_cast<std::int64_t>(malloc_usable_size(memory)),
                    std::memory_order_relaxed);
    return memory;
}

void* allocate(std::size_t size, const void* caller) noexcept {
    return taken(__libc_malloc(size), size, caller);
}

void* allocate(std::size_t size, std::align_val_t alignment, const void* caller) noexcept {
    return taken(__libc_memalign(static_cast<std::size_t>(alignment), size), size, caller);
}

void* orThrow(void* memory) {
    if (!memory) throw std::bad_alloc();
    return memory;
}

}  // namespace

void learnOwners() {
    dl_iterate_phdr(learnOwner, nullptr);
}

ByOwner allocatedBytesByOwner() {
    return allocated.values();
}

std::int64_t bytesInUse() {
    return inUse.load(std::memory_order_relaxed);
}

ByOwner copiedBytesByOwner() {
    return copied.values();
}

}  // namespace ruvex::test

#define RUVEX_EXPORTED extern "C" __attribute__((visibility("default")))

RUVEX_EXPORTED void* malloc(std::size_t size) {
    return ruvex::test::allocate(size, __builtin_return_address(0));
}

RUVEX_EXPORTED void free(void* memory) {
    __libc_free(ruvex::test::given(memory));
}

RUVEX_EXPORTED void* calloc(std::size_t number, std::size_t size) {
    return ruvex::test::taken(__libc_calloc(number, size), number * size,
                              __builtin_return_address(0));
}

RUVEX_EXPORTED void* realloc(void* memory, std::size_t size) {
    return ruvex::test::taken(__libc_realloc(ruvex::test::given(memory), size), size,
                              __builtin_return_address(0));
}

RUVEX_EXPORTED void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return ruvex::test::allocate(size, std::align_val_t{alignment}, __builtin_return_address(0));
}

RUVEX_EXPORTED int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    *memory = ruvex::test::allocate(size, std::align_val_t{alignment}, __builtin_return_address(0));
    return *memory ? 0 : ENOMEM;
}

RUVEX_EXPORTED void* memcpy(void* to, const void* from, std::size_t size) {
    return ruvex::test::copy(to, from, size, __builtin_return_address(0));
}

RUVEX_EXPORTED void* memmove(void* to, const void* from, std::size_t size) {
    return ruvex::test::copy(to, from, size, __builtin_return_address(0));
}

#undef RUVEX_EXPORTED

// All forms: the library's own would call `malloc` themselves, and hide who asked.

#define RUVEX_WATCH(NEW, DELETE)                                                               \
    void* NEW(std::size_t size) {                                                              \
        return ruvex::test::orThrow(ruvex::test::allocate(size, __builtin_return_address(0))); \
    }                                                                                          \
    void* NEW(std::size_t size, std::align_val_t alignment) {                                  \
        return ruvex::test::orThrow(                                                           \
            ruvex::test::allocate(size, alignment, __builtin_return_address(0)));              \
    }                                                                                          \
    void* NEW(std::size_t size, const std::nothrow_t&) noexcept {                              \
        return ruvex::test::allocate(size, __builtin_return_address(0));                       \
    }                                                                                          \
    void* NEW(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {  \
        return ruvex::test::allocate(size, alignment, __builtin_return_address(0));            \
    }                                                                                          \
    void DELETE(void* memory) noexcept {                                                       \
        std::free(memory);                                                                     \
    }                                                                                          \
    void DELETE(void* memory, std::size_t) noexcept {                                          \
        std::free(memory);                                                                     \
    }                                                                                          \
    void DELETE(void* memory, std::align_val_t) noexcept {                                     \
        std::free(memory);                                                                     \
    }                                                                                          \
    void DELETE(void* memory, std::size_t, std::align_val_t) noexcept {                        \
        std::free(memory);                                                                     \
    }                                                                                          \
    void DELETE(void* memory, const std::nothrow_t&) noexcept {                                \
        std::free(memory);                                                                     \
    }                                                                                          \
    void DELETE(void* memory, std::align_val_t, const std::nothrow_t&) noexcept {              \
        std::free(memory);                                                                     \
    }

RUVEX_WATCH(operator new, operator delete)
RUVEX_WATCH(operator new[], operator delete[])

#undef RUVEX_WATCH
