#include "cli/job_report.h"

#include <cmath>

#include "cli/text_table.h"
#include "files/words.h"
#include "media/pixels/fields.h"
#include "parameters/parameter_text.h"

namespace ruvex::cli {
namespace {

std::string bitsText(media::Depth depth) {
    return depth == media::Depth::Bits8 ? "8 bits a channel" : "16 bits a channel";
}

/// Nothing for frames that are not interlaced.
std::string fieldsText(media::FieldOrder fields, const std::string& before) {
    return fields == media::FieldOrder::Progressive ? "" : before + toText(fields);
}

std::string inputText(const jobs::RenderPlan& plan, const media::ClipInfo& clip) {
    std::string text = files::printable(plan.input.string()) + ": " + toText(clip.size) + ", " +
                       bitsText(clip.depth);
    text.append(", ").append(toText(plan.rate)).append(" frames a second, frames ");
    text.append(clip.lastKnown ? toText(jobs::FrameRange{clip.first, clip.last})
                               : "from " + std::to_string(clip.first) + " on");
    return text + fieldsText(plan.writing.fields, ", ") + (clip.hasAlpha ? ", with alpha" : "");
}

std::string outputText(const jobs::RenderPlan& plan) {
    return files::printable(plan.output.string()) + ": " + toText(plan.writing.size) + ", " +
           media::codecName(plan.output, plan.writing.codec);
}

std::string framesText(const jobs::RenderPlan& plan, const jobs::FramesToMake& frames) {
    if (plan.endless) {
        return "to the end of the stream";
    }
    const std::int64_t all = plan.frames.count();
    std::string text = toText(plan.frames);
    text.append(": ").append(std::to_string(all)).append(", ");
    const double milliseconds = 1e3 * static_cast<double>(all) / plan.rate.value();
    text.append(formatNumber(std::round(milliseconds) / 1e3)).append(" s");
    if (!frames.made.empty()) {
        text.append("; ").append(std::to_string(frames.made.size())).append(" exist already");
    }
    return text;
}

std::string chainText(const jobs::RenderPlan& plan) {
    const std::string workers = plan.workers ? std::to_string(*plan.workers) : "the machine's";
    return bitsText(plan.depth) + ", workers: " + workers +
           ", jobs: " + std::to_string(plan.framesAtOnce) +
           fieldsText(plan.fields, ", each field by itself, ");
}

bool isDefault(const looks::Setting& setting) {
    return setting.value == row(setting.id).defaultValue;
}

bool isDefault(const looks::Animation&) {
    return false;
}

std::string changeText(const looks::Setting& setting) {
    const ParameterRow& row = ruvex::row(setting.id);
    return std::string(row.label) + " = " + formatValue(row, setting.value) +
           " (default: " + formatValue(row, row.defaultValue) + ")";
}

std::string changeText(const looks::Animation& animation) {
    std::string text = std::string(row(animation.id).label) + ":";
    for (const looks::Key& key : animation.keys) {
        text.append(" ").append(formatNumber(key.seconds)).append(" s ");
        text.append(formatValue(row(animation.id), key.value));
        if (key.mode != looks::KeyMode::Linear)
            text.append(" ").append(looks::keyModeName(key.mode));
        text += ",";
    }
    text.pop_back();
    return text;
}

}  // namespace

std::string jobReport(const jobs::RenderPlan& plan, const media::ClipInfo& clip,
                      const jobs::FramesToMake& frames) {
    std::vector<TextRow> lines = {{"Input", inputText(plan, clip)},
                                  {"Output", outputText(plan)},
                                  {"Frames", framesText(plan, frames)},
                                  {"Chain", chainText(plan)}};
    const media::FrameSize project{plan.project.width, plan.project.height};
    if (project != plan.size) {
        lines.push_back({"Project", toText(project) + ", which lengths refer to"});
    }
    if (!plan.mask.empty()) {
        lines.push_back({"Mask", files::printable(plan.mask.string())});
    }
    for (const looks::ParameterChange& change : plan.parameters) {
        std::visit(
            [&](const auto& either) {
                if (!isDefault(either)) lines.push_back({"Parameter", changeText(either)});
            },
            change);
    }
    return alignedTable(lines, Align::Left);
}

}  // namespace ruvex::cli
