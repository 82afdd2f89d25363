// Frames of an effect whose host does not tell all of its project's sizes.

#pragma once

#include "runtime/coordinate_manager.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::test {

/// The frame at 0 seconds with `content` in place of the project's own. The session's effect is
/// called directly, since a session always tells all sizes.
template <class P>
Picture<P> renderWithContent(Renderer& renderer, const Picture<P>& input,
                             const DSContent& content) {
    const runtime::Project& project = renderer.project();
    const auto output =
        runtime::makeProjectImage(project, input.width, input.height, formatOf<P>());
    IDSImageEffect& effect = renderer.session().effect();
    const DSContentScope scope(content);
    effect.Setup();
    effect.SetSampleRate(project.frameRate);
    effect.SetCoordMan(runtime::makeCoordinateManager(project, input.width, input.height).get());
    effect.SetInput(imageOf(project, input).get());
    effect.SetOutput(output.get());
    EXPECT_EQ(effect.Execute(0.0), S_OK);
    effect.Cleanup();
    return pictureOf<P>(*output);
}

}  // namespace ruvex::test
