// What the jobs library says, in the words of the command line.

#pragma once

#include <string>
#include <vector>

#include "cli/usage_error.h"
#include "jobs/job_error.h"

namespace ruvex::cli {

/// How the user has set a field, for messages: "--frames"; empty for the positional arguments.
using FieldText = std::string (*)(jobs::JobField field);

/// The option of 'ruvex render' that sets a field; empty for the input and the output.
std::string optionText(jobs::JobField field);
/// The field's name in a job file.
std::string jobFileText(jobs::JobField field);

/// "--frames: clip.mp4 has the frames 0-9, not all of 5-20." `see` is named at the end.
std::string sentenceOf(const jobs::JobError& error, FieldText text = optionText);
std::string sentenceOf(const jobs::Note& note, FieldText text = optionText);

/// Calls `work` and turns a JobError into a UsageError in these words.
template <class Work>
auto inOptionWords(Work work) {
    try {
        return work();
    } catch (const jobs::JobError& error) {
        throw UsageError(sentenceOf(error));
    }
}

/// Prints the notes as warnings.
void printNotes(const std::vector<jobs::Note>& notes, FieldText text = optionText);

}  // namespace ruvex::cli
