// An object of the tree that answers as a test says and writes down its calls.

#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "overlay/vx_t_manager.h"

namespace ruvex::test {

/// The calls of all objects of a test, in their order: name and function.
using CallLog = std::vector<std::string>;

inline std::string textOf(const VxPosition& position) {
    char text[64];
    std::snprintf(text, sizeof text, "%g,%g", position.x, position.y);
    return text;
}

inline std::vector<const VxTObject*> childrenOf(const VxTContainer& container) {
    std::vector<const VxTObject*> children;
    for (const auto* node = container.children.head; node; node = node->next) {
        children.push_back(node->item);
    }
    return children;
}

/// The way of the focus, from the top.
inline std::vector<VxTObject*> focusPath(const VxTManager& manager) {
    std::vector<VxTObject*> path;
    for (VxTObject* node = manager.focus; node; node = node->focus) {
        path.push_back(node);
        if (node->focus == node) break;
    }
    return path;
}

/// Is hit everywhere in its bounds, unless `hitResult` says otherwise.
class ScriptedObject : public VxTObject {
public:
    ScriptedObject(const char* objectName, CallLog& callLog, VxPosition corner = {},
                   VxPosition extent = {10.0f, 10.0f})
        : VxTObject(objectName), log_(&callLog) {
        position = corner;
        size = extent;
    }

    VxHit hit(const VxPosition&, const VxPosition&) override {
        const VxHit result = hitResult ? *hitResult : hitOn(*this);
        write("hit");
        if (result != kMiss) focus = this;
        return result;
    }
    void draw() override { event("draw"); }
    std::int32_t drag(const VxPosition& where) override { return event("drag", where); }
    std::int32_t penDown(const VxPosition& where) override {
        VxTObject::penDown(where);
        return event("penDown", where);
    }
    std::int32_t penUp() override {
        VxTObject::penUp();
        return event("penUp");
    }
    std::int32_t penEnter(const VxPosition& where) override {
        VxTObject::penEnter(where);
        return event("penEnter", where);
    }
    std::int32_t penLeave() override {
        VxTObject::penLeave();
        return event("penLeave");
    }
    void drawTip(const VxPosition& where) override { write("drawTip " + textOf(where)); }

    /// What `hit` gives instead of the object.
    std::optional<VxHit> hitResult;
    /// What `drag` and the pen events give.
    std::int32_t eventResult = 1;
    bool logsPositions = false;
    /// Called by `draw`, `drag` and the pen events, with their name. It may destroy the object.
    std::function<void(const std::string&)> reaction;

private:
    void write(const std::string& call) { log_->push_back(*name + " " + call); }

    std::int32_t event(const std::string& call, const VxPosition& where) {
        return react(call, logsPositions ? call + " " + textOf(where) : call);
    }
    std::int32_t event(const std::string& call) { return react(call, call); }

    std::int32_t react(const std::string& call, const std::string& entry) {
        write(entry);
        const std::int32_t result = eventResult;
        const auto action = reaction;
        if (action) action(call);
        return result;
    }

    CallLog* log_;
};

/// Sends a message of the pen to a manager, as the viewer's tool does.
inline void sendPen(VxTManager& manager, VxMessageId id, VxPosition position) {
    VxMessage message(id);
    message.setPosition(position);
    manager.handleMessage(&message, nullptr);
}

}  // namespace ruvex::test
