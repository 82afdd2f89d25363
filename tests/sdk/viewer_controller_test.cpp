#include "sdk/viewer/viewer_controller.h"

#include <gtest/gtest.h>

#include "sdk/images/image.h"
#include "sdk/images/memory_image.h"

namespace {

ComPtr<IUnknown> something() {
    return CDSMemoryImage::create(1, 1, MFIF_RGBA_RAW_32);
}

/// How many references there are, this function's own not counted.
ULONG references(const ComPtr<IUnknown>& object) {
    object->AddRef();
    return object->Release();
}

TEST(ViewerController, KeepsContextsInTheirOrderWithReferences) {
    const auto tool = something(), object = something();
    ULONG first = 0, second = 0;
    EXPECT_EQ(VWControllerPushContext(19, tool.get(), object.get(), nullptr, nullptr, 0.5, &first),
              S_OK);
    EXPECT_EQ(VWControllerPushContext(3, object.get(), tool.get(), tool.get(), nullptr, 0, &second),
              S_OK);
    EXPECT_NE(first, second);
    {
        const auto contexts = VWControllerContexts();
        ASSERT_EQ(contexts.size(), 2u);
        EXPECT_EQ(contexts[0].id, first);
        EXPECT_EQ(contexts[0].tool, tool);
        EXPECT_EQ(contexts[0].number, 0.5);
        EXPECT_EQ(contexts[1].first, tool);
    }
    EXPECT_EQ(references(tool), 4u);
    EXPECT_EQ(VWControllerRemoveContext(first), S_OK);
    EXPECT_EQ(references(tool), 3u);
    EXPECT_EQ(VWControllerRemoveContext(first), E_INVALIDARG);
    EXPECT_EQ(VWControllerRemoveContext(second), S_OK);
    EXPECT_EQ(references(tool), 1u);
    EXPECT_TRUE(VWControllerContexts().empty());
}

TEST(ViewerController, RefusesMissingPointers) {
    const auto tool = something();
    ULONG id = 7;
    EXPECT_EQ(VWControllerPushContext(19, nullptr, tool.get(), nullptr, nullptr, 0, &id),
              E_POINTER);
    EXPECT_EQ(VWControllerPushContext(19, tool.get(), nullptr, nullptr, nullptr, 0, &id),
              E_POINTER);
    EXPECT_EQ(VWControllerPushContext(19, tool.get(), tool.get(), nullptr, nullptr, 0, nullptr),
              E_POINTER);
    EXPECT_EQ(id, 7u);
    EXPECT_TRUE(VWControllerContexts().empty());
}

}  // namespace
