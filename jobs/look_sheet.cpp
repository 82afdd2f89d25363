#include "jobs/look_sheet.h"

#include <string>
#include <utility>
#include <vector>

#include "jobs/frame_renderer.h"
#include "media/pixels/area_scaler.h"
#include "media/pixels/frame_convert.h"
#include "media/stills/contact_sheet.h"

namespace ruvex::jobs {
namespace {

/// The least number of columns that gives no more rows than columns.
int columnsFor(std::size_t pictures) {
    int columns = 1;
    while (static_cast<std::size_t>(columns * columns) < pictures) ++columns;
    return columns;
}

/// In pixels. A sheet is at most about 2900 pixels wide with up to six columns.
int longestSide(int columns) {
    return columns > 3 ? 480 : 720;
}

/// The frame in 8 bits, small enough for its cell.
media::Frame forCell(const media::Frame& frame, int longest) {
    return media::areaScaled(media::convertDepth(frame, media::Depth::Bits8),
                             media::fitInto(frame.size(), longest));
}

RenderPlan planOf(const SheetLook& look, const RenderPlan& plan) {
    RenderPlan one = plan;
    one.parameters = look.changes;
    if (look.projectSize) {
        one.project.width = look.projectSize->width;
        one.project.height = look.projectSize->height;
    }
    return one;
}

}  // namespace

std::optional<media::Frame> lookSheet(const RenderPlan& plan,
                                      std::unique_ptr<media::FrameReader> reader,
                                      std::span<const SheetLook> looks, bool source,
                                      const std::function<void()>& drawn,
                                      const std::stop_token& stop) {
    const int columns = columnsFor(looks.size() + (source ? 1 : 0));
    const int longest = longestSide(columns);
    const auto clip = std::make_shared<SharedClip>(std::move(reader), SharedClip::Open());
    media::Frame frame;
    clip->readExisting(plan.frames.first, frame);
    std::vector<media::LabelledPicture> pictures;
    if (source) pictures.push_back({"Source", forCell(frame, longest)});
    media::Frame changed;
    media::Frame rendered;
    for (const SheetLook& look : looks) {
        const RenderPlan one = planOf(look, plan);
        FrameRenderer renderer(one, clip, stop);
        changed = frame;
        if (!renderer.render(plan.frames.first, changed, rendered)) return std::nullopt;
        pictures.push_back({look.label, forCell(rendered, longest)});
        drawn();
    }
    return media::contactSheet(pictures, columns);
}

}  // namespace ruvex::jobs
