// SHA-256, to tell whether bytes are those that were written.

#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

#include "media/av_functions.h"

namespace ruvex::media {

/// A digest of byte strings in order. The length of each counts too, so that the same bytes divided
/// in another way give another digest.
class Sha256 {
public:
    /// Throws std::bad_alloc.
    Sha256();

    void add(std::span<const std::byte> bytes);
    void add(std::string_view text) { add(std::as_bytes(std::span(text))); }

    /// The digest of what has been added as 64 hexadecimal digits, in small letters. Nothing can be
    /// added afterwards.
    std::string finish();

private:
    struct Free {
        void operator()(AVSHA* sha) const { av_free(sha); }
    };
    std::unique_ptr<AVSHA, Free> sha_;
};

}  // namespace ruvex::media
