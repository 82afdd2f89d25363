#include "bench/allocated_bytes.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace ruvex::bench {
namespace {

std::atomic<std::uint64_t> allocated{0};

void* allocate(std::size_t size) noexcept {
    allocated.fetch_add(size, std::memory_order_relaxed);
    return std::malloc(size > 0 ? size : 1);
}

void* allocate(std::size_t size, std::align_val_t alignment) noexcept {
    allocated.fetch_add(size, std::memory_order_relaxed);
    const auto step = static_cast<std::size_t>(alignment);
    return std::aligned_alloc(step, (size + step - 1) / step * step);
}

void* orThrow(void* memory) {
    if (!memory) throw std::bad_alloc();
    return memory;
}

}  // namespace

std::uint64_t allocatedBytes() {
    return allocated.load(std::memory_order_relaxed);
}

}  // namespace ruvex::bench

// The forms that the others come down to.

void* operator new(std::size_t size) {
    return ruvex::bench::orThrow(ruvex::bench::allocate(size));
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return ruvex::bench::orThrow(ruvex::bench::allocate(size, alignment));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return ruvex::bench::allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return ruvex::bench::allocate(size, alignment);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}
