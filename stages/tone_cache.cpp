#include "stages/tone_cache.h"

#include <algorithm>
#include <bit>

namespace ruvex {

template <class P>
typename ToneCache<P>::Key ToneCache<P>::keyOf(const SignalParameters& signal) {
    const auto bits = [](float value) { return std::bit_cast<std::uint32_t>(value); };
    Key key{static_cast<std::uint32_t>(signal.tvType), bits(signal.contrast),
            bits(signal.brightness)};
    switch (signal.tvType) {
        case TvType::BlackAndWhite:
            break;
        case TvType::Tint:
            std::transform(std::begin(signal.tint), std::end(signal.tint), key.begin() + 3, bits);
            break;
        default:
            key[3] = bits(signal.gunRed);
            key[4] = bits(signal.gunGreen);
            key[5] = bits(signal.gunBlue);
    }
    return key;
}

template <class P>
const ToneTables<P>* ToneCache<P>::tables(const SignalParameters& signal, bool useThreads) {
    ++calls_;
    const Key key = keyOf(signal);
    for (Entry& entry : entries_) {
        if (entry.used == 0 || entry.key != key) continue;
        entry.used = calls_;
        return &entry.tables;
    }
    Entry& oldest =
        *std::min_element(entries_.begin(), entries_.end(),
                          [](const Entry& a, const Entry& b) { return a.used < b.used; });
    ++built_;
    oldest.used = 0;
    if (!oldest.tables.build(signal, useThreads)) return nullptr;
    oldest.key = key;
    oldest.used = calls_;
    return &oldest.tables;
}

template class ToneCache<Rgba8>;
template class ToneCache<RgbaS214>;

}  // namespace ruvex
