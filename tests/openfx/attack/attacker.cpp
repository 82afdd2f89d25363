#include "tests/openfx/attack/attacker.h"

#include <mutex>

#include "tests/openfx/attack/random_setup.h"
#include "tests/openfx/attack/tampering.h"

namespace ruvex::ofxhost::attack {

void Attacker::run() {
    while (!target_.faulty() && counts_.callsLeft.fetch_sub(1) > 0) {
        hostility() = {&random_, random_.oneIn(3) ? random_.whole(2, 200) : 0,
                       random_.oneIn(3) ? random_.whole(1, 4) : 0};
        call();
    }
    hostility() = {};
}

void Attacker::call() {
    const int kind = random_.whole(0, 999);
    if (kind < 2) return describeAgain();
    const std::shared_lock lock(target_.mutex);
    if (kind < 32) return replaceInstance(anySlot());
    if (kind < 400) return withInstance(&Attacker::edit, true);
    if (kind < 700) return withInstance(&Attacker::ask, false);
    if (kind < 800) return callOddly();
    if (kind < 850) return withInstance(&Attacker::useInteract, true);
    if (kind < 855) return withInstance(&Attacker::spoilProperties, true);
    if (kind < 955) return withInstance(&Attacker::edit, true);
    withInstance(&Attacker::render, false);
}

Slot& Attacker::anySlot() {
    return target_.slots[static_cast<std::size_t>(random_.whole(0, Target::kSlots - 1))];
}

void Attacker::withInstance(void (Attacker::*use)(Slot&), bool alone) {
    Slot& slot = anySlot();
    std::unique_lock own(slot.mutex, std::defer_lock);
    std::shared_lock shared(slot.mutex, std::defer_lock);
    alone ? own.lock() : shared.lock();
    if (slot.instance && isDone(slot.instance->status())) (this->*use)(slot);
}

void Attacker::describeAgain() {
    static constexpr const char* kSuites[] = {kOfxPropertySuite,   kOfxImageEffectSuite,
                                              kOfxParameterSuite,  kOfxMessageSuite,
                                              "OfxMessageSuite 2", kOfxInteractSuite};
    const std::unique_lock lock(target_.mutex);
    if (random_.oneIn(2)) {
        for (Slot& slot : target_.slots) slot.clear();
        target_.plugIn.unload();
    }
    std::set<std::string>& missing = target_.host.traits.missingSuites;
    if (random_.oneIn(2)) missing.insert(random_.oneOf(kSuites));
    target_.plugIn.prepare();
    // Then as a host does that the other threads can work with.
    hostility() = {};
    missing.clear();
    target_.plugIn.prepare();
}

void Attacker::replaceInstance(Slot& slot) {
    const std::unique_lock lock(slot.mutex);
    slot.clear();
    if (random_.oneIn(10) || !target_.plugIn.description(kOfxImageEffectContextFilter)) return;
    slot.instance = std::make_unique<Instance>(target_.plugIn, randomSetup(random_));
}

namespace {

Parameter* anyParameter(Instance& instance, RandomSource& random) {
    const auto& all = instance.parameters().all();
    if (all.empty()) return nullptr;
    return all[static_cast<std::size_t>(random.whole(0, static_cast<int>(all.size()) - 1))].get();
}

}  // namespace

void Attacker::edit(Slot& slot) {
    Instance& instance = *slot.instance;
    Parameter* parameter = anyParameter(instance, random_);
    if (!parameter) return;
    const int kind = random_.whole(0, 9);
    if (kind == 0) {
        random_.oneIn(2) ? instance.undo() : instance.redo();
    } else if (kind == 1 && instance.parameters().find("presets")) {
        instance.set("presets", random_.whole(-1, 40));
    } else if (!parameter->hasNumbers()) {
        instance.press(parameter->name());
    } else {
        editValue(instance, *parameter);
    }
}

void Attacker::editValue(Instance& instance, Parameter& parameter) {
    const std::size_t count = parameter.state().numbers.size();
    if (random_.oneIn(20)) {
        const double slope = random_.part();
        return parameter.setExpression([slope](double time) { return slope * time * time; });
    }
    parameter.setExpression(nullptr);
    if (parameter.animates() && random_.oneIn(2)) {
        return instance.setKeys(parameter.name(), randomKeys(count, random_));
    }
    instance.set(parameter.name(), randomNumbers(count, random_));
}

void Attacker::ask(Slot& slot) {
    Instance& instance = *slot.instance;
    const double time = randomTime(random_);
    const OfxRectD region{random_.oddReal(), random_.part(), random_.oddReal(), 10.0};
    switch (random_.whole(0, 7)) {
        case 0:
            instance.framesNeeded(time);
            return;
        case 1:
            instance.regionOfDefinition(time, {usualOr(1.0, random_), usualOr(0.5, random_)});
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

void Attacker::callOddly() {
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
}

void Attacker::useInteract(Slot& slot) {
    static constexpr const char* kActions[] = {
        kOfxInteractActionPenDown, kOfxInteractActionPenMotion, kOfxInteractActionPenUp};
    if (!ownsInteracts_ || !Interact::isOffered(target_.plugIn)) return;
    if (!slot.interact || random_.oneIn(10)) {
        slot.interact.reset();
        slot.interact = std::make_unique<Interact>(*slot.instance, ViewSetup{});
    }
    if (!isDone(slot.interact->status())) return;
    const OfxPointD point{usualOr(random_.part() * kLongestSide, random_),
                          usualOr(random_.part() * kLongestSide, random_)};
    if (random_.oneIn(10)) {
        slot.interact->focus(random_.oneIn(2));
    } else {
        slot.interact->pen(random_.oneOf(kActions), point);
    }
}

void Attacker::spoilProperties(Slot& slot) {
    Instance& instance = *slot.instance;
    const auto& clips = instance.effect().clips();
    Parameter* parameter = anyParameter(instance, random_);
    if (random_.oneIn(3)) {
        tamperWith(instance.effect().properties, random_);
    } else if (random_.oneIn(2) && !clips.empty()) {
        tamperWith(clips[random_.oneIn(2) ? 0 : clips.size() - 1]->properties, random_);
    } else if (parameter) {
        tamperWith(parameter->properties, random_);
    }
}

void Attacker::render(Slot& slot) {
    const RenderResult result = slot.instance->render(randomRender(random_));
    counts_.rendered += result.status == kOfxStatOK;
    ++counts_.pictures;
}

}  // namespace ruvex::ofxhost::attack
