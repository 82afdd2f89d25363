// A scheduler of shell scripts: it writes down what it is asked, and runs nothing by itself.

#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/cli/run_command.h"
#include "tests/support/temp_folder.h"

namespace ruvex::farm {

/// A farm job whose results are numbered raw pictures, with sbatch, squeue, scancel and scontrol in
/// PATH that are its own.
class FakeScheduler : public testing::Test {
protected:
    FakeScheduler();
    ~FakeScheduler() override;

    std::string path(const std::string& name) const { return folder.file(name).string(); }
    std::string text(const std::string& name) const;
    void write(const std::string& name, const std::string& content) const;
    bool exists(const std::string& name) const;

    /// Pictures in.0.rgba8 and so on, of 6x4 pixels.
    void makePictures(int count) const;
    /// The words that render them, to out.%d.rgba8.
    cli::Arguments rendering(const std::string& command) const;
    /// Submits them, in chunks of two frames unless named; the folder is out.farm.
    cli::Outcome submit(const cli::Arguments& more = {}, const std::string& chunk = "2") const;
    cli::Outcome farm(const cli::Arguments& words) const;

    /// The calls of a program so far, one in a line.
    std::vector<std::string> calls(const std::string& program) const;
    /// The queue that squeue shows: one line an element, "task|INDEX|STATE", of array 1.
    void setQueue(const std::vector<std::string>& elements) const;
    /// Such a line of it, for any array and reason.
    std::string queueLine(const std::string& element, int array = 1,
                          const std::string& reason = "None") const;
    /// Runs the batch script as the scheduler would; its exit status.
    int runTask(const std::string& work, int number) const;
    /// Makes the log of a chunk, as if its task had printed it.
    void writeLog(int chunk, const std::string& content) const;
    /// Runs all chunks and the join of the job.
    void runAll(int chunks) const;
    /// The results of a plain render with as many shares, made in another folder.
    void expectResultsOfOneMachine(int count) const;

    std::string id() const;

    files::TempFolder folder;
    std::string searched;  ///< PATH before.
};

}  // namespace ruvex::farm
