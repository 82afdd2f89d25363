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
    if (job.mask.empty()) {
        return;
    }
    const media::Frame picture = readMask(job.mask, plan.size);
    if (plan.fields == media::FieldOrder::Progressive) {
        mask_ = toMask(picture, plan.project);
        return;
    }
    for (const media::Field field : {media::Field::Top, media::Field::Bottom}) {
        media::takeField(picture, field, fieldSource_);
        fieldMasks_.at(media::fieldIndex(field)) = toMask(fieldSource_, plan.project);
    }
}

FrameRenderer::FrameRenderer(const FrameRenderer& other, std::shared_ptr<ClipInput> input)
    : job_(other.job_),
      plan_(other.plan_),
      clip_(other.clip_),
      input_(std::move(input)),
      renderer_(other.renderer_.clone(input_)),
      mask_(other.mask_),
      fieldMasks_(other.fieldMasks_) {}

FrameRenderer FrameRenderer::clone() const {
    return {*this, std::make_shared<ClipInput>(clip_, plan_.project, job_.ends)};
}

bool FrameRenderer::render(std::int64_t number, const media::Frame& source, media::Frame& result) {
    const double time = runtime::frameTime(number, plan_.project.frameRate);
    if (plan_.fields == media::FieldOrder::Progressive) {
        return renderer_.render({number, time, source, mask_, job_.region}, result);
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
        done = renderer_.render(
            {number, time, fieldSource_, fieldMasks_.at(media::fieldIndex(field)), region},
            fieldResult_);
    }
    media::putField(fieldResult_, field, result);
    return done;
}

}  // namespace ruvex::cli
