#include "sdk/effect/content.h"

#include <barrier>
#include <gtest/gtest.h>
#include <thread>

namespace {

const DSContent kHigh = {{L"Height", 576.0}};
const DSContent kLow = {{L"Height", 240.0}, {L"Width", 320.0}};

/// The value of a property; -1 if there is none.
double read(const wchar_t* name) {
    VARIANT value = DSVariantFromReal(-1.0);
    const HRESULT status = DSContentGetProperty(name, &value);
    EXPECT_EQ(value.vt, VT_R8);
    EXPECT_EQ(status, value.dblVal == -1.0 ? E_INVALIDARG : S_OK);
    return value.dblVal;
}

TEST(Content, IsReadableWhileItIsCurrent) {
    EXPECT_EQ(read(L"Height"), -1.0);
    {
        const DSContentScope scope(kHigh);
        EXPECT_EQ(read(L"Height"), 576.0);
        EXPECT_EQ(read(L"Width"), -1.0);
    }
    EXPECT_EQ(read(L"Height"), -1.0);
}

TEST(Content, TheOneBeforeAScopeIsCurrentAgainAfterIt) {
    const DSContentScope outer(kHigh);
    {
        const DSContentScope inner(kLow);
        EXPECT_EQ(read(L"Height"), 240.0);
    }
    EXPECT_EQ(read(L"Height"), 576.0);
    EXPECT_EQ(read(L"Width"), -1.0);
}

TEST(Content, MissingPointersAreRefused) {
    VARIANT value{};
    EXPECT_EQ(DSContentGetProperty(nullptr, &value), E_POINTER);
    EXPECT_EQ(DSContentGetProperty(L"Height", nullptr), E_POINTER);
}

TEST(Content, EachThreadHasItsOwn) {
    std::barrier together(2);
    std::jthread other([&] {
        EXPECT_EQ(read(L"Height"), -1.0);
        const DSContentScope scope(kLow);
        together.arrive_and_wait();
        EXPECT_EQ(read(L"Height"), 240.0);
        together.arrive_and_wait();
    });
    const DSContentScope scope(kHigh);
    together.arrive_and_wait();
    EXPECT_EQ(read(L"Height"), 576.0);
    together.arrive_and_wait();
}

}  // namespace
