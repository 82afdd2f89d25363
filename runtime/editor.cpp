#include "runtime/editor.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "runtime/error.h"
#include "runtime/identity.h"
#include "runtime/property_value.h"
#include "sdk/resources/load_text.h"

namespace ruvex::runtime {

Editor::Editor(EffectSession& session, UndoClock clock)
    : session_(session), undoStack_(&session.properties(), std::move(clock)) {}

void Editor::setTime(double seconds) {
    if (!std::isfinite(seconds) || seconds < 0.0) {
        throw Error("the time " + std::to_string(seconds) + " is not a time of a clip, in seconds");
    }
    time_ = seconds;
    // A page that is told may open and close pages.
    const std::vector<TimeFollower*> followers = followers_;
    for (TimeFollower* follower : followers) {
        if (std::ranges::find(followers_, follower) != followers_.end()) follower->tellTime();
    }
}

void Editor::undo() {
    if (undoStack_.isRecording()) return;
    const auto scope = session_.enter();
    require(undoStack_.undo(), "cannot undo the last change");
}

void Editor::redo() {
    if (undoStack_.isRecording()) return;
    const auto scope = session_.enter();
    require(undoStack_.redo(), "cannot redo the last change");
}

std::vector<GUID> Editor::pages() const {
    const auto scope = session_.enter();
    const auto plugIn = ComPtr<IDSImageEffect>(&session_.effect()).query<IDSPlugIn>();
    ULONG count = 0;
    require(plugIn ? plugIn->GetPropertyPageCount(&count) : E_NOINTERFACE,
            "the effect does not list its property pages");
    std::vector<GUID> classIds(count);
    for (ULONG i = 0; i < count; ++i) {
        require(plugIn->GetPropertyPage(i, &classIds[i]), "the effect does not name a page");
    }
    return classIds;
}

std::unique_ptr<OpenPage> Editor::open(const GUID& classId, HWND parent) {
    std::unique_ptr<OpenPage> page(new OpenPage(*this));
    page->open(classId, parent);
    return page;
}

void Editor::setValue(const GUID& id, double value) {
    const VARIANT variant = toVariant(definition(id), value);
    require(write(id, time_, variant), "cannot set " + toText(id));
}

void Editor::setKeys(const GUID& id, std::span<const DSKey> keys) {
    definition(id);
    const GUID property = resolved(id);
    const auto operation = [&] {
        return session_.properties().SetKeys(property, keys.data(),
                                             static_cast<ULONG>(keys.size()));
    };
    require(change(propertyName(id), {&property, 1}, operation), "cannot animate " + toText(id));
}

void Editor::clearKeys(const GUID& id) {
    definition(id);
    const GUID property = resolved(id);
    const auto operation = [&] { return session_.properties().ClearKeys(property); };
    require(change(L"Remove keys: " + propertyName(id), {&property, 1}, operation),
            "cannot end the animation of " + toText(id));
}

void Editor::loadState(std::span<const PropertyState> states, const std::wstring& name) {
    std::vector<GUID> ids;
    for (const PropertyState& state : states) ids.push_back(resolved(state.id));
    const std::vector<DSPropertyState> views = viewsOf(states);
    const auto operation = [&] {
        return session_.properties().SetStates(views.data(), static_cast<ULONG>(views.size()));
    };
    require(change(name, ids, operation), "cannot load the state");
}

std::wstring Editor::propertyName(const GUID& id) const {
    const CDSParamDef* found = session_.definition(resolved(id));
    return found ? loadText(found->module, found->nameId) : std::wstring();
}

bool Editor::edits(IUnknown& object) const {
    return identityOf(object) == identityOf(session_.effect());
}

HRESULT Editor::write(const GUID& id, double seconds, const VARIANT& value) {
    const GUID property = resolved(id);
    const auto operation = [&] {
        return session_.properties().SetValue(property, seconds, &value);
    };
    return change(propertyName(id), {&property, 1}, operation);
}

/// The property's own identifier: one property must not be two in a step.
GUID Editor::resolved(GUID id) const {
    const auto scope = session_.enter();
    const auto aliases = ComPtr<IDSImageEffect>(&session_.effect()).query<IDSGraphDataAliases>();
    GUID property = id;
    return aliases && SUCCEEDED(aliases->GetAliasedProperty(id, &property)) ? property : id;
}

const CDSParamDef& Editor::definition(const GUID& id) const {
    if (const CDSParamDef* found = session_.definition(resolved(id))) return *found;
    throw Error("the effect has no parameter " + toText(id));
}

HRESULT Editor::change(std::wstring name, std::span<const GUID> ids,
                       const std::function<HRESULT()>& operation) {
    const auto scope = session_.enter();
    const UndoBracket bracket(undoStack_, std::move(name));
    return undoStack_.write(ids, operation);
}

}  // namespace ruvex::runtime
