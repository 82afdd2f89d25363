// Pictures and clips for tests.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "media/frame_reader.h"
#include "media/frame_writer.h"

namespace ruvex::media {

/// Sizes of stills for tests.
inline constexpr FrameSize kStillSizes[] = {{1, 1},  {1, 7},   {7, 1},    {3, 5},
                                            {16, 9}, {33, 17}, {360, 288}};

/// Every component random; S2.14 over the whole 16-bit range, or from black to white only.
Frame noiseFrame(FrameSize size, Depth depth, unsigned seed, bool blackToWhite = false);

/// All frames from where the clip begins.
std::vector<Frame> readAll(FrameReader& reader);
std::vector<Frame> readAll(const std::filesystem::path& file, const ReadOptions& options = {});

/// Writes the frames with the numbers 0, 1, 2, ...
void writeAll(const std::filesystem::path& file, const WriteOptions& options,
              const std::vector<Frame>& frames);

/// The path quoted for a shell.
std::string quoted(const std::filesystem::path& path);

/// Runs the ffmpeg command with these arguments and `output`. Fails the test if the command fails.
void runFfmpeg(const std::string& arguments, const std::filesystem::path& output);

/// Arguments of the ffmpeg command for a moving test picture; `size` and `rate` in its syntax.
std::string movingPicture(const std::string& size, const std::string& rate, double seconds);

/// Entries of the first video stream by the ffprobe command, one in a line ("width=64").
std::string probe(const std::filesystem::path& file, const std::string& entries);

/// What the ffprobe command prints with these options, comma-separated without names of sections.
std::string listed(const std::filesystem::path& file, const std::string& options);

/// The message of the MediaError that `action` throws; empty if it throws none.
template <class Action>
std::string complaintOf(Action action);

/// Truncates the file to `part` of its length, 0 to 1.
void cutTo(const std::filesystem::path& file, double part);

}  // namespace ruvex::media

#include "media/media_error.h"

template <class Action>
std::string ruvex::media::complaintOf(Action action) {
    try {
        action();
    } catch (const MediaError& error) {
        return error.what();
    }
    return "";
}
