#include "cli/job_words.h"

#include <optional>

#include "cli/messages.h"

namespace ruvex::cli {
namespace {

using jobs::JobField;

std::string sentence(JobField field, const std::string& what, std::optional<JobField> see,
                     FieldText text) {
    const std::string name = text(field);
    return (name.empty() ? "" : name + ": ") + what + (see ? " See " + text(*see) + "." : "");
}

}  // namespace

std::string optionText(JobField field) {
    switch (field) {
        case JobField::Input:
        case JobField::Output:
            return "";
        case JobField::InputFormat:
            return "--input-format";
        case JobField::FieldOrder:
            return "--field-order";
        case JobField::OutputFormat:
            return "--output-format";
        case JobField::OutputSize:
            return "--output-size";
        case JobField::ResultAlpha:
            return "--result-alpha";
        case JobField::ProjectSize:
            return "--project-size";
        case JobField::PixelAspect:
            return "--pixel-aspect";
        case JobField::Comparison:
            return "--split-at";
        case JobField::FramesAtOnce:
            return "--jobs";
        case JobField::EncoderSpeed:
            return "--encoder-speed";
        case JobField::EncoderThreads:
            return "--encoder-threads";
        case JobField::ExrPixels:
            return "--exr-pixels";
        case JobField::ExrCompression:
            return "--exr-compression";
        case JobField::Parameters:
            return "--set";
        default:
            // The others have one word, which is the option's name too.
            return "--" + std::string(fieldName(field));
    }
}

std::string jobFileText(JobField field) {
    return std::string(fieldName(field));
}

std::string sentenceOf(const jobs::JobError& error, FieldText text) {
    return sentence(error.field(), error.what(), error.see(), text);
}

std::string sentenceOf(const jobs::Note& note, FieldText text) {
    return sentence(note.field, note.sentence, note.see, text);
}

void printNotes(const std::vector<jobs::Note>& notes, FieldText text) {
    std::vector<std::string> warnings;
    for (const jobs::Note& note : notes) {
        warnings.push_back(sentenceOf(note, text));
    }
    printWarnings(warnings);
}

}  // namespace ruvex::cli
