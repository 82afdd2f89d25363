#include "media/av_loading.h"

#include <gtest/gtest.h>
#include <string>

#include "media/av_functions.h"
#include "media/media_error.h"

namespace ruvex::media {
namespace {

std::string failureOf(const char* library, const char* function) {
    try {
        loadedFunction(library, function);
    } catch (const MediaError& error) {
        return error.what();
    }
    return {};
}

// This program is linked with the libraries, so that both ways lead to the same function.
TEST(AvLoading, AFunctionIsThatOfTheLibrary) {
    EXPECT_EQ(loadedFunction("libavutil.so." AV_STRINGIFY(LIBAVUTIL_VERSION_MAJOR), "av_reduce"),
              reinterpret_cast<void*>(&::av_reduce));
    int numerator = 0, denominator = 0;
    av_reduce(&numerator, &denominator, 6, 4, 100);
    EXPECT_EQ(numerator, 3);
    EXPECT_EQ(denominator, 2);
}

TEST(AvLoading, AMissingLibraryIsNamed) {
    EXPECT_NE(failureOf("libmissing.so.1", "anything").find("libmissing.so.1"), std::string::npos);
}

TEST(AvLoading, AMissingFunctionIsNamed) {
    EXPECT_NE(failureOf("libc.so.6", "no_such_function").find("no_such_function"),
              std::string::npos);
}

}  // namespace
}  // namespace ruvex::media
