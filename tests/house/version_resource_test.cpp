#include <gtest/gtest.h>
#include <windows.h>

#include <vector>

#include "orvil/runtime/heap.h"
#include "orvil/version.h"

TEST(VersionResource, TheLoadedDllCarriesTheVersionOfTheHeader) {
    ASSERT_NE(orv_heap_gettype(), 0u);  // the program needs the DLL, so that it is loaded
    char path[MAX_PATH] = "";
    ASSERT_NE(GetModuleFileNameA(GetModuleHandleA("ORVIL.dll"), path, sizeof path), 0u);
    std::vector<char> info(GetFileVersionInfoSizeA(path, nullptr));
    ASSERT_FALSE(info.empty());
    ASSERT_TRUE(GetFileVersionInfoA(path, 0, static_cast<DWORD>(info.size()), info.data()));

    void* root = nullptr;
    UINT size = 0;
    ASSERT_TRUE(VerQueryValueA(info.data(), "\\", &root, &size));
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(root);
    EXPECT_EQ(fixed->dwFileVersionMS, ORVIL_VERSION_MAJOR << 16 | ORVIL_VERSION_MINOR);
    EXPECT_EQ(fixed->dwFileVersionLS, ORVIL_VERSION_PATCH << 16);
}
