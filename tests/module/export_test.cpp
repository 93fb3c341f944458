// SPDX-License-Identifier: MIT
// What leaves the module: the plain names for hosts that resolve them, and nothing private.
#include <gtest/gtest.h>

#include <quarnfc/quarnfc.h>

#include "tests/module/module_image.h"
#include "tests/support/contains.h"

namespace {

using quarnfc_test::Contains;

constexpr const char* kPlainNames[] = {
    "qnGetErrorA",     "qnGetErrorW",     "qnCloseHandle",   "qnFreeMem",
    "qnUnionPath",     "qnUnionPathEx",   "_TempData64B",    "_TempData128B",
    "_TempData256B",   "_TempData512B",   "_TempData1024B",  "_TempDataStr64",
    "_TempDataStr128", "_TempDataStr256", "_TempDataStr512", "qnGetVersion",
};

// Functions on vectors leave only where host and library share the standard library.
constexpr const char* kVectorNames[] = {"qnSplitStr", "qnFreeStrArr"};

}  // namespace

TEST(ModuleExports, PlainFunctionsLeaveUndecorated) {
  const std::set<std::string> names = module_image::ExportedNames();
  for (const char* name : kPlainNames) EXPECT_EQ(names.count(name), 1u) << name;
}

TEST(ModuleExports, PlainFunctionsOnVectorsLeaveOnlyWhereVectorsMayCross) {
  const std::set<std::string> names = module_image::ExportedNames();
  for (const char* name : kVectorNames) {
    EXPECT_EQ(names.count(name), QN_CONTAINERS_CROSS ? 1u : 0u) << name;
  }
}

TEST(ModuleExports, PlainFunctionsAreFoundByName) {
  for (const char* name : kPlainNames) EXPECT_NE(module_image::Resolve(name), nullptr) << name;
}

TEST(ModuleExports, PoolAliasesNameTheSamePools) {
  constexpr const char* kPairs[][2] = {{"_TempData64B", "_TempDataStr64"},
                                       {"_TempData128B", "_TempDataStr128"},
                                       {"_TempData256B", "_TempDataStr256"},
                                       {"_TempData512B", "_TempDataStr512"}};
  for (const auto& pair : kPairs) {
    using Accessor = CQNFixedAlloc* (*)();
    const auto accessor = reinterpret_cast<Accessor>(module_image::Resolve(pair[0]));
    const auto alias = reinterpret_cast<Accessor>(module_image::Resolve(pair[1]));
    ASSERT_TRUE(accessor != nullptr && alias != nullptr) << pair[0];
    EXPECT_EQ(accessor(), alias()) << pair[0];
  }
}

TEST(ModuleExports, NothingPrivateLeaves) {
  for (const std::string& name : module_image::ExportedNames()) {
    EXPECT_FALSE(Contains(name, "7quarnfc")) << name;  // the namespace of private code
    EXPECT_FALSE(Contains(name, "_GLOBAL__N_")) << name;
    EXPECT_FALSE(Contains(name, "12CQNObjectImp")) << name;  // a private record
    // The same in Microsoft's spelling.
    for (const char* hidden : {"@quarnfc@@", "?A0x", "@CQNObjectImp@@", "@__1@std@@"}) {
      EXPECT_FALSE(Contains(name, hidden)) << name;
    }
    for (const char* standard : {"_ZNSt", "_ZNKSt", "_ZTISt", "_ZTSSt", "_ZTVSt"}) {
      EXPECT_NE(name.rfind(standard, 0), 0u) << name;  // of the standard library
    }
  }
}
