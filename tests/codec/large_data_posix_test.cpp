// SPDX-License-Identifier: MIT
// Sizes that are negative as an int. The data are zeros that take no memory: pages never written.
#include <quarnfc/hmac_sha256.h>

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <climits>
#include <cstddef>

namespace {

constexpr std::size_t kSize = (std::size_t{1} << 31) + 1;

// As another implementation gives it.
TEST(HmacSha256, DataSizeIsTakenAsUnsigned) {
  void* const zeros =
      mmap(nullptr, kSize, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (zeros == MAP_FAILED) GTEST_SKIP() << "no address space for 2 GiB";
  unsigned char digest[4];
  int length = sizeof(digest);
  QNHMACSHA::qnHMAC_SHA256("key", 3, zeros, INT_MIN + 1, reinterpret_cast<char*>(digest), &length);
  munmap(zeros, kSize);
  EXPECT_EQ(digest[0] << 8 | digest[1], 0x224F);
  EXPECT_EQ(digest[2] << 8 | digest[3], 0x4AFB);
}

}  // namespace
