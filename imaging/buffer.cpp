#include "imaging/buffer.h"

#include <cstring>
#include <new>

namespace ruvex {
namespace {
constexpr std::align_val_t kAlignment{64};
}

std::byte* allocateBuffer(std::int32_t bytes, Contents contents) noexcept {
    if (bytes < 1) return nullptr;
    const auto size = static_cast<std::size_t>(bytes);
    void* memory = ::operator new(size, kAlignment, std::nothrow);
    if (memory && contents == Contents::Zero) std::memset(memory, 0, size);
    return static_cast<std::byte*>(memory);
}

void releaseBuffer(std::byte* buffer) noexcept {
    ::operator delete(buffer, kAlignment);
}

}  // namespace ruvex
