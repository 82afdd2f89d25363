#include "files/sha256.h"

#include <gtest/gtest.h>

namespace ruvex::files {
namespace {

// The examples that the standard is published with.
TEST(Sha256, OfThePublishedExamples) {
    EXPECT_EQ(sha256Of(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256Of("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256Of("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(sha256Of(std::string(1000000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, DoesNotDependOnThePieces) {
    std::string text;
    for (int i = 0; i < 300; ++i) text += static_cast<char>(i * 7);
    for (std::size_t piece = 1; piece < 140; ++piece) {
        Sha256 digest;
        for (std::size_t at = 0; at < text.size(); at += piece) {
            digest.add(
                std::as_bytes(std::span(text)).subspan(at, std::min(piece, text.size() - at)));
        }
        EXPECT_EQ(digest.finish(), sha256Of(text)) << piece;
    }
}

}  // namespace
}  // namespace ruvex::files
