// SPDX-License-Identifier: MIT
// The version that headers and module state.
#include <gtest/gtest.h>
#include <quarnfc/version.h>

#include <cstdio>
#include <string>

#include "support/build_paths.h"

TEST(Version, LoadedLibraryHasTheVersionOfTheHeaders) {
  EXPECT_EQ(qnGetVersion(), static_cast<unsigned int>(QUARNFC_VERSION_NUMBER));
}

TEST(Version, TextOfTheHeaderIsThatOfTheBuild) {
  EXPECT_STREQ(QUARNFC_VERSION_TEXT, QUARNFC_VERSION);
}

TEST(Version, NumberIsMadeOfThePartsOfTheText) {
  unsigned int major = 0, minor = 0, patch = 0;
  ASSERT_EQ(std::sscanf(QUARNFC_VERSION_TEXT, "%u.%u.%u", &major, &minor, &patch), 3);
  EXPECT_EQ(qnGetVersion(), major * 1000000 + minor * 1000 + patch);
}
