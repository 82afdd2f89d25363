#include "cli/job_report.h"

#include <algorithm>
#include <cmath>

#include "cli/media_options.h"
#include "cli/text_table.h"
#include "parameters/parameter_text.h"

namespace ruvex::cli {
namespace {

std::string bitsText(media::Depth depth) {
    return depth == media::Depth::Bits8 ? "8 bits a channel" : "16 bits a channel";
}

std::string rangeText(const FrameRange& range) {
    return std::to_string(range.first) + "-" + std::to_string(range.last);
}

/// Nothing for frames that are not interlaced.
std::string fieldsText(media::FieldOrder fields, const std::string& before) {
    return fields == media::FieldOrder::Progressive ? "" : before + toText(fields);
}

std::string inputText(const RenderJob& job, const RenderPlan& plan, const media::ClipInfo& clip) {
    std::string text = job.input.string() + ": " + toText(clip.size) + ", " + bitsText(clip.depth);
    text.append(", ").append(toText(plan.rate)).append(" frames a second, frames ");
    text.append(clip.lastKnown ? rangeText({clip.first, clip.last})
                               : "from " + std::to_string(clip.first) + " on");
    return text + fieldsText(plan.output.fields, ", ") + (clip.hasAlpha ? ", with alpha" : "");
}

std::string outputText(const RenderJob& job, const RenderPlan& plan) {
    return job.output.string() + ": " + toText(plan.output.size) + ", " +
           media::codecName(job.output, job.codec);
}

std::string framesText(const RenderPlan& plan, const FramesToMake& frames) {
    if (plan.endless) {
        return "to the end of the stream";
    }
    const std::int64_t all = plan.frames.last - plan.frames.first + 1;
    std::string text = rangeText(plan.frames);
    text.append(": ").append(std::to_string(all)).append(", ");
    const double milliseconds = 1e3 * static_cast<double>(all) / plan.rate.value();
    text.append(formatNumber(std::round(milliseconds) / 1e3)).append(" s");
    if (!frames.made.empty()) {
        text.append("; ").append(std::to_string(frames.made.size())).append(" are there already");
    }
    return text;
}

std::string chainText(const RenderJob& job, const RenderPlan& plan) {
    const std::string workers = job.workers ? std::to_string(*job.workers) : "the machine's";
    return bitsText(plan.depth) + ", workers: " + workers + ", jobs: " + std::to_string(job.jobs) +
           fieldsText(plan.fields, ", each field by itself, ");
}

bool isDefault(const Setting& setting) {
    return setting.value == setting.row->defaultValue;
}

bool isDefault(const Animation&) {
    return false;
}

std::string changeText(const Setting& setting) {
    const ParameterRow& row = *setting.row;
    return std::string(row.label) + " = " + formatValue(row, setting.value) + " (" +
           formatValue(row, row.defaultValue) + " by default)";
}

std::string changeText(const Animation& animation) {
    std::string text = std::string(animation.row->label) + ":";
    for (const Key& key : animation.keys) {
        text.append(" ").append(formatNumber(key.seconds)).append(" s ");
        text.append(formatValue(*animation.row, key.value)).append(",");
    }
    text.pop_back();
    return text;
}

/// The last change of each parameter, in the order of the table.
std::vector<const ParameterChange*> lastChanges(const std::vector<ParameterChange>& changes) {
    std::vector<const ParameterChange*> last;
    for (const ParameterRow& row : parameterTable()) {
        const auto found = std::find_if(changes.rbegin(), changes.rend(),
                                        [&](const auto& change) { return &rowOf(change) == &row; });
        if (found != changes.rend()) last.push_back(&*found);
    }
    return last;
}

}  // namespace

std::string jobReport(const RenderJob& job, const RenderPlan& plan, const media::ClipInfo& clip,
                      const FramesToMake& frames) {
    std::vector<TextRow> lines = {{"Input", inputText(job, plan, clip)},
                                  {"Output", outputText(job, plan)},
                                  {"Frames", framesText(plan, frames)},
                                  {"Chain", chainText(job, plan)}};
    if (!job.mask.empty()) {
        lines.push_back({"Mask", job.mask.string()});
    }
    for (const ParameterChange* change : lastChanges(job.parameters.changes)) {
        std::visit(
            [&](const auto& either) {
                if (!isDefault(either)) lines.push_back({"Parameter", changeText(either)});
            },
            *change);
    }
    return alignedTable(lines, Align::Left);
}

}  // namespace ruvex::cli
