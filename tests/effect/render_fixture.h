// Rendering single frames through the real module, for tests.

#pragma once

#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <vector>

#include "imaging/pixel.h"
#include "parameters/parameter_table.h"
#include "runtime/effect_session.h"
#include "runtime/images.h"

namespace ruvex::test {

/// The format identifier of a pixel type.
template <class P>
const GUID& formatOf() {
    return sizeof(P) == 4 ? MFIF_RGBA_RAW_32 : MFIF_RGBA_S2_14;
}

/// Pixels of one picture, rows one after the other.
template <class P>
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<P> pixels;

    const P& at(int x, int y) const { return pixels[static_cast<std::size_t>(y) * width + x]; }
    friend bool operator==(const Picture&, const Picture&) = default;
};

/// Random components: all bytes, or 0..32767.
template <class P>
Picture<P> randomPicture(int width, int height, std::uint32_t seed) {
    std::mt19937 random(seed);
    Picture<P> picture{width, height, std::vector<P>(static_cast<std::size_t>(width) * height)};
    const std::uint32_t mask = sizeof(P) == 4 ? 0xFF : 0x7FFF;
    for (P& pixel : picture.pixels) {
        for (auto& c : pixel.c) c = static_cast<typename P::Component>(random() & mask);
    }
    return picture;
}

template <class P>
ComPtr<CDSMemoryImage> imageOf(const runtime::Project& project, const Picture<P>& picture) {
    auto image = runtime::makeProjectImage(project, picture.width, picture.height, formatOf<P>());
    std::memcpy(image->bytes(), picture.pixels.data(), image->byteCount());
    return image;
}

template <class P>
Picture<P> pictureOf(CDSMemoryImage& image) {
    Picture<P> picture{static_cast<int>(image.width()), static_cast<int>(image.height()), {}};
    picture.pixels.resize(image.byteCount() / sizeof(P));
    std::memcpy(picture.pixels.data(), image.bytes(), image.byteCount());
    return picture;
}

/// Large enough for most artefacts, small enough to look at.
inline constexpr runtime::Project kSmall{.width = 24, .height = 18};

/// A session over the module of this build, for a project of a size, and one frame at a time. The
/// signal is perfect, so that a test sees what it turns on and nothing else; all other parameters
/// have their defaults.
class Renderer {
public:
    explicit Renderer(runtime::Project project,
                      std::shared_ptr<runtime::InputProvider> provider = nullptr,
                      GUID family = DSFAMILY_Filter);

    void set(ParameterId id, double value) { session().setValue(row(id).identifier, value); }
    void animate(ParameterId id, const std::vector<DSKey>& keys) {
        session().setKeys(row(id).identifier, keys);
    }

    /// The picture of one frame; `before` fills what the output holds at first.
    template <class P>
    Picture<P> render(const Picture<P>& input, double seconds = 0.0,
                      const std::optional<DSRECT>& region = {},
                      const std::function<void(runtime::RenderRequest&)>& adjust = {}) {
        runtime::RenderRequest request;
        request.seconds = seconds;
        request.input = imageOf(project_, input);
        auto output = runtime::makeProjectImage(project_, input.width, input.height, formatOf<P>());
        request.output = output;
        request.region = region;
        if (adjust) adjust(request);
        session().render(request);
        return pictureOf<P>(*output);
    }

    runtime::EffectSession& session() { return *session_; }
    const runtime::Project& project() const { return project_; }

private:
    runtime::Project project_;
    std::optional<runtime::EffectSession> session_;
};

/// The module of this build; null where COM loads it.
std::shared_ptr<runtime::Module> builtModule();

}  // namespace ruvex::test
