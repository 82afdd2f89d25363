#include "tests/frames/frame_list.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "parameters/ruvex_interface.h"
#include "tests/pictures/picture_case.h"
#include "tests/pictures/test_card.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

/// What the host adds to a request: a region, a mask, a field.
using Adjust = std::function<void(runtime::RenderRequest&, int width, int height)>;

/// A look of what lies around the television in the chain.
struct ChainCase {
    std::string name;
    std::vector<Setting> settings;
    GUID family = DSFAMILY_Filter;
    Adjust adjust = nullptr;
};

/// A crop of an off-centre window, so that each edge shows.
std::vector<Setting> cropped(std::vector<Setting> more) {
    std::vector<Setting> settings = {
        {Id::CropLeft, 20},    {Id::CropRight, 75},   {Id::CropBottom, 25}, {Id::CropTop, 80},
        {Id::CropColourR, 70}, {Id::CropColourG, 20}, {Id::CropColourB, 50}};
    settings.insert(settings.end(), more.begin(), more.end());
    return settings;
}

void region(runtime::RenderRequest& request, int width, int height) {
    request.region = DSRECT{width / 4, height / 5, width / 2, height / 2};
}

void field(runtime::RenderRequest& request, int, int) {
    request.fieldMode = 2;
}

/// A mask that rises from left to right and lies off the picture's corner.
void mask(runtime::RenderRequest& request, int width, int height) {
    const auto made = runtime::makeImage(width / 2, height / 2, MFIF_A_RAW_8);
    for (int y = 0; y < height / 2; ++y) {
        for (int x = 0; x < width / 2; ++x) {
            made->bytes()[y * (width / 2) + x] = static_cast<std::byte>(510 * x / width);
        }
    }
    request.pixelMask = made;
    request.maskOffsetX = width / 4;
    request.maskOffsetY = height / 5;
}

std::vector<ChainCase> chainCases() {
    std::vector<ChainCase> cases = {
        {"plain", {}},
        {"resolution", {{Id::Resolution, 23}}},
        {"blur", {{Id::Blur, 9}}},
        {"lens-bulge", {{Id::FishEye, 1}, {Id::FishEyeRadius, 90}, {Id::FishEyePower, 80}}},
        {"lens-pinch-filtered",
         {{Id::FishEye, 1}, {Id::Filter, 1}, {Id::FishEyeRadius, 100}, {Id::FishEyePower, -60}}},
        {"scanlines", {{Id::ScanlineWidth, 20}}},
        {"crop-blank", cropped({{Id::Resolution, 50}, {Id::BlankCropped, 1}})},
        {"channels-red-alpha", {{Id::MaskGreen, 0}, {Id::MaskBlue, 0}, {Id::Blur, 6}}},
        {"region", {{Id::Resolution, 40}, {Id::SnowThreshold, 0}, {Id::SnowMax, 60}}},
        {"field", {{Id::Blur, 4}, {Id::ScanlineWidth, 10}}},
        {"paint", {{Id::Resolution, 15}}, DSFAMILY_Paint, mask},
    };
    std::ranges::find(cases, "region", &ChainCase::name)->adjust = region;
    std::ranges::find(cases, "field", &ChainCase::name)->adjust = field;
    for (int method = 0; method < 4; ++method) {
        const double x = method, y = (method + 1) % 4;
        cases.push_back(
            {"crop-edges-" + std::to_string(method),
             cropped({{Id::DisplayCropped, 1}, {Id::XEdgeMethod, x}, {Id::YEdgeMethod, y}})});
    }
    return cases;
}

template <class P>
Picture<P> renderChain(const ChainCase& look, int workers) {
    constexpr int kShrink = 3;
    const runtime::Project project{.width = 288, .height = 216};
    const int width = project.width / kShrink, height = project.height / kShrink;
    Renderer renderer(project, nullptr, look.family);
    for (const Setting& setting : look.settings) renderer.set(setting.id, setting.value);
    auto* control = static_cast<IRuvexControl*>(renderer.session().ownInterface(kRuvexControlId));
    control->setWorkerCount(workers);
    return renderer.render(testCard<P>(width, height), 0.0, {},
                           [&](runtime::RenderRequest& request) {
                               if (look.adjust) look.adjust(request, width, height);
                           });
}

/// Components in little-endian order, as raw files hold them, whatever the processor's order is.
template <class P>
FrameBytes bytesOf(const Picture<P>& picture) {
    FrameBytes frame{std::vector<std::byte>(picture.pixels.size() * sizeof(P)), sizeof(P)};
    std::memcpy(frame.bytes.data(), picture.pixels.data(), frame.bytes.size());
    if constexpr (std::endian::native == std::endian::big) {
        constexpr auto kBytes = static_cast<std::ptrdiff_t>(sizeof(typename P::Component));
        for (auto at = frame.bytes.begin(); at != frame.bytes.end(); at += kBytes) {
            std::reverse(at, at + kBytes);
        }
    }
    return frame;
}

template <class P, class Case, class Render>
void addFormat(std::vector<NamedFrame>& frames, const Case& look, Render render) {
    for (const int workers : kWorkerCounts) {
        const std::string format = sizeof(P) == 4 ? ".8" : ".s214";
        frames.push_back({look.name, look.name + format + ".workers" + std::to_string(workers),
                          [=] { return bytesOf(render(look, workers)); }});
    }
}

}  // namespace

bool FrameBytes::constant() const {
    for (std::size_t at = pixelSize; at < bytes.size(); ++at) {
        if (bytes[at] != bytes[at - pixelSize]) return false;
    }
    return true;
}

std::vector<NamedFrame> namedFrames() {
    std::vector<NamedFrame> frames;
    for (const PictureCase& look : pictureCases()) {
        addFormat<Rgba8>(frames, look, renderCase<Rgba8>);
        addFormat<RgbaS214>(frames, look, renderCase<RgbaS214>);
    }
    for (const ChainCase& look : chainCases()) {
        addFormat<Rgba8>(frames, look, renderChain<Rgba8>);
        addFormat<RgbaS214>(frames, look, renderChain<RgbaS214>);
    }
    return frames;
}

}  // namespace ruvex::test
