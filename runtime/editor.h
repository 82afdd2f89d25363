// Editing an effect: a current time, undo, and the effect's property pages.

#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "runtime/effect_session.h"
#include "runtime/open_page.h"
#include "runtime/time_follower.h"
#include "runtime/undo_stack.h"

namespace ruvex::runtime {

/// Edits the properties of a session's effect, for hosts with property pages. All edits, those of
/// the pages included, are steps that can be undone. One thread, on which no render of the session
/// is under way. The editor is destroyed after its pages and its viewer, and before its session.
///
/// An observer of the properties, or a page, may call every function while it is notified.
class Editor {
public:
    explicit Editor(EffectSession& session, UndoClock clock = steadySeconds);
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    EffectSession& session() const { return session_; }

    /// The current time in seconds, at first 0.
    double time() const { return time_; }
    /// Sets the current time and tells all open pages, then the tools of the viewer. Throws Error
    /// for a time that is negative or not finite.
    void setTime(double seconds);

    /// Its functions that change properties need the session's project (EffectSession::enter).
    UndoStack& undoStack() { return undoStack_; }
    /// Undoes or redoes a step; nothing if there is none, or while a bracket is open. Throws
    /// StatusError if there is not enough memory, and then changes nothing.
    void undo();
    void redo();

    /// The class identifiers of the effect's property pages, in the order of their tabs.
    std::vector<GUID> pages() const;
    /// Makes a page of this class for the session's effect and activates it, hidden. `parent` is
    /// the window that the page's dialog lies in; it may be null. Throws StatusError.
    std::unique_ptr<OpenPage> open(const GUID& classId, HWND parent = nullptr);

    /// Sets a property at the current time, as IDSProperties::SetValue does: the value of one that
    /// is not animated, otherwise a key frame. Throws Error for an unknown identifier and for a
    /// value that does not fit its type.
    void setValue(const GUID& id, double value);
    /// Replaces the animation of a real. Throws as EffectSession::setKeys does.
    void setKeys(const GUID& id, std::span<const DSKey> keys);
    /// Ends an animation; the property has its plain value again.
    void clearKeys(const GUID& id);
    /// Replaces the states of these properties, as one step of this name. Throws StatusError.
    void loadState(std::span<const PropertyState> states, const std::wstring& name);

    /// The name of a property in the module's language; empty for an unknown one.
    std::wstring propertyName(const GUID& id) const;

    // For the page sites.

    /// Whether `object` is the session's effect.
    bool edits(IUnknown& object) const;
    /// Sets a property as a part of the open bracket, or as a step named after the property. Gives
    /// the status of IDSProperties::SetValue. Throws std::bad_alloc.
    HRESULT write(const GUID& id, double seconds, const VARIANT& value);

private:
    friend class TimeFollower;

    GUID resolved(GUID id) const;
    const CDSParamDef& definition(const GUID& id) const;
    HRESULT change(std::wstring name, std::span<const GUID> ids,
                   const std::function<HRESULT()>& operation);

    EffectSession& session_;
    UndoStack undoStack_;
    double time_ = 0.0;
    std::vector<TimeFollower*> followers_;  ///< In the order in which they are told the time.
};

}  // namespace ruvex::runtime
