#include "farm/batch_script.h"

#include <filesystem>

namespace ruvex::farm {

std::vector<std::string> taskWords(const Farm& farm, std::int64_t chunk) {
    return {"task", farm.layout().folder().string(), std::to_string(chunk), "--id", farm.job().id};
}

std::vector<std::string> joinWords(const Farm& farm, std::size_t clip) {
    return {"join", farm.layout().folder().string(), std::to_string(clip), "--id", farm.job().id};
}

std::string scriptQuoted(const std::string& word) {
    std::string text = "'";
    for (const char letter : word) {
        text += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    }
    return text + "'";
}

std::string batchScript(const Layout& layout, const std::string& id) {
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    return "#!/bin/sh\n"
           "# Renders a chunk (task) or joins the chunks of a clip (join).\n"
           "# Usage: task.sh task|join FIRST, where FIRST is the number of the array's element 0.\n"
           "exec " +
           scriptQuoted(program) + " farm \"$1\" " + scriptQuoted(layout.folder().string()) +
           " \"$(($2 + SLURM_ARRAY_TASK_ID))\" --id " + id + "\n";
}

}  // namespace ruvex::farm
