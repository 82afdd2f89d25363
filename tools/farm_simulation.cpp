// How long a farm takes for a clip, by the number of nodes and the length of chunks: a simulation
// of nodes that each render one chunk at a time, of a scheduler that starts so many tasks a second,
// and of the join at the end. Usage: farm_simulation MEASURED, a file with lines "NAME VALUE";
// prints a table in Markdown.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <queue>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

/// All times in seconds.
struct Measured {
    double frames;          ///< Of the clip.
    double frameTime;       ///< Of a node, for a frame.
    double chunkSpread;     ///< Standard deviation of a chunk's time over its mean.
    double start;           ///< Of a task, before its first frame: program, clip, plan.
    double seek;            ///< To a frame between two key frames.
    double walk;            ///< Of the time line, for a frame in the middle of the clip.
    double gap;             ///< From the end of a task to the start of the next on its node.
    double tasksPerSecond;  ///< That the scheduler starts.
    double joinFrameTime;   ///< Of a join without coding.
    double joinStart;       ///< Before its first frame.
};

Measured readMeasured(const std::string& file) {
    std::map<std::string, double> values;
    std::ifstream stream(file);
    std::string name;
    for (double value = 0.0; stream >> name >> value;) values[name] = value;
    return {values.at("frames"),    values.at("frame"),    values.at("spread"), values.at("start"),
            values.at("seek"),      values.at("walk"),     values.at("gap"),    values.at("tasks"),
            values.at("joinFrame"), values.at("joinStart")};
}

/// One run: seconds until the last chunk is done.
double renderTime(const Measured& measured, int nodes, double chunkFrames, std::mt19937& random) {
    // A chunk's time is never below half of its mean.
    constexpr double kLeastPart = 0.5;
    std::normal_distribution<double> spread(1.0, measured.chunkSpread);
    std::priority_queue<double, std::vector<double>, std::greater<>> freeAt;
    for (int i = 0; i < nodes; ++i) freeAt.push(0.0);
    double nextStart = 0.0;
    double end = 0.0;
    for (double first = 0.0; first < measured.frames; first += chunkFrames) {
        const double frames = std::min(chunkFrames, measured.frames - first);
        const double begin = std::max(freeAt.top(), nextStart);
        nextStart = begin + 1.0 / measured.tasksPerSecond;
        const double work =
            frames * (measured.frameTime + measured.walk) * std::max(kLeastPart, spread(random));
        const double done = begin + measured.start + measured.seek + work;
        freeAt.pop();
        freeAt.push(done + measured.gap);
        end = std::max(end, done);
    }
    return end;
}

double meanTime(const Measured& measured, int nodes, double chunkFrames) {
    constexpr int kRuns = 20;
    std::mt19937 random(1);
    double sum = 0.0;
    for (int i = 0; i < kRuns; ++i) sum += renderTime(measured, nodes, chunkFrames, random);
    return sum / kRuns;
}

double joinTime(const Measured& measured) {
    return measured.joinStart + measured.frames * measured.joinFrameTime;
}

std::string timeText(double seconds) {
    char text[32];
    const auto minutes = static_cast<std::int64_t>(std::lround(seconds / 60.0));
    if (seconds < 600.0) {
        std::snprintf(text, sizeof text, "%.0f s", seconds);
    } else if (minutes < 600) {
        std::snprintf(text, sizeof text, "%lld min", static_cast<long long>(minutes));
    } else {
        std::snprintf(text, sizeof text, "%.1f h", seconds / 3600.0);
    }
    return text;
}

void printTable(const Measured& measured) {
    const std::vector<int> chunks = {10, 25, 50, 100, 250, 500, 1000, 2500};
    std::cout << "| Nodes |";
    for (const int chunk : chunks) std::cout << ' ' << chunk << " |";
    std::cout << " ideal | join |\n|---|";
    for (std::size_t i = 0; i < chunks.size() + 2; ++i) std::cout << "---|";
    std::cout << '\n';
    const double work = measured.frames * (measured.frameTime + measured.walk);
    for (const int nodes : {1, 3, 10, 30, 100, 300, 1000}) {
        std::cout << "| " << nodes << " |";
        std::vector<double> times;
        for (const int chunk : chunks) times.push_back(meanTime(measured, nodes, chunk));
        const double best = *std::ranges::min_element(times);
        for (const double time : times) {
            const char* mark = time == best ? "**" : "";
            std::cout << ' ' << mark << timeText(time) << mark << " |";
        }
        std::cout << ' ' << timeText(work / nodes) << " | " << timeText(joinTime(measured))
                  << " |\n";
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: farm_simulation MEASURED\n";
        return 2;
    }
    try {
        printTable(readMeasured(argv[1]));
    } catch (const std::out_of_range&) {
        std::cerr << "farm_simulation: " << argv[1] << " lacks a value.\n";
        return 1;
    }
    return 0;
}
