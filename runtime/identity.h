// Which object an interface belongs to.

#pragma once

#include "sdk/com/com_ptr.h"

namespace ruvex::runtime {

/// The object's IUnknown: two interfaces belong to the same object if these are equal.
inline ComPtr<IUnknown> identityOf(IUnknown& object) {
    return ComPtr<IUnknown>(&object).query<IUnknown>();
}

}  // namespace ruvex::runtime
