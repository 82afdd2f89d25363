#include "adapters/openfx/instance.h"

#include <utility>

#include "adapters/openfx/chosen_look.h"
#include "adapters/openfx/edit_block.h"
#include "adapters/openfx/parameter_names.h"
#include "parameters/parameter_table.h"

namespace ruvex::openfx {
namespace {

/// The parameters behind a crop.
struct CropSide {
    ParameterId id;
    double Crop::*value;
};
constexpr CropSide kCropSides[] = {{ParameterId::CropLeft, &Crop::left},
                                   {ParameterId::CropRight, &Crop::right},
                                   {ParameterId::CropBottom, &Crop::bottom},
                                   {ParameterId::CropTop, &Crop::top}};

bool isPicture(const OfxRectD& region, double pixelAspect) {
    return pixelsOf(region, pixelScale({1.0, 1.0}, pixelAspect)).has_value();
}

/// The project's rectangle; empty if the host gives none.
OfxRectD projectRegion(const Properties& effect) {
    constexpr OfxPointD kNone{0.0, 0.0};
    const auto [x, y] = effect.findPointD(kOfxImageEffectPropProjectOffset).value_or(kNone);
    const auto size = effect.findPointD(kOfxImageEffectPropProjectSize).value_or(kNone);
    return {x, y, x + size.x, y + size.y};
}

}  // namespace

bool Instance::hasTemporalAccess() const {
    // Some hosts answer for other times with the frame at hand: their own flag decides.
    const Properties host(host_, host_.properties);
    return host.getInt(kOfxImageEffectPropTemporalClipAccess, 0) != 0 &&
           source().hasTemporalAccess();
}

FirstField Instance::firstField() const {
    const FirstField ofSource = source().firstField();
    return ofSource ? ofSource : output().firstField();
}

double Instance::frameRate() const {
    for (const Properties& object : {source().properties(), properties()}) {
        const double rate = object.getDouble(kOfxImageEffectPropFrameRate, 0.0);
        if (isRate(rate)) return rate;
    }
    return kUsualRate;
}

EffectClock Instance::clockAt(double time) const {
    return {.firstFrame = values().firstFrameAt(time), .rate = frameRate()};
}

std::optional<OfxRectD> Instance::regionAt(double time) const {
    const HostClip clip = source();
    const double aspect = clip.pixelAspect();
    const auto region = clip.regionOfDefinition(time);
    if (region && isPicture(*region, aspect)) return region;
    const OfxRectD ofProject = projectRegion(properties());
    if (isPicture(ofProject, aspect)) return ofProject;
    return {};
}

std::vector<looks::ParameterChange> Instance::changesAt(double time,
                                                        const EffectClock& clock) const {
    std::vector<looks::ParameterChange> changes = values().changesAt(time, clock);
    const looks::Look* const look = chosenLook(parameters(), time);
    return look ? overLook(*look, std::move(changes)) : changes;
}

runtime::Project Instance::projectAt(double time, int width, int height) const {
    int givenWidth = values().frameWidthAt(time);
    int givenHeight = values().frameHeightAt(time);
    const looks::Look* const look = chosenLook(parameters(), time);
    if (look && look->projectSize) {
        if (givenWidth <= 0) givenWidth = look->projectSize->width;
        if (givenHeight <= 0) givenHeight = look->projectSize->height;
    }
    return {.width = givenWidth > 0 ? givenWidth : width,
            .height = givenHeight > 0 ? givenHeight : height,
            .pixelAspect = source().pixelAspect(),
            .frameRate = frameRate()};
}

Crop Instance::cropAt(double time) const {
    Crop crop;
    for (const auto& [id, value] : kCropSides) crop.*value = values().valueAt(id, time);
    return crop;
}

void Instance::setCrop(double time, const Crop& crop) const {
    const Crop before = cropAt(time);
    if (crop == before) return;
    const ParameterSet set = parameters();
    const EditBlock block(set, "Crop");
    for (const auto& [id, value] : kCropSides) {
        if (crop.*value == before.*value) continue;
        const HostParameter parameter = set.find(scriptName(row(id)));
        if (parameter.isAnimating()) {
            parameter.setRealAt(time, crop.*value);
        } else {
            parameter.setReal(crop.*value);
        }
    }
}

bool Instance::hidesOverlayControls(double time) const {
    return values().valueAt(ParameterId::HideOverlayControls, time) != 0.0;
}

}  // namespace ruvex::openfx
