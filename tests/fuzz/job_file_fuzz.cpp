// Render jobs: JSON.

#include "jobs/job_file.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex;
using namespace ruvex::jobs;
using fuzz::demand;

const std::string kName = "job.json";

std::optional<RenderJob> accepted(const std::string& text, const std::filesystem::path& folder) {
    std::vector<std::string> warnings;
    auto job = fuzz::unlessRefused<JobFileError>(
        [&] { return parseJob(kName, text, folder, warnings); },
        [](std::string_view sentence) {
            fuzz::demandPrintable(sentence);
            fuzz::demandNamed(sentence, kName + ": ");
            demand(sentence.back() == '.', "a refusal is a sentence");
            demand(sentence.size() < 2000, "a refusal is short, whatever the file holds");
        });
    for (const std::string& warning : warnings) {
        fuzz::demandPrintable(warning);
        fuzz::demandNamed(warning, kName + ": ");
    }
    return job;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(fuzz::textOf(data, size));
    const auto job = accepted(text, {});
    if (!job) return 0;
    demand(!job->input.empty() && !job->output.empty(), "a job has an input and an output");
    const auto again = accepted(jobText(*job, {}), {});
    demand(again.has_value(), "a job that was written is read");
    RenderJob once = *job;
    once.parameters = looks::lastChanges(job->parameters);
    demand(*again == once, "as it was");
    const auto elsewhere = accepted(text, "some/folder");
    demand(elsewhere.has_value(), "the folder does not decide whether a job is read");
    return 0;
}
