// A farm job for tests, without files.

#pragma once

#include "farm/farm_job.h"

namespace ruvex::farm {

/// Two clips of 25 and 10 frames in chunks of 10: chunks 0 to 2, and 3.
inline FarmJob sampleJob() {
    FarmJob job{.id = "0123456789abcdef",
                .program = {"1.2.3", "fedcba9876543210", "5.1"},
                .chunkFrames = 10,
                .keepChunks = true,
                .arrayLength = 1000,
                .scheduler = {.partition = "long",
                              .account = "film",
                              .time = "1:00:00",
                              .joinTime = "2:00:00",
                              .maxTasks = 7,
                              .extra = {"--mem=8G", "--qos=low"}},
                .clips = {}};
    job.clips.push_back({.name = "0-out",
                         .jobDigest = "aa",
                         .input = "/clips/in.mp4",
                         .inputStamp = files::FileStamp{123, 456},
                         .mask = "/masks/left.png",
                         .maskStamp = files::FileStamp{78, 90},
                         .output = "/results/out.mkv",
                         .frames = {5, 29},
                         .chunkExtension = ".mkv",
                         .firstChunk = 0});
    job.clips.push_back({.name = "1-caf_",
                         .jobDigest = "bb",
                         .input = "/clips/caf\xE9.%05d.png",
                         .output = "/results/caf\xE9.%05d.png",
                         .frames = {0, 9},
                         .chunkExtension = "",
                         .firstChunk = 3});
    return job;
}

}  // namespace ruvex::farm
