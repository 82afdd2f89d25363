// Whole pictures against the stored ones: a guard against change. What is right is the business of
// the other tests.

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "tests/pictures/picture_case.h"
#include "tests/pictures/stored_picture.h"
#include "tests/pictures/test_card.h"

namespace ruvex::test {
namespace {

namespace fs = std::filesystem;

const fs::path kStored = RUVEX_STORED_PICTURES;
const fs::path kDiffering = RUVEX_DIFFERING_PICTURES;

class StoredPicture : public testing::TestWithParam<PictureCase> {};

template <class P>
void expectStored(const Picture<P>& got, const std::string& name) {
    const auto stored = readStored<P>(kStored / (name + ".png"));
    const auto difference = differenceOf(got, stored);
    if (!difference) return;
    fs::create_directories(kDiffering);
    const fs::path picture = kDiffering / (name + ".png");
    writeStored(picture, got);
    writeStored(kDiffering / (name + ".difference.png"), differencePicture(got, stored));
    ADD_FAILURE() << name << ": " << difference->text() << "; see " << picture;
}

template <class P>
void expectCase(const PictureCase& look) {
    for (const int workers : kWorkerCounts) {
        SCOPED_TRACE(testing::Message() << workers << " workers");
        expectStored(renderCase<P>(look, workers), storedName<P>(look, workers));
    }
}

TEST_P(StoredPicture, IsStillDrawnInEightBits) {
    expectCase<Rgba8>(GetParam());
}

TEST_P(StoredPicture, IsStillDrawnInS214) {
    expectCase<RgbaS214>(GetParam());
}

std::string caseName(const testing::TestParamInfo<PictureCase>& info) {
    std::string name = info.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Looks, StoredPicture, testing::ValuesIn(pictureCases()), caseName);

template <class P>
struct StoredLook {
    std::string name;
    std::vector<Picture<P>> pictures;  // one, or one for each number of workers
};

template <class P>
std::vector<StoredLook<P>> allStored() {
    std::vector<StoredLook<P>> all;
    for (const PictureCase& look : pictureCases()) {
        StoredLook<P>& stored = all.emplace_back();
        stored.name = look.name;
        for (const int workers : kWorkerCounts) {
            stored.pictures.push_back(
                readStored<P>(kStored / (storedName<P>(look, workers) + ".png")));
            if (!look.byWorkers) break;
        }
    }
    return all;
}

template <class P>
class StoredSet : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(StoredSet, FramePixels);

TYPED_TEST(StoredSet, NoPictureIsConstant) {
    for (const auto& [name, pictures] : allStored<TypeParam>()) {
        for (const auto& picture : pictures) {
            int lowest = 65535, highest = -65535;
            for (const auto& pixel : picture.pixels) {
                lowest = std::min<int>(lowest, pixel.c[1]);
                highest = std::max<int>(highest, pixel.c[1]);
            }
            EXPECT_GT(highest - lowest, sizeof(TypeParam) == 4 ? 25 : 1600) << name;
        }
    }
}

// A look that lost its fault would repeat another one. The drain of colour alone ends in grey
// without a step.
TYPED_TEST(StoredSet, NoTwoLooksAreAlike) {
    const auto all = allStored<TypeParam>();
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) {
            const bool grey = all[i].name == "degrade-above-two-fifths" &&
                              all[k].name == "degrade-below-two-fifths";
            EXPECT_EQ(all[i].pictures.front() == all[k].pictures.front(), grey)
                << all[i].name << ", " << all[k].name;
        }
    }
}

TYPED_TEST(StoredSet, NoLookIsStoredByWorkersForNothing) {
    for (const auto& [name, pictures] : allStored<TypeParam>()) {
        if (pictures.size() == 1) continue;
        EXPECT_FALSE(pictures[0] == pictures[1] && pictures[0] == pictures[2]) << name;
    }
}

TEST(StoredFolder, HoldsThePicturesOfTheCasesAlone) {
    std::set<std::string> wanted;
    for (const PictureCase& look : pictureCases()) {
        for (const int workers : kWorkerCounts) {
            wanted.insert(storedName<Rgba8>(look, workers) + ".png");
            wanted.insert(storedName<RgbaS214>(look, workers) + ".png");
        }
    }
    std::set<std::string> found;
    std::uintmax_t bytes = 0;
    for (const auto& entry : fs::directory_iterator(kStored)) {
        found.insert(entry.path().filename().string());
        bytes += entry.file_size();
    }
    EXPECT_EQ(found, wanted);
    EXPECT_LT(bytes, 2'000'000u);
}

TYPED_TEST(StoredSet, WhatIsWrittenIsReadBack) {
    Picture<TypeParam> picture = testCard<TypeParam>(16, 12, 3);
    int value = -32768;
    for (auto& pixel : picture.pixels) {
        for (auto& c : pixel.c) c = static_cast<typename TypeParam::Component>(value += 85);
    }
    fs::create_directories(kDiffering);
    const fs::path file = kDiffering / ("round-trip" + std::to_string(sizeof(TypeParam)) + ".png");
    writeStored(file, picture);
    EXPECT_EQ(readStored<TypeParam>(file), picture);
    fs::remove(file);
}

TYPED_TEST(StoredSet, DifferencesAreCountedFromTheBottomLeft) {
    const auto stored = testCard<TypeParam>(16, 12);
    auto got = stored;
    got.pixels[3 * 16 + 5].c[0] ^= 1;
    got.pixels[7 * 16 + 2].c[3] ^= 4;
    const auto difference = differenceOf(got, stored);
    ASSERT_TRUE(difference);
    EXPECT_EQ(difference->pixels, 2);
    EXPECT_EQ(difference->firstX, 5);
    EXPECT_EQ(difference->firstY, 3);
    EXPECT_EQ(difference->largest, 4);
    EXPECT_FALSE(differenceOf(stored, stored));
    const auto shown = differencePicture(got, stored);
    EXPECT_EQ(shown.at(2, 7).c[3], sizeof(TypeParam) == 4 ? 255 : 32767);
    EXPECT_EQ(shown.at(0, 0), TypeParam{});
}

}  // namespace
}  // namespace ruvex::test
