#include "tests/openfx/reference_clip.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "files/numbered_path.h"
#include "jobs/run_render.h"
#include "looks/presets.h"
#include "media/frame_reader.h"
#include "media/stills/raw_frame.h"
#include "parameters/presets.h"

namespace ruvex::ofxhost::test {
namespace {

media::Depth depthOf(const PixelFormat& format) {
    if (format.components != kOfxImageComponentRGBA || format.depth == kOfxBitDepthShort) {
        throw std::invalid_argument("raw frames are RGBA of 8 bits or S2.14");
    }
    return format.depth == kOfxBitDepthByte ? media::Depth::Bits8 : media::Depth::S214;
}

media::FrameSize sizeOf(const OfxRectI& bounds) {
    return {widthOf(bounds), heightOf(bounds)};
}

/// Raw frames and rasters both have the bottom row first.
media::Frame frameOf(const Raster& raster) {
    media::Frame frame(sizeOf(raster.bounds), depthOf(raster.format));
    if (frame.depth() == media::Depth::Bits8) {
        frame.bytes() = raster.bytes;
        return frame;
    }
    auto* to = reinterpret_cast<std::int16_t*>(frame.bytes().data());
    for (std::size_t i = 0; i < raster.bytes.size() / sizeof(float); ++i) {
        float sample = 0.0f;
        std::memcpy(&sample, raster.bytes.data() + i * sizeof sample, sizeof sample);
        const float whole = sample * static_cast<float>(media::kWhiteS214);
        if (whole != std::round(whole)) throw std::invalid_argument("a sample between two steps");
        to[i] = static_cast<std::int16_t>(whole);
    }
    return frame;
}

Raster rasterOf(const media::Frame& frame, const OfxRectI& bounds, const PixelFormat& format) {
    Raster raster(bounds, format);
    if (frame.depth() == media::Depth::Bits8) {
        raster.bytes = frame.bytes();
        return raster;
    }
    const auto* from = reinterpret_cast<const std::int16_t*>(frame.bytes().data());
    for (std::size_t i = 0; i < raster.bytes.size() / sizeof(float); ++i) {
        const float sample = static_cast<float>(from[i]) / static_cast<float>(media::kWhiteS214);
        std::memcpy(raster.bytes.data() + i * sizeof sample, &sample, sizeof sample);
    }
    return raster;
}

}  // namespace

ReferenceClip::ReferenceClip(const ClipSetup& clip, int frames)
    : format_(clip.format), frames_(frames) {
    for (int frame = 0; frame < frames; ++frame) {
        const Raster raster = clip.picture(frame, {1.0, 1.0}).value();
        bounds_ = raster.bounds;
        media::writeRawFrame(files::NumberedPath(path("in")).file(frame), frameOf(raster));
    }
}

std::filesystem::path ReferenceClip::path(const std::string& name) const {
    const bool bits8 = depthOf(format_) == media::Depth::Bits8;
    return folder_.file(name + (bits8 ? ".%d.rgba8" : ".%d.s214"));
}

jobs::RenderJob ReferenceClip::job(const Changes& changes) const {
    jobs::RenderJob job;
    job.input = path("in");
    job.output = path("out");
    job.size = sizeOf(bounds_);
    job.workers = 8;
    job.ends = jobs::ClipEnds::Hold;
    job.parameters = changes;
    return job;
}

std::vector<Raster> ReferenceClip::render(const jobs::RenderJob& job) const {
    std::vector<jobs::Note> notes;
    const auto reader = media::openReader(job.input, jobs::readingOf(job));
    const jobs::RenderPlan plan = jobs::planRender(job, reader->info(), notes);
    jobs::RenderEvents nobody;
    jobs::runRender(plan, nobody, {});
    std::vector<Raster> result;
    for (int frame = 0; frame < frames_; ++frame) {
        const auto file = files::NumberedPath(job.output).file(frame);
        if (!std::filesystem::exists(file)) continue;
        const media::Frame rendered = media::readRawFrame(file, *job.size, depthOf(format_));
        result.push_back(rasterOf(rendered, bounds_, format_));
    }
    return result;
}

Raster referenceFrame(const ClipSetup& clip, int frame, const Changes& changes) {
    const ReferenceClip reference(clip, frame + 1);
    jobs::RenderJob job = reference.job(changes);
    job.frames = jobs::FrameRange{frame, frame};
    return reference.render(job).at(0);
}

Changes presetNamed(const std::string& name) {
    return looks::presetChanges(findPreset(name).value());
}

Raster withoutAlpha(Raster raster) {
    constexpr std::size_t kSamples = 4;
    const std::size_t bytes = raster.format.sampleBytes();
    const float realWhite = 1.0f;
    const std::uint32_t wholeWhite = 0xFFFFFFFF;
    const bool real = raster.format.depth == kOfxBitDepthFloat;
    for (std::size_t at = 3 * bytes; at < raster.bytes.size(); at += kSamples * bytes) {
        std::memcpy(raster.bytes.data() + at,
                    real ? static_cast<const void*>(&realWhite) : &wholeWhite, bytes);
    }
    return raster;
}

}  // namespace ruvex::ofxhost::test
