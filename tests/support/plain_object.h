// The least that a class of a module is.

#pragma once

#include <functional>

#include "sdk/com/com_object.h"

namespace ruvex::test {

/// An IUnknown with a count; how many there are and have been is known. What its constructor does
/// besides, a test says.
class PlainObject final : public ComObject<IUnknown> {
public:
    static inline std::function<void()> constructing;
    static inline int made = 0;
    static inline int alive = 0;

    PlainObject() {
        if (constructing) constructing();
        ++made;
        ++alive;
    }

private:
    ~PlainObject() override { --alive; }
};

}  // namespace ruvex::test
