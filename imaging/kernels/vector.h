// Vectors of 32-bit lanes for loops that the compiler does not vectorise well by itself.

#pragma once

#include <cstdint>
#include <cstring>

#include "imaging/pixel_convert.h"

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace ruvex::detail {

/// The lanes of the widest registers that the including source is compiled for. `Processor` is a
/// tag type local to that source, here and below, so that the linker can't merge versions.
template <class Processor>
#if defined(__AVX512BW__)
inline constexpr int kVectorLanes = 16;
#elif defined(__AVX2__)
inline constexpr int kVectorLanes = 8;
#else
inline constexpr int kVectorLanes = 4;
#endif

/// The types of a vector, and operations for which compilers have no operators. For four lanes it
/// is plain C++.
template <class Processor, int Lanes>
struct VectorOperations {
    static constexpr int kLanes = 4;
    static_assert(Lanes == kLanes);
    typedef float Floats __attribute__((vector_size(16)));
    typedef std::int32_t Ints __attribute__((vector_size(16)));
    typedef std::uint32_t Words __attribute__((vector_size(16)));

    [[gnu::always_inline]] static Floats larger(Floats a, Floats b) { return a > b ? a : b; }
    [[gnu::always_inline]] static Floats smaller(Floats a, Floats b) { return a < b ? a : b; }
    [[gnu::always_inline]] static Ints truncated(Floats values) {
        Ints result{};
        for (int k = 0; k < kLanes; ++k) result[k] = truncateToInt(values[k]);
        return result;
    }
    template <class T>
    [[gnu::always_inline]] static Ints widened(const T* from) {
        Ints result{};
        for (int k = 0; k < kLanes; ++k) result[k] = from[k];
        return result;
    }
    template <class T>
    [[gnu::always_inline]] static void narrow(Ints values, T* to) {
        for (int k = 0; k < kLanes; ++k) to[k] = static_cast<T>(values[k]);
    }
    [[gnu::always_inline]] static Floats entries(const float* table, Ints indices) {
        Floats result{};
        for (int k = 0; k < kLanes; ++k) result[k] = table[indices[k]];
        return result;
    }
    [[gnu::always_inline]] static Ints quads(const std::int32_t* from, std::int64_t) {
        Ints result;
        std::memcpy(&result, from, sizeof result);
        return result;
    }
};

#if defined(__AVX2__)
template <class Processor>
struct VectorOperations<Processor, 8> {
    typedef float Floats __attribute__((vector_size(32)));
    typedef std::int32_t Ints __attribute__((vector_size(32)));
    typedef std::uint32_t Words __attribute__((vector_size(32)));

    [[gnu::always_inline]] static Floats larger(Floats a, Floats b) { return _mm256_max_ps(a, b); }
    [[gnu::always_inline]] static Floats smaller(Floats a, Floats b) { return _mm256_min_ps(a, b); }
    [[gnu::always_inline]] static Ints truncated(Floats values) {
        return reinterpret_cast<Ints>(_mm256_cvttps_epi32(values));
    }
    [[gnu::always_inline]] static Ints widened(const std::uint8_t* from) {
        const auto bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(from));
        return reinterpret_cast<Ints>(_mm256_cvtepu8_epi32(bytes));
    }
    [[gnu::always_inline]] static Ints widened(const std::int16_t* from) {
        const auto words = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        return reinterpret_cast<Ints>(_mm256_cvtepi16_epi32(words));
    }
    [[gnu::always_inline]] static void narrow(Ints values, std::uint8_t* to) {
        const __m128i words = packed(values);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(to), _mm_packus_epi16(words, words));
    }
    [[gnu::always_inline]] static void narrow(Ints values, std::int16_t* to) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), packed(values));
    }
    [[gnu::always_inline]] static Floats entries(const float* table, Ints indices) {
        return _mm256_i32gather_ps(table, reinterpret_cast<__m256i>(indices), sizeof(float));
    }
    [[gnu::always_inline]] static Ints quads(const std::int32_t* from, std::int64_t stride) {
        return reinterpret_cast<Ints>(
            _mm256_loadu2_m128i(reinterpret_cast<const __m128i*>(from + stride),
                                reinterpret_cast<const __m128i*>(from)));
    }

private:
    [[gnu::always_inline]] static __m128i packed(Ints values) {
        const auto wide = reinterpret_cast<__m256i>(values);
        return _mm_packs_epi32(_mm256_castsi256_si128(wide), _mm256_extracti128_si256(wide, 1));
    }
};
#endif

#if defined(__AVX512BW__)
template <class Processor>
struct VectorOperations<Processor, 16> {
    typedef float Floats __attribute__((vector_size(64)));
    typedef std::int32_t Ints __attribute__((vector_size(64)));
    typedef std::uint32_t Words __attribute__((vector_size(64)));

    [[gnu::always_inline]] static Floats larger(Floats a, Floats b) { return _mm512_max_ps(a, b); }
    [[gnu::always_inline]] static Floats smaller(Floats a, Floats b) { return _mm512_min_ps(a, b); }
    [[gnu::always_inline]] static Ints truncated(Floats values) {
        return reinterpret_cast<Ints>(_mm512_cvttps_epi32(values));
    }
    [[gnu::always_inline]] static Ints widened(const std::uint8_t* from) {
        const auto bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        return reinterpret_cast<Ints>(_mm512_cvtepu8_epi32(bytes));
    }
    [[gnu::always_inline]] static Ints widened(const std::int16_t* from) {
        const auto words = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
        return reinterpret_cast<Ints>(_mm512_cvtepi16_epi32(words));
    }
    [[gnu::always_inline]] static void narrow(Ints values, std::uint8_t* to) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to),
                         _mm512_cvtepi32_epi8(reinterpret_cast<__m512i>(values)));
    }
    [[gnu::always_inline]] static void narrow(Ints values, std::int16_t* to) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to),
                            _mm512_cvtepi32_epi16(reinterpret_cast<__m512i>(values)));
    }
    [[gnu::always_inline]] static Floats entries(const float* table, Ints indices) {
        return _mm512_i32gather_ps(reinterpret_cast<__m512i>(indices), table, sizeof(float));
    }
    [[gnu::always_inline]] static Ints quads(const std::int32_t* from, std::int64_t stride) {
        using Half = VectorOperations<Processor, 8>;
        const auto low = reinterpret_cast<__m256i>(Half::quads(from, stride));
        const auto high = reinterpret_cast<__m256i>(Half::quads(from + 2 * stride, stride));
        return reinterpret_cast<Ints>(_mm512_inserti64x4(_mm512_castsi256_si512(low), high, 1));
    }
};
#endif

/// `kLanes` floats or integers at once. Everything is always inline: the linker must not take one
/// source's copy for all.
template <class Processor, int kLanes>
struct Vector {
    using Operations = VectorOperations<Processor, kLanes>;
    using Floats = typename Operations::Floats;
    using Ints = typename Operations::Ints;
    using Words = typename Operations::Words;  ///< for arithmetic that may wrap

    [[gnu::always_inline]] static Floats all(float value) { return value - Floats{}; }
    [[gnu::always_inline]] static Ints all(std::int32_t value) { return value - Ints{}; }
    [[gnu::always_inline]] static Words all(std::uint32_t value) { return value - Words{}; }

    [[gnu::always_inline]] static Floats load(const float* from) { return loadAs<Floats>(from); }
    [[gnu::always_inline]] static Ints load(const std::int32_t* from) { return loadAs<Ints>(from); }
    [[gnu::always_inline]] static Words load(const std::uint32_t* from) {
        return loadAs<Words>(from);
    }
    template <class Lanes, class T>
    [[gnu::always_inline]] static void store(const Lanes& values, T* to) {
        std::memcpy(to, &values, sizeof values);
    }

    /// The larger of two numbers, or the second one if either is NaN.
    [[gnu::always_inline]] static Floats larger(Floats a, Floats b) {
        return Operations::larger(a, b);
    }
    /// The smaller of two numbers, or the second one if either is NaN.
    [[gnu::always_inline]] static Floats smaller(Floats a, Floats b) {
        return Operations::smaller(a, b);
    }
    [[gnu::always_inline]] static Floats toFloats(Ints values) {
        return __builtin_convertvector(values, Floats);
    }
    /// As truncateToInt does.
    [[gnu::always_inline]] static Ints truncated(Floats values) {
        return Operations::truncated(values);
    }
    /// Components of pixels as integers.
    template <class Component>
    [[gnu::always_inline]] static Ints widened(const Component* from) {
        return Operations::widened(from);
    }
    /// Stores integers as components of pixels, in whose range they must be.
    template <class Component>
    [[gnu::always_inline]] static void narrow(Ints values, Component* to) {
        Operations::narrow(values, to);
    }
    /// The entries of a table at these indices.
    [[gnu::always_inline]] static Floats entries(const float* table, Ints indices) {
        return Operations::entries(table, indices);
    }
    /// Groups of four integers; from one group to the next there are `stride` integers.
    [[gnu::always_inline]] static Ints quads(const std::int32_t* from, std::int64_t stride) {
        return Operations::quads(from, stride);
    }

private:
    template <class Lanes, class T>
    [[gnu::always_inline]] static Lanes loadAs(const T* from) {
        Lanes values;
        std::memcpy(&values, from, sizeof values);
        return values;
    }
};

}  // namespace ruvex::detail
