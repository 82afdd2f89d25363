#include "media/digest.h"

#include <gtest/gtest.h>

namespace ruvex::media {
namespace {

std::string digestOf(std::initializer_list<std::string_view> texts) {
    Digest digest;
    for (const std::string_view text : texts) digest.add(text);
    return digest.finish();
}

// As another program computes it of the length and the letters:
// printf '\0\0\0\0\0\0\0\3abc' >f; ffmpeg -f data -i f -map 0 -c copy -f hash -hash murmur3 -
TEST(Digest, IsOfLengthsAndBytes) {
    EXPECT_EQ(digestOf({"abc"}), "ca4f666ec4da7e14516039e783b6584f");
}

TEST(Digest, TellsHowTheBytesAreDivided) {
    EXPECT_NE(digestOf({"ab", "c"}), digestOf({"abc"}));
    EXPECT_NE(digestOf({"ab", "c"}), digestOf({"a", "bc"}));
    EXPECT_NE(digestOf({"abc", ""}), digestOf({"abc"}));
    EXPECT_EQ(digestOf({"ab", "c"}), digestOf({"ab", "c"}));
}

}  // namespace
}  // namespace ruvex::media
