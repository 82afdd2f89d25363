#include "jobs/frame_renderer.h"

#include <algorithm>
#include <new>
#include <utility>

#include "jobs/field_region.h"
#include "jobs/frame_memory.h"
#include "jobs/mask.h"
#include "jobs/output_scaling.h"
#include "media/pixels/alpha.h"

namespace ruvex::jobs {

FrameRenderer::FrameRenderer(const RenderPlan& plan, std::shared_ptr<SharedClip> clip,
                             std::stop_token stop)
    : plan_(plan),
      clip_(std::move(clip)),
      input_(std::make_shared<ClipInput>(clip_, plan.project, plan.ends)),
      renderer_(plan, input_, std::move(stop)) {
    if (!plan.mask.empty()) readMasks();
    if (const auto scaling = outputScaling(plan)) scaler_.emplace(*scaling);
}

void FrameRenderer::readMasks() {
    const media::Frame picture = readMask(plan_.mask, plan_.size);
    if (plan_.fields == media::FieldOrder::Progressive) {
        mask_ = toMask(picture, plan_.project);
        return;
    }
    for (const media::Field field : {media::Field::Top, media::Field::Bottom}) {
        media::takeField(picture, field, fieldSource_);
        fieldMasks_.at(media::fieldIndex(field)) = toMask(fieldSource_, plan_.project);
    }
}

FrameRenderer::FrameRenderer(const FrameRenderer& other, std::shared_ptr<ClipInput> input)
    : plan_(other.plan_),
      clip_(other.clip_),
      input_(std::move(input)),
      renderer_(other.renderer_.clone(input_)),
      mask_(other.mask_),
      fieldMasks_(other.fieldMasks_),
      scaler_(other.scaler_) {}

FrameRenderer FrameRenderer::clone() const {
    return {*this, std::make_shared<ClipInput>(clip_, plan_.project, plan_.ends)};
}

media::HeldMemory FrameRenderer::held() const {
    media::HeldMemory held = input_->held();
    held.add(renderer_.held());
    for (const media::Frame* frame :
         {&fieldSource_, &fieldResult_, &before_, &after_, &unscaled_}) {
        held.add(*frame);
    }
    return held;
}

bool FrameRenderer::render(std::int64_t number, media::Frame& source, media::Frame& result) {
    try {
        return renderResult(number, source, result);
    } catch (const std::bad_alloc&) {
        throw FrameOutOfMemory(number);
    }
}

bool FrameRenderer::renderResult(std::int64_t number, media::Frame& source, media::Frame& result) {
    if (!renderFrame(number, source, scaler_ ? unscaled_ : result)) return false;
    if (scaler_) scaler_->scale(unscaled_, result);
    if (plan_.opaque) media::makeOpaque(result);
    return true;
}

bool FrameRenderer::renderFrame(std::int64_t number, media::Frame& source, media::Frame& result) {
    media::makeRoom(result, renderedSize(plan_), plan_.depth);
    if (!plan_.comparison) return renderEffect(number, source, result);
    before_ = source;
    media::makeRoom(after_, plan_.size, plan_.depth);
    if (!renderEffect(number, source, after_)) return false;
    compareFrames(*plan_.comparison, before_, after_, result);
    return true;
}

bool FrameRenderer::renderEffect(std::int64_t number, media::Frame& source, media::Frame& result) {
    const double time = runtime::frameTime(number, plan_.project.frameRate);
    if (plan_.fields == media::FieldOrder::Progressive) {
        const ClipInput::FrameAtHand atHand(*input_, number, source);
        return renderer_.render({number, time, source, mask_, plan_.region}, result);
    }
    constexpr double kHalfFrame = 0.5;
    const double later = (static_cast<double>(number) + kHalfFrame) / plan_.project.frameRate;
    return renderField(media::firstField(plan_.fields), time, number, source, result) &&
           renderField(media::secondField(plan_.fields), later, number, source, result);
}

bool FrameRenderer::renderField(media::Field field, double time, std::int64_t number,
                                const media::Frame& source, media::Frame& result) {
    const media::FrameSize size{result.width(), media::fieldHeight(result.height(), field)};
    media::makeRoom(fieldResult_, size, result.depth());
    const auto region = fieldRegion(plan_.region, result.height(), field);
    bool done = true;
    if (region && region->height == 0) {
        std::ranges::fill(fieldResult_.bytes(), std::byte{});
    } else {
        media::takeField(source, field, fieldSource_);
        const ClipInput::FrameAtHand atHand(*input_, number, source, field);
        done = renderer_.render(
            {number, time, fieldSource_, fieldMasks_.at(media::fieldIndex(field)), region},
            fieldResult_);
    }
    media::putField(fieldResult_, field, result);
    return done;
}

}  // namespace ruvex::jobs
