// What the user can do if the effect can't be made.

#pragma once

#include <string>
#include <windows.h>

namespace ruvex::page_host {

/// Sentences for a status of CoCreateInstance for the effect; empty if there is nothing to advise.
std::string moduleAdvice(HRESULT status);

}  // namespace ruvex::page_host
