// The border between the plug-in and its host, which is written in C.

#pragma once

#include <exception>
#include <new>

#include "adapters/common/message_once.h"
#include "adapters/openfx/failure.h"

namespace ruvex::openfx {

/// Calls `perform`, whose status is the answer to the host's action; a failure becomes a message
/// and a status. kOfxStatErrValue without calling it if the action has no name (null).
template <class Perform>
OfxStatus guardedEntry(const char* action, Perform perform) noexcept {
    if (!action) return kOfxStatErrValue;
    try {
        return perform();
    } catch (const std::bad_alloc&) {
        return kOfxStatErrMemory;
    } catch (const Failure& failure) {
        adapters::reportOnce(failure.what());
        return failure.status();
    } catch (const std::exception& error) {
        adapters::reportOnce(error.what());
    } catch (...) {
        adapters::reportOnce("an action of the host failed");
    }
    return kOfxStatFailed;
}

}  // namespace ruvex::openfx
