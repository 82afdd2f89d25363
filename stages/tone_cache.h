// The tables of tones of the latest frames.

#pragma once

#include <array>
#include <cstdint>

#include "stages/tone_tables.h"

namespace ruvex {

/// Keeps tables as long as the parameters that they depend on stay the same. The tables that it
/// gives are those that ToneTables::build makes. Not for two threads at once.
template <class P>
class ToneCache {
public:
    /// The most tables that are kept, each for one set of parameters.
    static constexpr std::size_t kMost = 4;

    /// The tables of a frame, valid until the next call; null if memory ran out. With `useThreads`
    /// all workers share the work of new ones.
    const ToneTables<P>* tables(const SignalParameters& signal, bool useThreads);

    /// How many calls had to build tables.
    std::uint64_t built() const { return built_; }

private:
    // The bits of all parameters that the tables of a type of television depend on.
    using Key = std::array<std::uint32_t, 7>;
    struct Entry {
        Key key{};
        std::uint64_t used = 0;  // the number of the latest call that gave it; 0: no tables
        ToneTables<P> tables;
    };

    static Key keyOf(const SignalParameters& signal);

    std::array<Entry, kMost> entries_;
    std::uint64_t calls_ = 0;
    std::uint64_t built_ = 0;
};

extern template class ToneCache<Rgba8>;
extern template class ToneCache<RgbaS214>;

}  // namespace ruvex
