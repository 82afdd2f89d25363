#include "tests/frames/frame_list.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

namespace ruvex::test {
namespace {

std::span<const std::byte> bytesOf(const std::string& text) {
    return std::as_bytes(std::span(text));
}

TEST(Digest, IsTheHashOfThatName) {
    // From the definition: no bytes give the offset basis; "a" is one step of it.
    EXPECT_EQ(digestOf({}), "6c62272e07bb014262b821756295c58d");
    EXPECT_EQ(digestOf(bytesOf("a")), "d228cb696f1a8caf78912b704e4a8964");
    EXPECT_NE(digestOf(bytesOf("ab")), digestOf(bytesOf("ba")));
}

TEST(FrameBytes, AreConstantWhenAllPixelsAreAlike) {
    const auto frame = [](std::initializer_list<int> values) {
        FrameBytes made{{}, 2};
        for (const int value : values) made.bytes.push_back(static_cast<std::byte>(value));
        return made;
    };
    EXPECT_TRUE(frame({1, 2}).constant());
    EXPECT_TRUE(frame({1, 2, 1, 2, 1, 2}).constant());
    EXPECT_FALSE(frame({1, 2, 1, 2, 1, 3}).constant());
    EXPECT_FALSE(frame({1, 2, 2, 1}).constant());
}

TEST(FrameList, NamesEachFrameOnce) {
    std::set<std::string> names, looks;
    for (const NamedFrame& frame : namedFrames()) {
        EXPECT_TRUE(names.insert(frame.name).second) << frame.name;
        looks.insert(frame.look);
    }
    EXPECT_GE(looks.size(), 40u);
    EXPECT_EQ(names.size(), looks.size() * 6) << "two formats, three numbers of workers";
}

// A look that draws what another one draws shows that its stage did nothing.
TEST(FrameList, NoTwoLooksAreAlikeAndNoneIsConstant) {
    std::map<std::string, std::string> seen;
    for (const NamedFrame& frame : namedFrames()) {
        // Degrading runs smoothly into grey: the two sides of that bound are alike in whole
        // numbers.
        if (!frame.name.ends_with(".workers2") || frame.look == "degrade-below-two-fifths")
            continue;
        const FrameBytes rendered = frame.render();
        EXPECT_FALSE(rendered.constant()) << frame.name;
        const auto [other, fresh] = seen.emplace(digestOf(rendered.bytes), frame.name);
        EXPECT_TRUE(fresh) << frame.name << " is " << other->second;
    }
}

}  // namespace
}  // namespace ruvex::test
