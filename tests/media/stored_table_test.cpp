// Frames that are found through a stored index are those that are found without one.

#include "media/video/stored_table.h"

#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <random>

#include "files/whole_file.h"
#include "media/video/video_index.h"
#include "tests/media/test_clips.h"
#include "tests/support/bytes_read.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

namespace fs = std::filesystem;

PictureTable sampleTable() {
    return {.pictures = {{-40, 40, true}, {0, 40, false}, {40, 41, true}},
            .timed = true,
            .unit = {1, 1000},
            .declared = {{25, 1}, {30000, 1001}}};
}

struct StoredIndex : testing::Test {
    fs::path clip(const std::string& name) const { return folder.file(name); }
    fs::path index() const { return folder.file("index"); }
    ReadOptions reading() const { return {.index = index()}; }

    void store(const fs::path& file) const {
        files::writeWhole(index(), openReader(file)->index());
    }
    /// One that tells another number of frames, by which it is known whether it was read.
    void storeShorter(const fs::path& file) const {
        PictureTable table = listPictures(file);
        table.pictures.pop_back();
        files::writeWhole(index(), storedTable(table, files::stampOf(file).value()));
    }
    std::string makeClip(const std::string& name, double seconds = 1) const {
        runFfmpeg(movingPicture("64x48", "25", seconds) + " -c:v libx264 -bf 2 -g 12", clip(name));
        return name;
    }

    files::TempFolder folder;
};

void expectTheSame(const ClipInfo& stored, const ClipInfo& built) {
    EXPECT_EQ(stored.rate, built.rate);
    EXPECT_EQ(stored.uneven, built.uneven);
    EXPECT_EQ(stored.pictures, built.pictures);
    EXPECT_EQ(stored.leftOut, built.leftOut);
    EXPECT_EQ(stored.last, built.last);
    EXPECT_EQ(stored.start, built.start);
    EXPECT_EQ(stored.fields, built.fields);
}

/// Reads all frames in order and many at random, of one reader each.
void expectTheSameFrames(const fs::path& file, const ReadOptions& stored) {
    const auto frames = readAll(*openReader(file));
    ASSERT_GT(frames.size(), 8u);
    EXPECT_TRUE(readAll(*openReader(file, stored)) == frames);
    const auto reader = openReader(file, stored);
    std::mt19937 random(7);
    Frame frame;
    for (int i = 0; i < 30; ++i) {
        const std::size_t k = random() % frames.size();
        ASSERT_TRUE(reader->read(static_cast<std::int64_t>(k), frame));
        EXPECT_TRUE(frame == frames[k]) << k;
    }
}

struct Kind {
    const char* name;
    const char* arguments;  ///< For the ffmpeg command, behind those of the moving picture.
};
constexpr Kind kKinds[] = {
    {"b.mp4", "-c:v libx264 -g 12 -bf 3"},
    {"b.mov", "-c:v libx264 -g 12 -bf 3 -x264-params open-gop=1"},
    {"b.mkv", "-c:v mpeg2video -g 12 -bf 2"},
    {"b.ts", "-c:v libx264 -g 12 -bf 2"},
    {"b.avi", "-c:v libx264 -g 12 -bf 2"},
    {"b.h264", "-c:v libx264 -g 12 -bf 2"},
    {"intra.mov", "-c:v prores_ks"},
    {"intra.mkv", "-c:v ffv1"},
    {"fields.mpg", "-c:v mpeg2video -g 12 -bf 2 -flags +ilme+ildct -top 1"},
    {"fields.mp4", "-c:v libx264 -g 12 -bf 2 -flags +ilme+ildct -x264-params tff=1"},
    {"variable.mkv",
     "-vf \"select='lt(n,15)+between(n,25,30)+gt(n,30)*mod(n,2)'\" -vsync vfr "
     "-c:v libx264 -g 12 -bf 2"},
    {"variable.mp4",
     "-vf \"select='lt(n,15)+between(n,25,30)+gt(n,30)*mod(n,2)'\" -vsync vfr "
     "-c:v libx264 -g 12 -bf 2"},
};

class StoredIndexOf : public StoredIndex, public testing::WithParamInterface<Kind> {};

TEST_P(StoredIndexOf, AClipGivesTheSameFrames) {
    const fs::path file = clip(GetParam().name);
    runFfmpeg(movingPicture("96x64", "25", 1.6) + " " + GetParam().arguments, file);
    store(file);
    ASSERT_TRUE(readStoredTable(index(), files::stampOf(file).value()));
    const auto built = openReader(file);
    const auto stored = openReader(file, reading());
    expectTheSame(stored->info(), built->info());
    EXPECT_EQ(stored->index(), built->index());
    expectTheSameFrames(file, reading());
}

INSTANTIATE_TEST_SUITE_P(Kinds, StoredIndexOf, testing::ValuesIn(kKinds), [](const auto& info) {
    std::string name = info.param.name;
    name[name.find('.')] = '_';
    return name;
});

TEST_F(StoredIndex, OfAnotherRateIsThatOfTheClip) {
    const fs::path file = clip("variable.mkv");
    runFfmpeg(movingPicture("64x48", "25", 1.6) +
                  " -vf \"select='lt(n,15)+gt(n,30)*mod(n,2)'\" -vsync vfr -c:v libx264",
              file);
    store(file);
    ReadOptions stored = reading();
    stored.rate = Rational{10, 1};
    const auto built = openReader(file, {.rate = Rational{10, 1}});
    expectTheSame(openReader(file, stored)->info(), built->info());
    EXPECT_GT(built->info().leftOut, 0);
    EXPECT_TRUE(readAll(file, stored) == readAll(*built));
}

TEST_F(StoredIndex, OfAnEditListSkipsWhatTheListSkips) {
    runFfmpeg("-ss 0.3 -i " + quoted(clip(makeClip("whole.mp4", 2))) + " -c copy", clip("cut.mp4"));
    EXPECT_EQ(openReader(clip("cut.mp4"))->info().last, 50 - 8 - 1);
    store(clip("cut.mp4"));
    expectTheSameFrames(clip("cut.mp4"), reading());
}

TEST_F(StoredIndex, KnowsThePicturesThatCannotBeDecoded) {
    runFfmpeg(movingPicture("96x64", "25", 2) + " -g 12 -bf 2 -c:v mpeg2video -q:v 2",
              clip("whole.ts"));
    std::ifstream whole(clip("whole.ts"), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(whole)), {});
    constexpr std::size_t kPacket = 188;
    std::ofstream(clip("late.ts"), std::ios::binary)
        << bytes.substr(bytes.size() / 3 / kPacket * kPacket);
    const fs::path file = clip("late.ts");
    store(file);
    EXPECT_GT(listPictures(file).pictures.size(), readAll(file).size());
    expectTheSame(openReader(file, reading())->info(), openReader(file)->info());
    expectTheSameFrames(file, reading());
}

TEST_F(StoredIndex, IsReadInsteadOfTheClip) {
    const fs::path file = clip(makeClip("a.mp4"));
    storeShorter(file);
    EXPECT_EQ(openReader(file, reading())->info().last, 23);
    EXPECT_EQ(openReader(file)->info().last, 24);
}

TEST_F(StoredIndex, OfAnotherClipIsIgnored) {
    const fs::path file = clip(makeClip("a.mp4"));
    storeShorter(file);
    const auto written = fs::last_write_time(file);
    fs::last_write_time(file, written + std::chrono::seconds(1));
    EXPECT_EQ(openReader(file, reading())->info().last, 24);
    fs::last_write_time(file, written);
    EXPECT_EQ(openReader(file, reading())->info().last, 23);
    std::ofstream(file, std::ios::binary | std::ios::app) << std::string(8, '\0');
    fs::last_write_time(file, written);
    EXPECT_EQ(openReader(file, reading())->info().last, 24);
}

TEST_F(StoredIndex, ThatIsMissingOrNoFileIsIgnored) {
    const fs::path file = clip(makeClip("a.mp4"));
    EXPECT_EQ(openReader(file, reading())->info().last, 24);
    EXPECT_EQ(openReader(file, {.index = folder.path()})->info().last, 24);
    std::ofstream{index()};
    EXPECT_EQ(openReader(file, reading())->info().last, 24);
}

TEST_F(StoredIndex, ThatIsDamagedAnywhereIsIgnored) {
    const files::FileStamp stamp{.bytes = 1000, .modified = -5};
    const std::vector<std::byte> whole = storedTable(sampleTable(), stamp);
    files::writeWhole(index(), whole);
    EXPECT_EQ(readStoredTable(index(), stamp), sampleTable());
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::vector<std::byte> bytes = whole;
        bytes[i] ^= std::byte{1 << 4};
        files::writeWhole(index(), bytes);
        EXPECT_FALSE(readStoredTable(index(), stamp)) << i;
        files::writeWhole(index(), std::span(whole).first(i));
        EXPECT_FALSE(readStoredTable(index(), stamp)) << i;
    }
}

TEST_F(StoredIndex, OfNoVideoIsEmpty) {
    writeAll(clip("a.png"), {.size = {4, 4}}, {noiseFrame({4, 4}, Depth::Bits8, 1)});
    EXPECT_TRUE(openReader(clip("a.png"))->index().empty());
}

TEST_F(StoredIndex, SparesReadingTheClip) {
    if (!bytesRead()) GTEST_SKIP() << "This system does not count what a process reads.";
    const fs::path file = clip("a.mov");
    constexpr int kFrames = 60;
    runFfmpeg("-f lavfi -i testsrc2=size=640x480:rate=25 -frames:v " + std::to_string(kFrames) +
                  " -c:v rawvideo -pix_fmt uyvy422",
              file);
    const auto bytes = static_cast<std::int64_t>(fs::file_size(file));
    store(file);
    const auto readingOneFrame = [&](const ReadOptions& options) {
        const std::int64_t before = bytesRead().value();
        Frame frame;
        openReader(file, options)->read(kFrames / 2, frame);
        return bytesRead().value() - before;
    };
    EXPECT_GT(readingOneFrame({}), bytes);
    EXPECT_LT(readingOneFrame(reading()), bytes / 8);
}

// What a table says has to be such that a VideoIndex can calculate with it.
TEST(TableOfBytes, IsRefusedUnlessItIsPossible) {
    const auto isTaken = [](const PictureTable& table) {
        return tableOfBytes(bytesOfTable(table)).has_value();
    };
    EXPECT_EQ(tableOfBytes(bytesOfTable(sampleTable())), sampleTable());
    const auto with = [](auto change) {
        PictureTable table = sampleTable();
        change(table);
        return table;
    };
    EXPECT_FALSE(isTaken(with([](PictureTable& table) { table.pictures.clear(); })));
    EXPECT_FALSE(isTaken(with([](PictureTable& table) { table.pictures[1].time = 40; })));
    EXPECT_FALSE(isTaken(with([](PictureTable& table) { table.pictures[2].time = -41; })));
    EXPECT_FALSE(isTaken(with([](PictureTable& table) { table.pictures[2].time = INT64_MAX; })));
    EXPECT_FALSE(isTaken(with([](PictureTable& table) { table.pictures[0].time = INT64_MIN; })));
    EXPECT_FALSE(isTaken(with([](PictureTable& table) { table.pictures[2].duration = -1; })));
    EXPECT_FALSE(isTaken(with([](PictureTable& table) { table.unit = {1, 0}; })));
    EXPECT_FALSE(isTaken(with([](PictureTable& table) { table.unit = {INT64_MAX, 1}; })));
    EXPECT_FALSE(isTaken(with([](PictureTable& table) { table.declared[1] = {-25, 1}; })));
    EXPECT_FALSE(isTaken(with([](PictureTable& table) { table.declared.resize(3, {25, 1}); })));
    EXPECT_TRUE(isTaken(with([](PictureTable& table) { table.declared.clear(); })));
    // Times that say nothing may be any.
    EXPECT_TRUE(isTaken(with([](PictureTable& table) {
        table.timed = false;
        table.pictures[1].time = INT64_MIN;
    })));
    std::vector<std::byte> bytes = bytesOfTable(sampleTable());
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const auto table = tableOfBytes(std::span(bytes).first(length));
        EXPECT_TRUE(!table || table->pictures.size() < 3) << length;
    }
    bytes.front() = std::byte{2};
    EXPECT_FALSE(tableOfBytes(bytes));
}

// A file of another clip, although its stamp says otherwise, must not lead outside of the list.
TEST(VideoIndex, DoesNotBeginBehindItsLastPicture) {
    VideoIndex index(sampleTable());
    EXPECT_THROW(index.startAt(41), MediaError);
    index.startAt(1);
    EXPECT_EQ(index.count(), 1);
}

}  // namespace
}  // namespace ruvex::media
