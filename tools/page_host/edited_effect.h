// The effect that the program shows: its properties, its undo steps and its pictures.

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "runtime/editor.h"
#include "tools/page_host/picture.h"

namespace ruvex::page_host {

/// An effect of the registered module over one still picture, which is the input at all times. The
/// project frame has the picture's size. User-interface thread.
class EditedEffect {
public:
    /// `changed` is called when a property has changed. Throws runtime::Error, for example if no
    /// module is registered or its file is missing.
    EditedEffect(Picture picture, std::function<void()> changed);
    ~EditedEffect();
    EditedEffect(const EditedEffect&) = delete;
    EditedEffect& operator=(const EditedEffect&) = delete;

    runtime::Editor& editor() { return editor_; }
    runtime::EffectSession& session() { return session_; }
    const std::wstring& pictureName() const { return picture_->name; }
    int width() const { return picture_->width; }
    int height() const { return picture_->height; }
    double frameRate() const { return kFrameRate; }

    /// The picture through the effect at the editor's time. The result of an opaque picture is
    /// opaque; otherwise its alpha is the effect's. Throws StatusError.
    Picture render();

    /// All stored properties, for an effect that replaces this one.
    std::vector<runtime::PropertyState> states();
    /// Replaces them; the first steps that can be undone come after it.
    void replaceStates(const std::vector<runtime::PropertyState>& states);

private:
    class Observer;
    class StillInput;

    static constexpr double kFrameRate = 25.0;

    std::shared_ptr<const Picture> picture_;
    bool opaque_;
    runtime::Project project_;
    runtime::EffectSession session_;
    runtime::Editor editor_;
    ComPtr<Observer> observer_;
    ULONG cookie_ = 0;
};

}  // namespace ruvex::page_host
