#include "tests/media/test_clips.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <stdio.h>

namespace ruvex::media {
namespace {

/// What a command prints. Fails the test if the command fails.
std::string outputOf(const std::string& command) {
    std::string text;
    FILE* pipe = popen(command.c_str(), "r");
    std::array<char, 256> part{};
    while (pipe != nullptr && fgets(part.data(), part.size(), pipe) != nullptr) {
        text += part.data();
    }
    EXPECT_EQ(pipe == nullptr ? -1 : pclose(pipe), 0) << command;
    return text;
}

}  // namespace

std::vector<Frame> readAll(FrameReader& reader) {
    std::vector<Frame> frames;
    Frame frame;
    for (std::int64_t k = reader.info().first; reader.read(k, frame); ++k) {
        frames.push_back(frame);
    }
    return frames;
}

std::vector<Frame> readAll(const std::filesystem::path& file, const ReadOptions& options) {
    return readAll(*openReader(file, options));
}

void writeAll(const std::filesystem::path& file, const WriteOptions& options,
              const std::vector<Frame>& frames) {
    const auto writer = openWriter(file, options);
    for (std::size_t k = 0; k < frames.size(); ++k) {
        writer->write(static_cast<std::int64_t>(k), frames[k]);
    }
    writer->finish();
}

std::string quoted(const std::filesystem::path& path) {
    std::string text;
    text.append("'").append(path.string()).append("'");
    return text;
}

Frame noiseFrame(FrameSize size, Depth depth, unsigned seed, bool blackToWhite) {
    std::mt19937 random(seed);
    Frame frame(size, depth);
    for (int y = 0; y < size.height; ++y) {
        for (int i = 0; i < size.width * kChannels; ++i) {
            if (depth == Depth::Bits8) {
                frame.row8(y)[i] = static_cast<std::uint8_t>(random());
            } else {
                const auto any = static_cast<std::int16_t>(random());
                const auto held = static_cast<std::int16_t>(random() % (kWhiteS214 + 1));
                frame.row16(y)[i] = blackToWhite ? held : any;
            }
        }
    }
    return frame;
}

void runFfmpeg(const std::string& arguments, const std::filesystem::path& output) {
    const std::string command =
        "ffmpeg -nostdin -v error -y " + arguments + " " + quoted(output) + " </dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

std::string movingPicture(const std::string& size, const std::string& rate, double seconds) {
    return "-f lavfi -i testsrc2=size=" + size + ":rate=" + rate + " -t " + std::to_string(seconds);
}

std::string probe(const std::filesystem::path& file, const std::string& entries) {
    return outputOf(
        "ffprobe -v error -count_frames -select_streams v:0 -of default=nw=1 -show_entries " +
        entries + " " + quoted(file));
}

std::string listed(const std::filesystem::path& file, const std::string& options) {
    return outputOf("ffprobe -v error -of csv=p=0 " + options + " " + quoted(file));
}

void cutTo(const std::filesystem::path& file, double part) {
    const auto size = static_cast<double>(std::filesystem::file_size(file));
    std::filesystem::resize_file(file, static_cast<std::uintmax_t>(size * part));
}

}  // namespace ruvex::media
