#include "tests/effect/render_fixture.h"

namespace ruvex::test {

Renderer::Renderer(runtime::Project project, std::shared_ptr<runtime::InputProvider> provider,
                   GUID family)
    : project_(project) {
    session_.emplace(runtime::EffectSession::Setup{.module = builtModule(),
                                                   .project = project,
                                                   .provider = std::move(provider),
                                                   .family = family});
    set(ParameterId::MasterBreakup, 0);
    set(ParameterId::BreakupVariation, 0);
}

}  // namespace ruvex::test
