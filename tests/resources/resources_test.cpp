#include "sdk/resources/resources.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "pages/resources/resources.h"
#include "parameters/strings.h"
#include "sdk/resources/resource_file.h"
#include "tests/resources/resource_bytes.h"

namespace ruvex {
namespace {

using resource_test::Bytes;

DSModuleInstance instanceOf(const Bytes& bytes) {
    return {bytes.data(), bytes.data() + bytes.size()};
}

DSModuleInstance embedded() {
    return {ruvexResourcesBegin, ruvexResourcesEnd};
}

/// The resources of tests/resources/umlauts.rc, in memory of exactly their size.
Bytes umlauts() {
    return resource_test::readBytes(RUVEX_UMLAUTS_RES);
}

std::wstring load(DSModuleInstance instance, unsigned int id, int size = 1024) {
    std::vector<wchar_t> buffer(static_cast<std::size_t>(size), L'#');
    const int count = LoadStringW(&instance, id, buffer.data(), size);
    EXPECT_EQ(buffer[static_cast<std::size_t>(count)], L'\0');
    return std::wstring(buffer.data(), static_cast<std::size_t>(count));
}

TEST(LoadString, GivesEveryStringOfTheTable) {
    for (const strings::Entry& entry : strings::table()) {
        const std::wstring expected(entry.text.begin(), entry.text.end());
        EXPECT_EQ(load(embedded(), static_cast<unsigned>(entry.id)), expected) << entry.id;
    }
}

TEST(LoadString, GivesNothingForAllOtherIdentifiers) {
    const auto entries = strings::table();
    for (int id = 0; id < 65536; ++id) {
        const bool known = std::ranges::binary_search(entries, id, {}, &strings::Entry::id);
        EXPECT_EQ(load(embedded(), static_cast<unsigned>(id)).empty(), !known) << id;
    }
}

TEST(LoadString, CutsOffWhatDoesNotFit) {
    EXPECT_EQ(load(embedded(), 1, 8), L"V_Ruvex");
    EXPECT_EQ(load(embedded(), 1, 7), L"V_Ruve");
    EXPECT_EQ(load(embedded(), 1, 2), L"V");
    EXPECT_EQ(load(embedded(), 1, 1), L"");
}

TEST(LoadString, LeavesAnEmptyBufferAlone) {
    DSModuleInstance instance = embedded();
    wchar_t untouched = L'#';
    EXPECT_EQ(LoadStringW(&instance, 1, &untouched, 0), 0);
    EXPECT_EQ(LoadStringW(&instance, 1, &untouched, -5), 0);
    EXPECT_EQ(LoadStringW(&instance, 1, nullptr, 10), 0);
    EXPECT_EQ(untouched, L'#');
}

TEST(LoadString, AModuleWithoutResourcesHasNoStrings) {
    wchar_t buffer[4] = L"abc";
    EXPECT_EQ(LoadStringW(nullptr, 1, buffer, 4), 0);
    EXPECT_EQ(buffer[0], L'\0');
    EXPECT_EQ(load({nullptr, nullptr}, 1), L"");
}

TEST(LoadString, CountsTheLowWordOfAnIdentifier) {
    EXPECT_EQ(load(embedded(), 0x10001), L"V_Ruvex");
}

TEST(LoadString, ReadsTextBeyondAsciiAndTheEndsOfBlocks) {
    const Bytes bytes = umlauts();
    EXPECT_EQ(load(instanceOf(bytes), 15), L"last of its block");
    EXPECT_EQ(load(instanceOf(bytes), 16), L"S\u00FC\u00DF \u2013 \"quoted\" \\ back");
    EXPECT_EQ(load(instanceOf(bytes), 17), L"");
    EXPECT_EQ(load(instanceOf(bytes), 18), L"\U0001D11E clef");
    EXPECT_EQ(load(instanceOf(bytes), 65535), L"last of all");
}

TEST(LoadString, HalfAPairIsReplaced) {
    Bytes bytes = umlauts();
    const unsigned char leading[] = {0x34, 0xD8};  // the first half of the clef
    const auto found = std::ranges::search(bytes, leading);
    ASSERT_EQ(found.size(), 2u);
    found.begin()[1] = 0xDC;
    EXPECT_EQ(load(instanceOf(bytes), 18), L"\uFFFD\uFFFD clef");
}

TEST(ResourceFile, FindsNothingInOtherTypesAndNumbers) {
    const Bytes bytes = umlauts();
    const ResourceFile file(bytes);
    EXPECT_TRUE(file.find(ResourceType::String, 1));
    EXPECT_TRUE(file.find(ResourceType::String, 2));
    EXPECT_FALSE(file.find(ResourceType::String, 3));
    EXPECT_FALSE(file.find(ResourceType::Dialog, 1));
}

/// Reads whatever `bytes` hold, from memory that ends where they end.
void readAll(const Bytes& bytes) {
    Bytes exact(bytes);
    exact.shrink_to_fit();
    const ResourceFile file(exact);
    for (const std::uint16_t id : {1, 15, 16, 17, 18, 1161, 5033, 65535}) {
        const auto text = file.string(id);
        if (text) {
            EXPECT_LE(2 * text->size(), exact.size());
        }
        load(instanceOf(exact), id, 16);
    }
    for (const auto type : {ResourceType::Bitmap, ResourceType::Dialog, ResourceType::String}) {
        const auto record = file.find(type, 1);
        if (!record) continue;
        EXPECT_GE(record->data.data(), exact.data());
        EXPECT_LE(record->data.data() + record->data.size(), exact.data() + exact.size());
    }
}

TEST(ResourceFile, AFileThatIsCutOffAnywhereStaysWithinItsBytes) {
    resource_test::forEachCut(umlauts(), readAll);
}

TEST(ResourceFile, WhatStandsBeforeTheCutIsStillRead) {
    const Bytes whole = umlauts();
    const Bytes most(whole.begin(), whole.end() - 8);
    EXPECT_EQ(load(instanceOf(most), 15), L"last of its block");
    EXPECT_EQ(load(instanceOf(most), 65535), L"");
}

TEST(ResourceFile, DamagedBytesStayWithinTheFile) {
    resource_test::forEachDamage(umlauts(), readAll);
}

TEST(ResourceFile, RandomBytesStayWithinTheFile) {
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        Bytes bytes(random() % 200);
        for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(random() % 4 * 85);
        readAll(bytes);
    }
}

TEST(ResourceFile, AnEmptyHeaderEndsTheFile) {
    // Sizes of 0 would otherwise be walked for ever.
    readAll(Bytes(64, 0));
    EXPECT_FALSE(ResourceFile(Bytes(64, 0)).find(ResourceType::String, 1));
}

}  // namespace
}  // namespace ruvex
