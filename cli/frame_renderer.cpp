#include "cli/frame_renderer.h"

#include <algorithm>
#include <utility>

#include "cli/field_region.h"
#include "cli/mask_image.h"

namespace ruvex::cli {

FrameRenderer::FrameRenderer(const RenderJob& job, const RenderPlan& plan,
                             std::shared_ptr<SharedClip> clip, const ParameterChoice& parameters)
    : job_(job),
      plan_(plan),
      clip_(std::move(clip)),
      input_(std::make_shared<ClipInput>(clip_, plan.project, job.ends)),
      renderer_(job, plan.project, input_, parameters) {
    if (!job.mask.empty()) {
        prepareMasks(readMask(job.mask, plan.size));
    }
}

FrameRenderer::FrameRenderer(const FrameRenderer& other, std::shared_ptr<ClipInput> input)
    : job_(other.job_),
      plan_(other.plan_),
      clip_(other.clip_),
      input_(std::move(input)),
      renderer_(other.renderer_.clone(input_)),
      masks_(other.masks_) {}

FrameRenderer FrameRenderer::clone() const {
    return {*this, std::make_shared<ClipInput>(clip_, plan_.project, job_.ends)};
}

void FrameRenderer::prepareMasks(const media::Frame& mask) {
    if (plan_.fields == media::FieldOrder::Progressive) {
        masks_ = {toMask(mask, plan_.project)};
        return;
    }
    for (const media::Field field : {media::Field::Top, media::Field::Bottom}) {
        media::Frame lines;
        media::takeField(mask, field, lines);
        masks_.push_back(toMask(lines, plan_.project));
    }
}

ComPtr<IDSImage> FrameRenderer::mask(media::Field field) const {
    return masks_.empty() ? ComPtr<IDSImage>() : masks_[field == media::Field::Top ? 0 : 1];
}

bool FrameRenderer::render(std::int64_t number, const media::Frame& source, media::Frame& result) {
    const double time = runtime::frameTime(number, plan_.project.frameRate);
    if (plan_.fields == media::FieldOrder::Progressive) {
        const ComPtr<IDSImage> mask = masks_.empty() ? ComPtr<IDSImage>() : masks_.front();
        return renderer_.render({number, time, source, mask, job_.region}, result);
    }
    const double later = (static_cast<double>(number) + 0.5) / plan_.project.frameRate;
    return renderField(media::firstField(plan_.fields), time, number, source, result) &&
           renderField(media::secondField(plan_.fields), later, number, source, result);
}

bool FrameRenderer::renderField(media::Field field, double time, std::int64_t number,
                                const media::Frame& source, media::Frame& result) {
    const media::FrameSize size{result.width(), media::fieldHeight(result.height(), field)};
    media::makeRoom(fieldResult_, size, result.depth());
    const auto region = fieldRegion(job_.region, result.height(), field);
    bool done = true;
    if (region && region->height == 0) {
        std::ranges::fill(fieldResult_.bytes(), std::byte{});
    } else {
        media::takeField(source, field, fieldSource_);
        const ClipInput::Hold hold(*input_, number, source, field);
        done = renderer_.render({number, time, fieldSource_, mask(field), region}, fieldResult_);
    }
    media::putField(fieldResult_, field, result);
    return done;
}

}  // namespace ruvex::cli
