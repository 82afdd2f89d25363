// One thread of an attack.

#pragma once

#include <atomic>
#include <cstdint>

#include "tests/openfx/attack/target.h"

namespace ruvex::ofxhost::attack {

/// Of all threads.
struct Counts {
    std::atomic<long> callsLeft{0};
    std::atomic<long> pictures{0};
    std::atomic<long> rendered{0};  ///< Pictures for which the plug-in answered kOfxStatOK.
};

class Attacker {
public:
    /// Interacts belong to one thread.
    Attacker(Target& target, Counts& counts, std::uint32_t seed, bool ownsInteracts)
        : target_(target), counts_(counts), random_(seed), ownsInteracts_(ownsInteracts) {}

    /// Makes calls until none are left or the host noticed a fault.
    void run();

private:
    void call();
    Slot& anySlot();
    void withInstance(void (Attacker::*use)(Slot&), bool alone);

    /// Sometimes destroys all instances and unloads, loads with a suite missing, and describes; no
    /// other call runs.
    void describeAgain();
    void replaceInstance(Slot& slot);
    void edit(Slot& slot);
    void editValue(Instance& instance, Parameter& parameter);
    /// Asks for frames, regions, identity and preferences; begins and ends sequences.
    void ask(Slot& slot);
    /// Actions with null and foreign handles, without arguments, and actions that do not exist.
    void callOddly();
    void useInteract(Slot& slot);
    /// Spoils properties of a clip, of the effect or of a parameter for good.
    void spoilProperties(Slot& slot);
    void render(Slot& slot);

    Target& target_;
    Counts& counts_;
    RandomSource random_;
    bool ownsInteracts_;
};

}  // namespace ruvex::ofxhost::attack
