// The property pages: a preset while all eight are open, and opening them.

#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

#include "pages/resources/resource_ids.h"
#include "runtime/editor.h"
#include "sdk/window/window_tree.h"

namespace ruvex::bench {
namespace {

using Pages = std::vector<std::unique_ptr<runtime::OpenPage>>;

runtime::EffectSession makeSession() {
    return runtime::EffectSession({.module = runtime::Module::load(RUVEX_MODULE_FILE),
                                   .project = {.width = 720, .height = 576}});
}

Pages openAll(runtime::Editor& editor) {
    Pages pages;
    for (const GUID& id : editor.pages()) {
        pages.push_back(editor.open(id));
        pages.back()->show();
    }
    return pages;
}

void presetWithAllPagesOpen(benchmark::State& state) {
    auto session = makeSession();
    runtime::Editor editor(session);
    const Pages pages = openAll(editor);
    const HWND presets = GetDlgItem(pages.front()->window(), IDC_PRESETS);
    int item = 0;
    for (auto _ : state) DSChooseItem(presets, 1 + item++ % 8);
}
BENCHMARK(presetWithAllPagesOpen)->Unit(benchmark::kMillisecond);

void undoOfAPresetWithAllPagesOpen(benchmark::State& state) {
    auto session = makeSession();
    runtime::Editor editor(session);
    const Pages pages = openAll(editor);
    DSChooseItem(GetDlgItem(pages.front()->window(), IDC_PRESETS), 2);
    for (auto _ : state) {
        editor.undo();
        editor.redo();
    }
}
BENCHMARK(undoOfAPresetWithAllPagesOpen)->Unit(benchmark::kMillisecond);

void openAllPages(benchmark::State& state) {
    auto session = makeSession();
    runtime::Editor editor(session);
    for (auto _ : state) benchmark::DoNotOptimize(openAll(editor));
}
BENCHMARK(openAllPages)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ruvex::bench
