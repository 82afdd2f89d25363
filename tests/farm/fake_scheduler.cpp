#include "tests/farm/fake_scheduler.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>

#include "files/read_file.h"
#include "media/stills/raw_frame.h"
#include "tests/media/test_clips.h"

namespace ruvex::farm {

using cli::Arguments;
using cli::operator+;
using cli::Outcome;

FakeScheduler::FakeScheduler() {
    std::filesystem::create_directory(folder.file("bin"));
    const auto program = [&](const std::string& name, const std::string& does) {
        write("bin/" + name, "#!/bin/sh\ncd '" + folder.path().string() + "'\necho \"$@\" >>" +
                                 name + ".calls\n" + does);
        chmod(path("bin/" + name).c_str(), 0755);
    };
    // The number of a job is that of the call.
    program("sbatch",
            "if [ -e refuse ]; then echo 'sbatch: error: no' >&2; exit 1; fi\n"
            "wc -l <sbatch.calls\n");
    program("squeue", "[ ! -e queue ] || cat queue\n");
    // Elements that run outlive a cancellation of those that wait.
    program("scancel",
            "[ -e queue ] || exit 0\n"
            "case \"$*\" in *--state=PENDING*) sed -i '/|PENDING|/d' queue ;; *) rm -f queue ;; "
            "esac\n");
    program("scontrol", "[ -e config ] && cat config\n");
    searched = std::getenv("PATH");
    setenv("PATH", (path("bin") + ":" + searched).c_str(), 1);
}

FakeScheduler::~FakeScheduler() {
    setenv("PATH", searched.c_str(), 1);
}

std::string FakeScheduler::text(const std::string& name) const {
    return files::readText(folder.file(name));
}

void FakeScheduler::write(const std::string& name, const std::string& content) const {
    std::ofstream(folder.file(name)) << content;
}

bool FakeScheduler::exists(const std::string& name) const {
    return std::filesystem::exists(folder.file(name));
}

void FakeScheduler::makePictures(int count) const {
    for (int k = 0; k < count; ++k) {
        media::writeRawFrame(
            folder.file("in." + std::to_string(k) + ".rgba8"),
            media::noiseFrame({6, 4}, media::Depth::Bits8, static_cast<unsigned>(k), true));
    }
}

Arguments FakeScheduler::rendering(const std::string& output) const {
    return {path("in.%d.rgba8"), "-o",     path(output), "--size", "6x4", "--preset",
            "Bad Colour TV",     "--rate", "25"};
}

Outcome FakeScheduler::farm(const Arguments& words) const {
    return cli::ruvex(Arguments{"farm"} + words);
}

Outcome FakeScheduler::submit(const Arguments& more, const std::string& chunk) const {
    return farm(Arguments{"submit"} + rendering("out.%d.rgba8") + Arguments{"--chunk", chunk} +
                more);
}

std::vector<std::string> FakeScheduler::calls(const std::string& program) const {
    std::vector<std::string> lines;
    std::ifstream stream(folder.file(program + ".calls"));
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::string FakeScheduler::id() const {
    const std::string job = text("out.farm/farm.json");
    const std::string before = "\"id\": \"";
    return job.substr(job.find(before) + before.size(), 16);
}

void FakeScheduler::setQueue(const std::vector<std::string>& elements) const {
    std::string queue;
    for (const std::string& element : elements) {
        queue += queueLine(element);
    }
    write("queue", queue);
}

std::string FakeScheduler::queueLine(const std::string& element, int array,
                                     const std::string& reason) const {
    const auto bar = element.find('|');
    return "ruvex-" + id() + "-" + element.substr(0, bar) + "-0|" + std::to_string(array) +
           element.substr(bar) + "|n7|" + reason + "\n";
}

int FakeScheduler::runTask(const std::string& work, int number) const {
    const std::string name = "ruvex-" + id() + "-" + work + "-0_" + std::to_string(number);
    const std::string command = "SLURM_ARRAY_TASK_ID=" + std::to_string(number) + " sh '" +
                                path("out.farm/task.sh") + "' " + work + " 0 >>'" +
                                path("out.farm/logs/" + name + ".txt") + "' 2>&1";
    return WEXITSTATUS(std::system(command.c_str()));
}

void FakeScheduler::writeLog(int chunk, const std::string& content) const {
    write("out.farm/logs/ruvex-" + id() + "-task-0_" + std::to_string(chunk) + ".txt", content);
}

void FakeScheduler::runAll(int chunks) const {
    for (int k = 0; k < chunks; ++k) EXPECT_EQ(runTask("task", k), 0) << k;
    EXPECT_EQ(runTask("join", 0), 0);
}

void FakeScheduler::expectResultsOfOneMachine(int count) const {
    const Outcome one =
        cli::ruvex(Arguments{"render"} + rendering("one.%d.rgba8") + Arguments{"--workers", "8"});
    ASSERT_EQ(one.status, 0) << one.err;
    for (int k = 0; k < count; ++k) {
        const std::string ending = "." + std::to_string(k) + ".rgba8";
        EXPECT_EQ(text("out" + ending), text("one" + ending)) << k;
    }
}

}  // namespace ruvex::farm
