// Calls the frei0r plug-in as no host should: random functions in any order, from several threads,
// with random and hostile times, sizes, indices, values and strings. Each picture is checked for
// writes beside it; the sanitizers look for everything else.
//
//     frei0r_attack [--calls N] [--seed S]
//
// Ends with status 1 at the first fault. The calls of a thread are the same for a seed, but threads
// meet by chance.

#include <array>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <mutex>
#include <random>
#include <shared_mutex>
#include <string>
#include <thread>
#include <vector>

#include "adapters/frei0r/frei0r_api.h"

namespace {

using namespace ruvex::frei0r;

constexpr int kThreads = 4;
constexpr std::size_t kSlots = 6;
constexpr std::uint32_t kGuard = 0xA5C35A3C;
constexpr std::size_t kGuardPixels = 16;

/// One instance, or none. Calls of an instance share the lock; making and destroying take it alone,
/// since no host does these during a call.
struct Slot {
    std::shared_mutex mutex;
    InstanceHandle instance = nullptr;
    unsigned width = 0;
    unsigned height = 0;
};

std::array<Slot, kSlots> slots;
std::atomic<long> callsLeft{0};
std::atomic<long> pictures{0};
std::atomic<int> faults{0};

void fault(const char* what) {
    std::printf("fault: %s\n", what);
    ++faults;
}

class Attacker {
public:
    explicit Attacker(std::uint32_t seed) : random_(seed) {}

    void run() {
        while (faults == 0 && callsLeft.fetch_sub(1) > 0) call();
    }

private:
    int whole(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
    Slot& anySlot() { return slots[static_cast<std::size_t>(whole(0, kSlots - 1))]; }

    template <class T, std::size_t N>
    T oneOf(const T (&values)[N]) {
        return values[whole(0, N - 1)];
    }

    void call() {
        const int kind = whole(0, 99);
        if (kind < 10) return makeInstance(anySlot());
        if (kind < 12) return describe();
        if (kind < 15) return kind < 13 ? f0r_deinit() : static_cast<void>(f0r_init());
        if (kind < 75) return setValue(anySlot());
        if (kind < 90) return getValue(anySlot());
        update(anySlot());
    }

    unsigned randomSide() {
        static constexpr unsigned kAbsurd[] = {0, 0xFFFFFFFF, 0x80000000, 0x7FFFFFFF, 65537};
        return whole(0, 29) == 0 ? oneOf(kAbsurd) : static_cast<unsigned>(whole(1, 24));
    }

    void makeInstance(Slot& slot) {
        const std::unique_lock lock(slot.mutex);
        f0r_destruct(slot.instance);
        slot.width = randomSide();
        slot.height = randomSide();
        slot.instance = whole(0, 9) == 0 ? nullptr : f0r_construct(slot.width, slot.height);
    }

    void describe() {
        PlugInInfo info{};
        f0r_get_plugin_info(whole(0, 9) ? &info : nullptr);
        ParameterInfo parameter{};
        f0r_get_param_info(&parameter, randomIndex());
        if (parameter.name && parameter.name[0] == '\0') fault("a parameter has no name");
    }

    int randomIndex() {
        static constexpr int kFar[] = {-1, 77, 100000, INT32_MAX, INT32_MIN};
        return whole(0, 19) == 0 ? oneOf(kFar) : whole(0, 80);
    }

    double randomNumber() {
        static constexpr double kOdd[] = {-1.0,
                                          7.5,
                                          1e300,
                                          -1e300,
                                          std::numeric_limits<double>::quiet_NaN(),
                                          std::numeric_limits<double>::infinity(),
                                          -std::numeric_limits<double>::infinity(),
                                          -0.0};
        return whole(0, 4) == 0 ? oneOf(kOdd) : std::uniform_real_distribution(0.0, 1.0)(random_);
    }

    std::string randomText() {
        static constexpr const char* kTexts[] = {"",
                                                 "none",
                                                 "all",
                                                 "Bad Colour TV",
                                                 "Cable Out",
                                                 "storm",
                                                 "rewind",
                                                 "no such look",
                                                 "/dev/null",
                                                 "/",
                                                 "../../..",
                                                 "25",
                                                 "30000/1001",
                                                 "1e300",
                                                 "0/0",
                                                 "-1",
                                                 "nan",
                                                 "auto",
                                                 "seconds",
                                                 "milliseconds",
                                                 "2",
                                                 "-3",
                                                 "99999999999999999999",
                                                 "Type 3",
                                                 "Wrap",
                                                 "\xff\xfe",
                                                 "%s%n",
                                                 "tv-type,seed,,,mask-red"};
        if (whole(0, 29) == 0) return std::string(static_cast<std::size_t>(whole(0, 9000)), 'a');
        return oneOf(kTexts);
    }

    /// A value of any type, whatever the parameter is: memory that every type can be read from.
    void setValue(Slot& slot) {
        const std::shared_lock lock(slot.mutex);
        const int index = randomIndex();
        ParameterInfo info{nullptr, -1, nullptr};
        f0r_get_param_info(&info, index);
        if (whole(0, 49) == 0) return f0r_set_param_value(slot.instance, nullptr, index);
        if (info.type == static_cast<int>(ParameterType::String)) {
            const std::string text = randomText();
            const char* pointer = whole(0, 49) == 0 ? nullptr : text.c_str();
            return f0r_set_param_value(slot.instance, &pointer, index);
        }
        double numbers[] = {randomNumber(), randomNumber()};
        Colour colour{static_cast<float>(numbers[0]), static_cast<float>(numbers[1]), 0.5f};
        const bool isColour = info.type == static_cast<int>(ParameterType::Colour);
        f0r_set_param_value(slot.instance, isColour ? static_cast<void*>(&colour) : numbers, index);
    }

    void getValue(Slot& slot) {
        const std::shared_lock lock(slot.mutex);
        alignas(double) unsigned char value[sizeof(Colour) + sizeof(double)] = {};
        f0r_get_param_value(slot.instance, whole(0, 19) ? value : nullptr, randomIndex());
    }

    double randomTime() {
        static constexpr double kOdd[] = {-3.7e20,
                                          -1.0,
                                          1e9,
                                          1e300,
                                          40.0,
                                          80.0,
                                          1000.0,
                                          0.04,
                                          1e-300,
                                          std::numeric_limits<double>::quiet_NaN(),
                                          std::numeric_limits<double>::infinity()};
        return whole(0, 2) ? whole(0, 500) / 25.0 : oneOf(kOdd);
    }

    void update(Slot& slot) {
        const std::shared_lock lock(slot.mutex);
        const double time = randomTime();
        const std::size_t count = std::size_t{slot.width} * slot.height;
        if (count > 4096) return updateWithoutPictures(slot, time);
        std::vector<std::uint32_t> input(count);
        for (auto& pixel : input) pixel = static_cast<std::uint32_t>(random_());
        const auto before = input;
        std::vector<std::uint32_t> output(count + 2 * kGuardPixels, kGuard);
        f0r_update(slot.instance, time, input.data(), output.data() + kGuardPixels);
        if (input != before) fault("the input was changed");
        checkGuards(output);
        ++pictures;
    }

    /// Sizes for which no host has memory.
    void updateWithoutPictures(Slot& slot, double time) {
        f0r_update(slot.instance, time, nullptr, nullptr);
    }

    void checkGuards(const std::vector<std::uint32_t>& output) {
        for (std::size_t i = 0; i < kGuardPixels; ++i) {
            if (output[i] != kGuard || output[output.size() - 1 - i] != kGuard) {
                return fault("there was a write beside the picture");
            }
        }
    }

    std::mt19937 random_;
};

void destroyAll() {
    for (Slot& slot : slots) f0r_destruct(slot.instance);
}

}  // namespace

int main(int argc, char** argv) {
    long calls = 20000;
    std::uint32_t seed = 1;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        if (name == "--calls") calls = std::atol(argv[i + 1]);
        if (name == "--seed") seed = static_cast<std::uint32_t>(std::atol(argv[i + 1]));
    }
    // The messages are of no interest here. The sanitizers write to the descriptor itself.
    if (std::FILE* nowhere = std::fopen("/dev/null", "w")) stderr = nowhere;
    callsLeft = calls;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([=] { Attacker(seed * kThreads + i).run(); });
    }
    for (std::thread& thread : threads) thread.join();
    destroyAll();
    std::printf("%ld calls, %ld pictures, %d faults\n", calls, pictures.load(), faults.load());
    return faults == 0 ? 0 : 1;
}
