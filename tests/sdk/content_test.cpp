#include "sdk/effect/content.h"

#include <gtest/gtest.h>
#include <thread>

namespace {

TEST(Content, PropertiesAreReadableOnceTheyAreSet) {
    double value = 1.5;
    EXPECT_EQ(DSContentGetProperty(L"Some Content", &value), E_INVALIDARG);
    EXPECT_EQ(value, 1.5);
    EXPECT_EQ(DSContentSetProperty(L"Some Content", 1920.0), S_OK);
    EXPECT_EQ(DSContentGetProperty(L"Some Content", &value), S_OK);
    EXPECT_EQ(value, 1920.0);
    EXPECT_EQ(DSContentSetProperty(L"Some Content", 720.0), S_OK);
    EXPECT_EQ(DSContentGetProperty(L"Some Content", &value), S_OK);
    EXPECT_EQ(value, 720.0);
    EXPECT_EQ(DSContentClearProperty(L"Some Content"), S_OK);
    EXPECT_EQ(DSContentGetProperty(L"Some Content", &value), E_INVALIDARG);
    EXPECT_EQ(DSContentClearProperty(L"Some Content"), S_FALSE);
}

TEST(Content, MissingPointersAreRefused) {
    double value = 0.0;
    EXPECT_EQ(DSContentGetProperty(nullptr, &value), E_POINTER);
    EXPECT_EQ(DSContentGetProperty(L"Some Content", nullptr), E_POINTER);
    EXPECT_EQ(DSContentSetProperty(nullptr, 1.0), E_POINTER);
    EXPECT_EQ(DSContentClearProperty(nullptr), E_POINTER);
}

TEST(Content, ThreadsSeeOneValueOrTheOther) {
    DSContentSetProperty(L"Shared Content", 1.0);
    std::jthread writer([] {
        for (int i = 0; i < 2000; ++i) DSContentSetProperty(L"Shared Content", i % 2 ? 1.0 : 2.0);
    });
    for (int i = 0; i < 2000; ++i) {
        double value = 0.0;
        ASSERT_EQ(DSContentGetProperty(L"Shared Content", &value), S_OK);
        ASSERT_TRUE(value == 1.0 || value == 2.0);
    }
    writer.join();
    DSContentClearProperty(L"Shared Content");
}

}  // namespace
