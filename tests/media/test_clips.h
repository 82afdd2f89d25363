// Pictures and clips for tests.

#pragma once

#include <filesystem>
#include <string>

#include "media/frame.h"

namespace ruvex::media {

/// The sizes that a still is tried with.
inline constexpr FrameSize kStillSizes[] = {{1, 1},  {1, 7},   {7, 1},    {3, 5},
                                            {16, 9}, {33, 17}, {360, 288}};

/// Every component random; S2.14 over the whole 16-bit range, or from black to white only.
Frame noiseFrame(FrameSize size, Depth depth, unsigned seed, bool blackToWhite = false);

/// The path in quotes, for a shell.
std::string quoted(const std::filesystem::path& path);

/// Runs the ffmpeg command with these arguments and `output`. The test fails if that fails.
void runFfmpeg(const std::string& arguments, const std::filesystem::path& output);

/// A moving test picture: `rate` and `size` as the ffmpeg command takes them.
std::string movingPicture(const std::string& size, const std::string& rate, double seconds);

/// What the ffprobe command says of the first video stream, one line an entry ("width=64").
std::string probe(const std::filesystem::path& file, const std::string& entries);

/// What `action` says when it throws MediaError; empty if it does not throw.
template <class Action>
std::string complaintOf(Action action);

/// Makes the file end early.
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
