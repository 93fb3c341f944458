// SPDX-License-Identifier: MIT
#include "platform/slab.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

namespace quarnfc::platform {
namespace {

TEST(Slab, LiesAtAMultipleOfItsSizeAndIsApartFromOthers) {
  std::vector<unsigned char*> slabs;
  for (int i = 0; i < 20; ++i) {
    slabs.push_back(static_cast<unsigned char*>(AllocSlab()));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(slabs.back()) % kSlabSize, 0u);
    std::memset(slabs.back(), i, kSlabSize);
  }
  for (std::size_t i = 0; i < slabs.size(); ++i) {
    EXPECT_EQ(slabs[i][0], i);
    EXPECT_EQ(slabs[i][kSlabSize - 1], i);
    FreeSlab(slabs[i]);
  }
}

}  // namespace
}  // namespace quarnfc::platform
