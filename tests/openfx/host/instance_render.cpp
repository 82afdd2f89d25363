#include <algorithm>

#include "tests/openfx/host/instance.h"

namespace ruvex::ofxhost {
namespace {

/// Makes a render the calling thread's current one.
class RenderScope {
public:
    explicit RenderScope(CurrentRender& render) : before_(currentRender()) {
        currentRender() = &render;
    }
    ~RenderScope() { currentRender() = before_; }
    RenderScope(const RenderScope&) = delete;
    RenderScope& operator=(const RenderScope&) = delete;

private:
    CurrentRender* before_;
};

std::shared_ptr<Image> makeOutput(Host& host, const RenderArgs& args, const PixelFormat& format,
                                  const OfxRectI& bounds, double pixelAspect,
                                  const std::shared_ptr<RenderRecord>& record) {
    if (!args.hasOutput) return nullptr;
    Raster raster(bounds, format);
    std::ranges::fill(raster.bytes, kUntouched);
    ImageInfo info;
    info.regionOfDefinition = bounds;
    info.scale = args.scale;
    info.pixelAspect = pixelAspect;
    info.field = args.field;
    info.identifier = "output " + std::to_string(args.time);
    return std::make_shared<Image>(host, raster, args.layout, info, record);
}

}  // namespace

std::vector<double> RenderResult::sourceTimes() const {
    std::vector<double> times;
    for (const auto& fetch : fetches) {
        if (fetch.clip == kOfxImageEffectSimpleSourceClipName) times.push_back(fetch.time);
    }
    return times;
}

OfxRectI Instance::outputBounds(const RenderArgs& args) const {
    if (!isEmpty(args.outputBounds)) return args.outputBounds;
    if (setup_.source.regionOfDefinition) {
        return pixelsOf(*setup_.source.regionOfDefinition, args.scale, setup_.source.pixelAspect);
    }
    const ProjectSetup& project = setup_.project;
    const OfxRectD whole{project.offset.x, project.offset.y, project.offset.x + project.size.x,
                         project.offset.y + project.size.y};
    return pixelsOf(whole, args.scale, project.pixelAspect);
}

void Instance::fillRenderArguments(PropertySet& in, const RenderArgs& args,
                                   const OfxRectI& window) {
    in.add(kOfxPropTime, reals({args.time}), Writer::Host);
    in.add(kOfxImageEffectPropFieldToRender, text(args.field), Writer::Host);
    in.add(kOfxImageEffectPropRenderWindow, ints({window.x1, window.y1, window.x2, window.y2}),
           Writer::Host);
    in.add(kOfxImageEffectPropRenderScale, reals({args.scale.x, args.scale.y}), Writer::Host);
    in.add(kOfxImageEffectPropSequentialRenderStatus, ints({0}), Writer::Host);
    in.add(kOfxImageEffectPropInteractiveRenderStatus, ints({0}), Writer::Host);
}

void Instance::checkUntouched(const Raster& output, const OfxRectI& window) {
    const std::size_t pixel = output.format.pixelBytes();
    const auto isUntouched = [](std::byte byte) { return byte == kUntouched; };
    const OfxRectI written = intersection(output.bounds, window);
    for (int y = output.bounds.y1; y < output.bounds.y2; ++y) {
        const std::byte* row = output.row(y);
        const std::byte* end = row + output.rowBytes();
        const bool inside = y >= written.y1 && y < written.y2;
        const std::byte* first =
            inside ? row + static_cast<std::size_t>(written.x1 - output.bounds.x1) * pixel : end;
        const std::byte* last =
            inside ? row + static_cast<std::size_t>(written.x2 - output.bounds.x1) * pixel : end;
        if (!std::all_of(row, first, isUntouched) || !std::all_of(last, end, isUntouched)) {
            return host().fault("pixels outside the render window were written");
        }
    }
}

RenderResult Instance::render(const RenderArgs& args) {
    const auto record = std::make_shared<RenderRecord>();
    const OfxRectI bounds = outputBounds(args);
    const OfxRectI window = isEmpty(args.window) ? bounds : args.window;
    const PixelFormat format = args.format.value_or(setup_.source.format);
    CurrentRender render{effect_.get(), args.time, args.scale, nullptr, record, args.abortAt};
    render.output = makeOutput(host(), args, format, bounds, setup_.source.pixelAspect, record);
    PropertySet in(host());
    fillRenderArguments(in, args, window);
    RenderResult result;
    {
        const RenderScope scope(render);
        result.status = call(kOfxImageEffectActionRender, {&in, nullptr});
    }
    if (record->unreleased != 0) host().fault("images were not released after a render");
    ImageTable::instance().forget(*record);
    if (render.output) {
        result.output = render.output->raster();
        if (!render.output->guardsIntact()) host().fault("a write beside the output");
        if (render.output->describesItself()) checkUntouched(result.output, window);
    }
    result.fetches = record->fetches;
    result.abortQueries = record->abortQueries;
    return result;
}

OfxStatus Instance::sequence(const char* action, const OfxRangeD& frames) {
    PropertySet in(host());
    in.add(kOfxImageEffectPropFrameRange, reals({frames.min, frames.max}), Writer::Host);
    in.add(kOfxImageEffectPropFrameStep, reals({1.0}), Writer::Host);
    in.add(kOfxPropIsInteractive, ints({0}), Writer::Host);
    in.add(kOfxImageEffectPropRenderScale, reals({1.0, 1.0}), Writer::Host);
    in.add(kOfxImageEffectPropSequentialRenderStatus, ints({0}), Writer::Host);
    in.add(kOfxImageEffectPropInteractiveRenderStatus, ints({0}), Writer::Host);
    return call(action, {&in, nullptr});
}

}  // namespace ruvex::ofxhost
