// The module's entry points where its objects are part of the test program itself.

#pragma once

#include <gtest/gtest.h>

#include "host/base/class_ids.h"
#include "host/module/entry_points.h"
#include "sdk/com/com_ptr.h"

namespace ruvex::test {

inline ComPtr<IClassFactory> makeFactory() {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(DllGetClassObject(kRuvexClassId, IID_IClassFactory, factory.putVoid()), S_OK);
    return factory;
}

}  // namespace ruvex::test
