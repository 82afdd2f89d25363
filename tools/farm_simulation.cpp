// How long a farm takes for a clip, by the number of nodes and the length of chunks: a simulation
// of nodes that each render one chunk at a time, of a scheduler that starts so many tasks a second,
// and of the join at the end. Usage: farm_simulation MEASURED, a file with lines "NAME VALUE" as
// scripts/farm-figures writes it; prints tables in Markdown.

#include <algorithm>
#include <cmath>
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

constexpr int kNodes[] = {1, 3, 10, 30, 100, 300, 1000};
constexpr int kChunkLengths[] = {10, 25, 50, 100, 250, 500, 1000, 2500};

/// All times in seconds.
struct Measured {
    double frames;               ///< Of the clip.
    double frameTime;            ///< Of a node, for a frame; with the walk of the time line.
    double frameBytes;           ///< Of a chunk, for a frame.
    std::vector<double> spread;  ///< Times of chunks of one length over their mean.
    double start;                ///< Of a task, before its first frame: program, clip, plan.
    double seek;                 ///< To a frame between two key frames.
    double gap;                  ///< From the end of a task to the start of the next on its node.
    double tasksPerSecond;       ///< That the scheduler starts.
    double joinFrameTime;
    double joinStart;  ///< Before its first frame.
};

using Values = std::map<std::string, std::vector<double>>;

Values readValues(const std::string& file) {
    Values values;
    std::ifstream stream(file);
    std::string name;
    for (double value = 0.0; stream >> name >> value;) values[name].push_back(value);
    return values;
}

/// `kind` is that of the result: "prores".
Measured measuredOf(const Values& values, const std::string& kind) {
    const auto one = [&](const std::string& name) { return values.at(name).front(); };
    return {.frames = one("frames"),
            .frameTime = one("frame." + kind) + one("walk"),
            .frameBytes = one("frameBytes." + kind),
            .spread = values.at("chunk." + kind),
            .start = one("start." + kind) + one("length"),
            .seek = one("seek"),
            .gap = one("gap"),
            .tasksPerSecond = one("tasks"),
            .joinFrameTime = one("joinFrame." + kind),
            .joinStart = one("joinStart." + kind)};
}

/// One run: seconds until the last chunk is done. Each chunk takes a measured multiple of the mean.
double renderTime(const Measured& measured, int nodes, double chunkFrames, std::mt19937& random) {
    std::uniform_int_distribution<std::size_t> choice(0, measured.spread.size() - 1);
    std::priority_queue<double, std::vector<double>, std::greater<>> freeAt;
    for (int i = 0; i < nodes; ++i) freeAt.push(0.0);
    double nextStart = 0.0;
    double end = 0.0;
    for (double first = 0.0; first < measured.frames; first += chunkFrames) {
        const double frames = std::min(chunkFrames, measured.frames - first);
        const double begin = std::max(freeAt.top(), nextStart);
        nextStart = begin + 1.0 / measured.tasksPerSecond;
        const double work = frames * measured.frameTime * measured.spread[choice(random)];
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
    if (seconds < 600.0) {
        std::snprintf(text, sizeof text, "%.0f s", seconds);
    } else if (seconds < 36000.0) {
        std::snprintf(text, sizeof text, "%.0f min", seconds / 60.0);
    } else {
        std::snprintf(text, sizeof text, "%.1f h", seconds / 3600.0);
    }
    return text;
}

void printHeader(const std::vector<std::string>& titles) {
    for (const std::string& title : titles) std::cout << "| " << title << ' ';
    std::cout << "|\n";
    for (std::size_t i = 0; i < titles.size(); ++i) std::cout << "|---";
    std::cout << "|\n";
}

/// The best length of chunks for a number of nodes.
struct Best {
    int nodes;
    int chunk;
    double render;  ///< Seconds until the last chunk is done.
};

std::vector<Best> printRenderTimes(const Measured& measured) {
    std::vector<std::string> titles = {"Nodes"};
    for (const int chunk : kChunkLengths) titles.push_back(std::to_string(chunk));
    printHeader(titles);
    std::vector<Best> all;
    for (const int nodes : kNodes) {
        std::vector<double> times;
        for (const int chunk : kChunkLengths) times.push_back(meanTime(measured, nodes, chunk));
        const auto best = std::ranges::min_element(times) - times.begin();
        all.push_back({nodes, kChunkLengths[best], times[static_cast<std::size_t>(best)]});
        std::cout << "| " << nodes;
        for (const double time : times) {
            const char* mark = time == all.back().render ? "**" : "";
            std::cout << " | " << mark << timeText(time) << mark;
        }
        std::cout << " |\n";
    }
    return all;
}

void printWholeTimes(const Measured& measured, const std::vector<Best>& best) {
    printHeader(
        {"Nodes", "chunk", "rendered", "joined", "faster than one node", "written by all nodes"});
    const double join = joinTime(measured);
    const double alone = best.front().render + join;
    for (const Best& one : best) {
        const double whole = one.render + join;
        const double bytesPerSecond = measured.frames * measured.frameBytes / one.render;
        std::printf("| %d | %d | %s | %s | %.1f times | %.0f MB/s |\n", one.nodes, one.chunk,
                    timeText(one.render).c_str(), timeText(whole).c_str(), alone / whole,
                    bytesPerSecond * 1e-6);
    }
}

void print(const Values& values, const std::string& kind, const std::string& title) {
    const Measured measured = measuredOf(values, kind);
    std::cout << "### " << title
              << "\n\nTime until all chunks are rendered, by frames of a chunk:\n\n";
    const std::vector<Best> best = printRenderTimes(measured);
    std::cout << std::flush;
    std::printf("\nWith the join, which takes %s and reads %.0f GB, %.0f MB/s:\n\n",
                timeText(joinTime(measured)).c_str(), measured.frames * measured.frameBytes * 1e-9,
                measured.frameBytes / measured.joinFrameTime * 1e-6);
    printWholeTimes(measured, best);
    std::printf("\n");
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: farm_simulation MEASURED\n";
        return 2;
    }
    try {
        const Values values = readValues(argv[1]);
        if (!(values.at("tasks").front() > 0.0)) throw std::out_of_range("tasks");
        print(values, "prores", "ProRes");
        print(values, "h264", "H.264");
    } catch (const std::out_of_range&) {
        std::cerr << "farm_simulation: " << argv[1] << " cannot be read, or lacks a value.\n";
        return 1;
    }
    return 0;
}
