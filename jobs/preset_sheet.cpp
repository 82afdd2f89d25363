#include "jobs/preset_sheet.h"

#include <string>
#include <utility>
#include <vector>

#include "jobs/frame_renderer.h"
#include "looks/presets.h"
#include "media/pixels/area_scaler.h"
#include "media/pixels/frame_convert.h"
#include "media/stills/contact_sheet.h"
#include "parameters/presets.h"

namespace ruvex::jobs {
namespace {

// The clip's own picture and the eight presets fill three rows.
constexpr int kColumns = 3;
constexpr int kLongestSide = 720;

media::Frame small(const media::Frame& frame) {
    return media::areaScaled(media::convertDepth(frame, media::Depth::Bits8),
                             media::fitInto(frame.size(), kLongestSide));
}

}  // namespace

std::optional<media::Frame> presetSheet(const RenderPlan& plan,
                                        std::unique_ptr<media::FrameReader> reader,
                                        const std::function<void()>& drawn,
                                        const std::stop_token& stop) {
    const auto clip = std::make_shared<SharedClip>(std::move(reader), SharedClip::Open());
    media::Frame source;
    clip->readExisting(plan.frames.first, source);
    std::vector<media::LabelledPicture> pictures = {{"Source", small(source)}};
    RenderPlan one = plan;
    media::Frame rendered;
    for (int preset = 0; preset < kPresetCount; ++preset) {
        one.parameters = looks::presetChanges(preset);
        FrameRenderer renderer(one, clip, stop);
        if (!renderer.render(plan.frames.first, source, rendered)) return std::nullopt;
        const std::string name(presetNames()[static_cast<std::size_t>(preset)]);
        pictures.push_back({name, small(rendered)});
        drawn();
    }
    return media::contactSheet(pictures, kColumns);
}

}  // namespace ruvex::jobs
