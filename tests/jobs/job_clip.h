// A numbered clip of noise, jobs over it, and what they render.

#pragma once

#include <gtest/gtest.h>
#include <map>
#include <string>

#include "files/numbered_path.h"
#include "jobs/run_render.h"
#include "looks/presets.h"
#include "media/stills/raw_frame.h"
#include "parameters/presets.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::jobs {

using Frames = std::map<std::int64_t, media::Frame>;

/// Raw frames in.0, in.1, ... in a folder of their own.
class JobClip {
public:
    JobClip(media::FrameSize size, media::Depth depth, int count)
        : size_(size), depth_(depth), count_(count) {
        for (int k = 0; k < count; ++k) {
            media::writeRawFrame(files::NumberedPath(path("in")).file(k), picture(k));
        }
    }

    /// The picture of frame `k`.
    media::Frame picture(int k) const {
        return media::noiseFrame(size_, depth_, static_cast<unsigned>(k) + 1, true);
    }

    /// A render of all frames with "Bad Colour TV" in two shares.
    RenderJob job(const std::string& output = "out") const {
        RenderJob job;
        job.input = path("in");
        job.output = path(output);
        job.size = size_;
        job.workers = 2;
        job.parameters = looks::presetChanges(*findPreset("Bad Colour TV"));
        return job;
    }

    RenderPlan plan(const RenderJob& job) const {
        std::vector<Note> notes;
        return planRender(job, media::openReader(job.input, readingOf(job))->info(), notes);
    }

    /// The files of a result; those that are missing are left out.
    Frames written(const std::string& output = "out") const {
        Frames frames;
        const files::NumberedPath name(path(output));
        for (int k = 0; k < count_; ++k) {
            if (!std::filesystem::exists(name.file(k))) continue;
            frames.emplace(k, media::readRawFrame(name.file(k), size_, depth_));
        }
        return frames;
    }

    std::filesystem::path path(const std::string& name) const {
        return folder.file(name + (depth_ == media::Depth::Bits8 ? ".%d.rgba8" : ".%d.s214"));
    }

    files::TempFolder folder;

private:
    media::FrameSize size_;
    media::Depth depth_;
    int count_;
};

/// Runs a plan without anybody who listens.
inline RenderEnd runQuietly(const RenderPlan& plan, std::stop_token stop = {}) {
    RenderEvents nobody;
    return runRender(plan, nobody, std::move(stop));
}

}  // namespace ruvex::jobs
