// The module's way out of memory, in a program that stands on none of the host's libraries: in one
// that does, the system counts names that the module shares with them to the libraries, and never
// to the module.

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace ruvex::test {
namespace {

bool inMemory() {
    void* const handle = dlopen(RUVEX_MODULE_FILE, RTLD_LAZY | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
}

TEST(ModuleUnload, LeavesMemoryWhenItIsLetGo) {
    void* const handle = dlopen(RUVEX_MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_TRUE(handle) << dlerror();
    EXPECT_TRUE(inMemory());
    EXPECT_EQ(dlclose(handle), 0);
    EXPECT_FALSE(inMemory());
}

}  // namespace
}  // namespace ruvex::test
