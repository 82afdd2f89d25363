// Whole command lines, a word a line, as far as they are read before anything is opened.

#include "cli/command_parser.h"
#include "cli/level_job.h"
#include "cli/typed_job.h"
#include "cli/usage_error.h"
#include "media/media_error.h"
#include "parameters/presets.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/typed_line.h"

namespace {

using namespace ruvex::cli;
using ruvex::fuzz::demand;
using ruvex::fuzz::TypedLine;

void demandSaid(std::string_view sentence) {
    demand(!sentence.empty(), "a refusal says why");
}

/// No file is opened that the words may name.
void forgetFiles(ParameterOptions& options) {
    options.params.clear();
    if (!ruvex::findPreset(options.preset)) options.preset.clear();
}

template <class Job>
auto accepted(Job job) {
    return ruvex::fuzz::unlessRefused<UsageError>(job, demandSaid);
}

void tryRender(RenderOptions options) {
    forgetFiles(options.parameters);
    std::vector<std::string> warnings;
    const auto job = accepted([&] { return typedJob(options, warnings); });
    if (!job) return;
    demand(job->framesAtOnce >= 1 && job->framesAtOnce <= 256, "some frames are rendered at once");
    demand(!job->workers || *job->workers >= 1, "somebody works");
    demand(!job->quality || (*job->quality >= 1 && *job->quality <= 100), "quality is of 100");
    demand(job->pixelAspect >= 0.1 && job->pixelAspect <= 10.0, "pixels are seen");
}

void tryLevel(LevelOptions options) {
    forgetFiles(options.parameters);
    options.input.clear();
    const auto job = accepted([&] { return makeLevelJob(options); });
    demand(!job || job->frames.first <= job->frames.last, "there are frames");
}

/// What was read, written as a command line of its own, is read as the same.
void demandReadsBack(const TypedLine& line, const Command& meant) {
    TypedLine again;
    const Command* command = again.type(line.textOf(meant));
    demand(command != nullptr && std::string_view(command->name) == meant.name,
           "a command line reads back");
    ruvex::fuzz::demandSameValues(line.valuesOf(meant), again.valuesOf(*command));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TypedLine line;
    const auto words = ruvex::fuzz::wordsOf(ruvex::fuzz::textOf(data, size));
    const auto command = accepted([&] { return line.type(words); });
    if (!command || *command == nullptr) return 0;
    demandReadsBack(line, **command);
    if (std::string_view((*command)->name) == "render") tryRender(line.render);
    if (std::string_view((*command)->name) == "level") tryLevel(line.level);
    return 0;
}
