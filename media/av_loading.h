// The FFmpeg libraries, loaded when one of their functions is first called.

#pragma once

#include <atomic>

namespace ruvex::media {

/// The address of a function in a shared library, which is loaded if it is not yet and then stays
/// until the process ends. Throws MediaError if the system has no such library, or the library no
/// such function.
void* loadedFunction(const char* library, const char* function);

/// A function of a shared library, called as if the program were linked with it. Any thread.
template <class Signature>
class LoadedFunction;

template <class Result, class... Arguments>
class LoadedFunction<Result(Arguments...)> {
public:
    /// `library` is the library's name with the version of its interface, as the system's loader
    /// knows it. Both texts must be constants.
    constexpr LoadedFunction(const char* library, const char* function)
        : library_(library), function_(function) {}

    Result operator()(Arguments... arguments) {
        return reinterpret_cast<Result (*)(Arguments...)>(address())(arguments...);
    }

private:
    void* address() {
        void* known = address_.load(std::memory_order_acquire);
        if (known == nullptr) {
            known = loadedFunction(library_, function_);
            address_.store(known, std::memory_order_release);
        }
        return known;
    }

    const char* library_;
    const char* function_;
    std::atomic<void*> address_{nullptr};  // null until the first call
};

}  // namespace ruvex::media
