// An object of the process that outlives the plug-in's other objects.

#pragma once

#include <cstddef>
#include <new>

namespace ruvex::openfx {

/// The one object of its type, made when it is first asked for. Never destroyed: a host that ends
/// without unloading the plug-in has destroyed by then what the object's members need.
template <class Object>
Object& neverDestroyed() {
    alignas(Object) static std::byte storage[sizeof(Object)];
    static Object* const only = new (storage) Object;
    return *only;
}

}  // namespace ruvex::openfx
