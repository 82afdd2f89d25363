// Calls the OpenFX plug-in as no host should: random actions in any order, from several threads, in
// a host whose functions fail at random, whose properties do not fit and which lacks suites. Each
// picture is checked for writes beside it; the sanitizers look for everything else.
//
//     openfx_attack PLUG-IN [--calls N] [--seed S]
//
// Ends with status 1 at the first fault. The calls of a thread are the same for a seed, but threads
// meet by chance.
//
// What a host may never do is left out: give memory that it does not have (tampering.h), unload or
// describe a plug-in during another call, destroy an instance during another call for it, or say
// that a picture has millions of pixels, which is no fault and only takes long.

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <shared_mutex>
#include <string>
#include <thread>

#include "tests/openfx/attack/tampering.h"
#include "tests/openfx/host/binary.h"
#include "tests/openfx/host/instance.h"
#include "tests/openfx/host/interact.h"
#include "tests/openfx/noise_clip.h"

namespace {

using namespace ruvex::ofxhost;
using attack::RandomSource;

constexpr int kThreads = 4;
constexpr std::size_t kSlots = 6;
constexpr int kLongestSide = 20;

/// One instance, or none. Calls of an instance share the lock; making, editing and destroying take
/// it alone.
struct Slot {
    std::shared_mutex mutex;
    std::unique_ptr<Instance> instance;
    std::unique_ptr<Interact> interact;
};

/// How hostile the host is to the calls of one thread.
struct Hostility {
    RandomSource* random = nullptr;
    int failing = 0;    ///< One call in this number fails; 0 for none.
    int tampering = 0;  ///< One set of properties in this number is tampered with; 0 for none.
};
thread_local Hostility hostility;

std::atomic<long> callsLeft{0};
std::atomic<long> pictures{0};
std::atomic<long> goodPictures{0};

OfxStatus failAtRandom(const HostCall&) {
    Hostility& own = hostility;
    const bool fails = own.random && own.failing > 0 && own.random->oneIn(own.failing);
    return fails ? own.random->oddStatus() : kOfxStatOK;
}

void tamperAtRandom(PropertySet& set) {
    Hostility& own = hostility;
    if (!own.random || own.tampering == 0 || !own.random->oneIn(own.tampering)) return;
    attack::tamperWith(set, *own.random);
}

/// What all threads attack.
struct Target {
    explicit Target(const std::string& file)
        : binary(file), host(hostTraits()), plugIn(host, *binary.plugIn(0), file) {
        plugIn.prepare();
    }

    static HostTraits hostTraits() {
        HostTraits traits;
        traits.intercept = failAtRandom;
        traits.tamper = tamperAtRandom;
        return traits;
    }

    /// Whether the host noticed one of the faults that no hostile host excuses.
    bool faulty() const {
        for (const std::string& fault : host.faults()) {
            if (fault.starts_with("an exception left") || fault.starts_with("a write beside") ||
                fault.starts_with("pixels outside") || fault.starts_with("a release of") ||
                fault.starts_with("images were not released")) {
                return true;
            }
        }
        return false;
    }

    Binary binary;
    Host host;
    /// Taken alone by what describes or unloads.
    std::shared_mutex mutex;
    PlugIn plugIn;
    std::array<Slot, kSlots> slots;
};

class Attacker {
public:
    Attacker(Target& target, std::uint32_t seed, bool ownsInteracts)
        : target_(target), random_(seed), ownsInteracts_(ownsInteracts) {}

    void run() {
        while (!target_.faulty() && callsLeft.fetch_sub(1) > 0) {
            hostility = {&random_, random_.oneIn(3) ? random_.whole(2, 200) : 0,
                         random_.oneIn(3) ? random_.whole(1, 4) : 0};
            call();
        }
        hostility = {};
    }

private:
    Slot& anySlot() {
        return target_.slots[static_cast<std::size_t>(random_.whole(0, kSlots - 1))];
    }

    void call() {
        const int kind = random_.whole(0, 999);
        if (kind < 2) return describeAgain();
        const std::shared_lock lock(target_.mutex);
        if (kind < 32) return replaceInstance(anySlot());
        if (kind < 400) return withInstance(&Attacker::edit, true);
        if (kind < 700) return withInstance(&Attacker::ask, false);
        if (kind < 800) return callOddly();
        if (kind < 850) return withInstance(&Attacker::useInteract, true);
        if (kind < 955) return withInstance(&Attacker::tamperWithInstance, true);
        withInstance(&Attacker::render, false);
    }

    void withInstance(void (Attacker::*use)(Slot&), bool alone) {
        Slot& slot = anySlot();
        std::unique_lock own(slot.mutex, std::defer_lock);
        std::shared_lock shared(slot.mutex, std::defer_lock);
        alone ? own.lock() : shared.lock();
        if (slot.instance && isDone(slot.instance->status())) (this->*use)(slot);
    }

    /// Unload, sometimes with other suites missing, load and describe; no other call runs.
    void describeAgain() {
        static constexpr const char* kSuites[] = {kOfxPropertySuite,   kOfxImageEffectSuite,
                                                  kOfxParameterSuite,  kOfxMessageSuite,
                                                  "OfxMessageSuite 2", kOfxInteractSuite};
        const std::unique_lock lock(target_.mutex);
        if (random_.oneIn(2)) {
            for (Slot& slot : target_.slots) destroy(slot);
            target_.plugIn.unload();
        }
        target_.host.traits.missingSuites.clear();
        if (random_.oneIn(2)) target_.host.traits.missingSuites.insert(random_.oneOf(kSuites));
        target_.host.traits.missingProperties.clear();
        target_.plugIn.prepare();
        // Then as a host does that the other threads can work with.
        hostility = {};
        target_.host.traits.missingSuites.clear();
        target_.plugIn.prepare();
    }

    static void destroy(Slot& slot) {
        slot.interact.reset();
        slot.instance.reset();
    }

    PixelFormat randomFormat() {
        static constexpr const char* kDepths[] = {kOfxBitDepthByte, kOfxBitDepthShort,
                                                  kOfxBitDepthFloat};
        static constexpr const char* kComponents[] = {kOfxImageComponentRGBA, kOfxImageComponentRGB,
                                                      kOfxImageComponentAlpha};
        static constexpr const char* kAlphas[] = {kOfxImageOpaque, kOfxImagePreMultiplied,
                                                  kOfxImageUnPreMultiplied};
        return {random_.oneOf(kDepths), random_.oneOf(kComponents), random_.oneOf(kAlphas)};
    }

    OfxRectD randomRegion(int width, int height) {
        if (!random_.oneIn(8)) return {0.0, 0.0, double(width), double(height)};
        return {random_.oddReal(), random_.oddReal(), random_.oddReal(), random_.oddReal()};
    }

    double usualOr(double usual) { return random_.oneIn(10) ? random_.oddReal() : usual; }

    InstanceSetup randomSetup() {
        static constexpr const char* kOrders[] = {kOfxImageFieldNone, kOfxImageFieldLower,
                                                  kOfxImageFieldUpper, "Other"};
        const int width = random_.whole(1, kLongestSide);
        const int height = random_.whole(1, kLongestSide);
        InstanceSetup setup;
        setup.project.size = {usualOr(width), usualOr(height)};
        setup.project.frameRate = usualOr(25.0);
        setup.project.pixelAspect = usualOr(1.0);
        setup.source = test::noiseClip(width, height, randomFormat(), random_.oneIn(2));
        setup.source.regionOfDefinition = randomRegion(width, height);
        setup.source.frameRate = usualOr(25.0);
        setup.source.pixelAspect = usualOr(1.0);
        setup.source.frameRange = {usualOr(0.0), usualOr(50.0)};
        setup.source.fieldOrder = random_.oneOf(kOrders);
        setup.source.connected = !random_.oneIn(20);
        setup.source.layout.topDown = random_.oneIn(2);
        // The picture has the pixels of the clip's size at every scale.
        const auto picture = setup.source.picture;
        setup.source.picture = [picture](double time, const OfxPointD&) {
            return picture(time > 0.0 && time < 1e6 ? time : 0.0, {1.0, 1.0});
        };
        return setup;
    }

    void replaceInstance(Slot& slot) {
        const std::unique_lock lock(slot.mutex);
        destroy(slot);
        if (random_.oneIn(10) || !target_.plugIn.description(kOfxImageEffectContextFilter)) return;
        slot.instance = std::make_unique<Instance>(target_.plugIn, randomSetup());
    }

    const std::string& anyParameter(Instance& instance) {
        const auto& all = instance.parameters().all();
        return all[static_cast<std::size_t>(random_.whole(0, static_cast<int>(all.size()) - 1))]
            ->name();
    }

    std::vector<double> randomNumbers(std::size_t count) {
        std::vector<double> numbers;
        for (std::size_t i = 0; i < count; ++i) {
            numbers.push_back(random_.oneIn(5) ? random_.oddReal() : random_.part() * 120.0 - 10.0);
        }
        return numbers;
    }

    std::vector<Key> randomKeys(std::size_t count) {
        std::vector<Key> keys;
        for (int i = random_.whole(1, 6); i > 0; --i) {
            const double time = random_.oneIn(30) ? 1e7 * random_.part() : random_.whole(-20, 60);
            const auto shape = static_cast<KeyShape>(random_.whole(0, 2));
            keys.push_back({time, randomNumbers(count), shape});
        }
        return keys;
    }

    void edit(Slot& slot) {
        Instance& instance = *slot.instance;
        instance.host();
        if (instance.parameters().all().empty()) return;
        const std::string name = anyParameter(instance);
        Parameter& parameter = instance.parameters()[name];
        const std::size_t count = parameter.state().numbers.size();
        const int kind = random_.whole(0, 9);
        if (kind == 0) {
            instance.undo();
        } else if (count == 0) {
            instance.press(name);
        } else if (kind == 1) {
            instance.set("presets", random_.whole(-1, 40));
        } else if (kind < 5 && parameter.animates()) {
            instance.setKeys(name, randomKeys(count));
        } else if (kind == 5) {
            parameter.setExpression([this](double) { return random_.part() * 100.0; });
            parameter.setExpression(nullptr);
        } else {
            instance.set(name, randomNumbers(count));
        }
    }

    double randomTime() {
        if (random_.oneIn(300)) return random_.oddReal();
        return random_.oneIn(4) ? random_.part() * 60.0 - 5.0 : random_.whole(-5, 60);
    }

    void ask(Slot& slot) {
        Instance& instance = *slot.instance;
        const double time = randomTime();
        const OfxRectD region{random_.oddReal(), random_.part(), random_.oddReal(), 10.0};
        switch (random_.whole(0, 7)) {
            case 0:
                instance.framesNeeded(time);
                return;
            case 1:
                instance.regionOfDefinition(time, {usualOr(1.0), usualOr(0.5)});
                return;
            case 2:
                instance.regionOfInterest(time, region);
                return;
            case 3:
                instance.identity(time);
                return;
            case 4:
                instance.clipPreferences();
                return;
            case 5:
                instance.sequence(kOfxImageEffectActionBeginSequenceRender, {time, time + 5.0});
                return;
            case 6:
                instance.sequence(kOfxImageEffectActionEndSequenceRender, {time, time + 5.0});
                return;
            default:
                instance.call(random_.oneIn(2) ? kOfxActionPurgeCaches : kOfxActionSyncPrivateData);
        }
    }

    /// Actions with null and foreign handles, without arguments, and actions that do not exist.
    void callOddly() {
        static constexpr const char* kActions[] = {kOfxActionCreateInstance,
                                                   kOfxActionDestroyInstance,
                                                   kOfxActionInstanceChanged,
                                                   kOfxImageEffectActionRender,
                                                   kOfxImageEffectActionIsIdentity,
                                                   kOfxImageEffectActionGetFramesNeeded,
                                                   kOfxImageEffectActionGetRegionsOfInterest,
                                                   kOfxImageEffectActionGetRegionOfDefinition,
                                                   kOfxImageEffectActionGetClipPreferences,
                                                   kOfxImageEffectActionGetTimeDomain,
                                                   kOfxActionEndInstanceChanged,
                                                   "OfxActionOfNoTime",
                                                   "",
                                                   nullptr};
        const void* handle = random_.oneIn(2) ? nullptr : target_.host.properties().handle();
        PropertySet set(target_.host);
        const ActionSets sets{random_.oneIn(2) ? &set : nullptr, random_.oneIn(2) ? &set : nullptr};
        target_.plugIn.call(random_.oneOf(kActions), handle, sets);
        target_.host.suite(random_.oddText(), random_.oddWhole());
    }

    void useInteract(Slot& slot) {
        if (!ownsInteracts_ || !Interact::isOffered(target_.plugIn)) return;
        if (!slot.interact || random_.oneIn(10)) {
            slot.interact.reset();
            slot.interact = std::make_unique<Interact>(*slot.instance, ViewSetup{});
        }
        if (!isDone(slot.interact->status())) return;
        static constexpr const char* kActions[] = {
            kOfxInteractActionPenDown, kOfxInteractActionPenMotion, kOfxInteractActionPenUp};
        const OfxPointD point{usualOr(random_.part() * 20.0), usualOr(random_.part() * 20.0)};
        if (random_.oneIn(10)) {
            slot.interact->focus(random_.oneIn(2));
        } else {
            slot.interact->pen(random_.oneOf(kActions), point);
        }
    }

    /// Spoils properties of a clip, of the effect or of a parameter for good.
    void tamperWithInstance(Slot& slot) {
        if (!random_.oneIn(20)) return;
        Instance& instance = *slot.instance;
        const auto& clips = instance.effect().clips();
        if (random_.oneIn(3)) {
            attack::tamperWith(instance.effect().properties, random_);
        } else if (random_.oneIn(2) && !clips.empty()) {
            attack::tamperWith(clips[random_.oneIn(2) ? 0 : clips.size() - 1]->properties, random_);
        } else if (!instance.parameters().all().empty()) {
            attack::tamperWith(instance.parameters()[anyParameter(instance)].properties, random_);
        }
    }

    OfxRectI randomWindow() {
        if (random_.oneIn(6)) {
            return {random_.oddWhole(), random_.oddWhole(), random_.oddWhole(), random_.oddWhole()};
        }
        const int x = random_.whole(-5, kLongestSide), y = random_.whole(-5, kLongestSide);
        return {x, y, x + random_.whole(-1, kLongestSide), y + random_.whole(-1, kLongestSide)};
    }

    void render(Slot& slot) {
        static constexpr const char* kFields[] = {kOfxImageFieldNone, kOfxImageFieldBoth,
                                                  kOfxImageFieldLower, kOfxImageFieldUpper,
                                                  "Other"};
        static constexpr double kScales[] = {1.0, 1.0, 1.0, 0.5, 0.25};
        RenderArgs args;
        args.time = randomTime();
        args.scale = {usualOr(random_.oneOf(kScales)), usualOr(random_.oneOf(kScales))};
        args.field = random_.oneOf(kFields);
        args.window = random_.oneIn(2) ? OfxRectI{} : randomWindow();
        const int x = random_.whole(-9, 9), y = random_.whole(-9, 9);
        args.outputBounds = {x, y, x + random_.whole(1, kLongestSide),
                             y + random_.whole(1, kLongestSide)};
        args.format = random_.oneIn(3) ? std::optional(randomFormat()) : std::nullopt;
        args.layout.topDown = random_.oneIn(2);
        args.hasOutput = !random_.oneIn(30);
        args.abortAt = random_.oneIn(5) ? random_.whole(0, 5) : -1;
        goodPictures += slot.instance->render(args).status == kOfxStatOK;
        ++pictures;
    }

    Target& target_;
    RandomSource random_;
    bool ownsInteracts_;
};

int attackPlugIn(const std::string& file, long calls, std::uint32_t seed) {
    Target target(file);
    callsLeft = calls;
    std::vector<std::thread> threads;
    for (std::uint32_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] { Attacker(target, seed * kThreads + i, i == 0).run(); });
    }
    for (std::thread& thread : threads) thread.join();
    for (Slot& slot : target.slots) {
        slot.interact.reset();
        slot.instance.reset();
    }
    target.plugIn.unload();
    const bool faulty = target.faulty();
    if (faulty) {
        for (const std::string& fault : target.host.faults()) std::printf("%s\n", fault.c_str());
    }
    std::printf("%ld calls, %ld pictures, %ld of them rendered: %s\n", calls, pictures.load(),
                goodPictures.load(), faulty ? "faulty" : "no fault");
    return faulty ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv) {
    long calls = 20000;
    std::uint32_t seed = 1;
    if (argc < 2) return 2;
    for (int i = 2; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        if (name == "--calls") calls = std::atol(argv[i + 1]);
        if (name == "--seed") seed = static_cast<std::uint32_t>(std::atol(argv[i + 1]));
    }
    // The messages are of no interest here. The sanitizers write to the descriptor itself.
    if (std::FILE* nowhere = std::fopen("/dev/null", "w")) stderr = nowhere;
    return attackPlugIn(argv[1], calls, seed);
}
