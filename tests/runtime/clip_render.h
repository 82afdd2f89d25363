// A clip through the real module, in a session of its own, with a look that depends on all that
// belongs to a render.

#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "parameters/ruvex_interface.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::test {

/// What two renders may differ in, besides their pixels.
struct RenderKind {
    runtime::Project project;
    int workers = 1;
    int shashType = 1;
};

inline constexpr RenderKind kFilm{{.width = 96, .height = 72}, 3, 1};
inline constexpr RenderKind kTape{{120, 64, 16.0 / 15.0, 30.0}, 5, 3};

inline constexpr int kFrames = 6;

/// Every picture has this size, whatever the project's.
inline constexpr int kPictureWidth = 48;
inline constexpr int kPictureHeight = 40;

/// Frames of any number, each of its own random pixels.
template <class P>
struct RandomClip : runtime::InputProvider {
    explicit RandomClip(const runtime::Project& ofProject) : project(ofProject) {}

    ComPtr<IDSImage> imageAt(double seconds) override {
        const auto number = static_cast<std::uint32_t>(std::lround(seconds * project.frameRate));
        return imageOf(project, randomPicture<P>(kPictureWidth, kPictureHeight, number + 100));
    }

    runtime::Project project;
};

/// Snow in the border, shash and creeping lines depend on the number of workers; distances, speeds
/// and the fish eye on the project.
inline void setLook(runtime::EffectSession& session, int shashType) {
    const std::pair<ParameterId, double> look[] = {
        {ParameterId::MasterBreakup, 80},       {ParameterId::BreakupVariation, 60},
        {ParameterId::LineThreshold, 5},        {ParameterId::LineSpeedMax, 150},
        {ParameterId::VertOffsetThreshold, 5},  {ParameterId::VertOffsetMax, 30},
        {ParameterId::BorderAlpha, 2},          {ParameterId::ShashThreshold, 5},
        {ParameterId::ShashAmountMax, 60},      {ParameterId::GhostingThreshold, 5},
        {ParameterId::GhostingDistanceMax, 20}, {ParameterId::FishEye, 1},
        {ParameterId::FishEyeRadius, 25},       {ParameterId::FishEyePower, 60},
        {ParameterId::RepeatFrames, 2},         {ParameterId::Resolution, 80}};
    for (const auto& [id, value] : look) session.setValue(row(id).identifier, value);
    session.setValue(row(ParameterId::ShashType).identifier, shashType);
}

inline IRuvexControl& controlOf(const runtime::EffectSession& session) {
    return *static_cast<IRuvexControl*>(session.ownInterface(kRuvexControlId));
}

template <class P>
class ClipRender {
public:
    /// A null provider stands for the random clip.
    explicit ClipRender(const RenderKind& kind, std::stop_token stop = {},
                        std::shared_ptr<runtime::InputProvider> provider = nullptr)
        : project_(kind.project),
          provider_(provider ? std::move(provider) : std::make_shared<RandomClip<P>>(kind.project)),
          session_({.module = builtModule(),
                    .project = kind.project,
                    .provider = provider_,
                    .stop = std::move(stop)}) {
        controlOf(session_).setWorkerCount(kind.workers);
        setLook(session_, kind.shashType);
    }

    Picture<P> frame(int number) { return frameOf(session_, number); }
    /// The same by a clone made for it.
    Picture<P> frameOfAClone(int number) {
        auto clone = session_.clone();
        return frameOf(clone, number);
    }
    std::vector<Picture<P>> allFrames() {
        std::vector<Picture<P>> frames;
        for (int k = 0; k < kFrames; ++k) frames.push_back(frame(k));
        return frames;
    }

    const runtime::EffectSession& session() const { return session_; }

private:
    Picture<P> frameOf(runtime::EffectSession& session, int number) const {
        auto output =
            runtime::makeProjectImage(project_, kPictureWidth, kPictureHeight, formatOf<P>());
        runtime::RenderRequest request;
        request.seconds = runtime::frameTime(number, project_.frameRate);
        request.output = output;
        session.render(request);
        return pictureOf<P>(*output);
    }

    runtime::Project project_;
    std::shared_ptr<runtime::InputProvider> provider_;
    runtime::EffectSession session_;
};

/// What a render gives with the process to itself.
template <class P>
std::vector<Picture<P>> framesAlone(const RenderKind& kind) {
    return ClipRender<P>(kind).allFrames();
}

}  // namespace ruvex::test
