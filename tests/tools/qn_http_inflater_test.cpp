// SPDX-License-Identifier: MIT
// Unpacking of compressed bodies in qn http. The packed bytes are those of Python's zlib and gzip.
#include <gtest/gtest.h>

#include <string>

#include "qn/errors.h"
#include "qn/http_inflater.h"

namespace {

constexpr const char* kUnpacked = "small content";
const std::string kDeflated("\x2B\xCE\x4D\xCC\xC9\x51\x48\xCE\xCF\x2B\x49\xCD\x2B\x01\x00", 15);
const std::string kZlib = "\x78\xDA" + kDeflated + "\x23\xF3\x05\x35";
const std::string kGzip = std::string("\x1F\x8B\x08\x00\x00\x00\x00\x00\x02\x03", 10) + kDeflated +
                          std::string("\x19\x69\xBE\xC4\x0D\x00\x00\x00", 8);

std::string Unpacked(const std::string& coding, const std::string& packed, std::size_t step) {
  std::string text;
  qn::HttpInflater inflater(coding);
  for (std::size_t i = 0; i < packed.size(); i += step) {
    inflater.Write(std::string_view(packed).substr(i, step),
                   [&text](std::string_view piece) { text += piece; });
  }
  inflater.Finish();
  return text;
}

bool HasZlib() {
  try {
    return qn::HttpInflater::AcceptEncoding() != nullptr;
  } catch (const qn::Failure&) {
    return false;
  }
}

#define SKIP_WITHOUT_ZLIB() \
  if (!HasZlib()) GTEST_SKIP() << "built without zlib"

TEST(QnHttpInflater, UnpacksEveryCodingFromPiecesOfAnySize) {
  SKIP_WITHOUT_ZLIB();
  struct Case {
    const char* coding;
    std::string packed;
    std::string text;
  };
  const Case cases[] = {
      {"", kUnpacked, kUnpacked},
      {"identity", kUnpacked, kUnpacked},
      {"gzip", kGzip, kUnpacked},
      {"x-gzip", kGzip, kUnpacked},
      {"gzip", kGzip + kGzip, std::string(kUnpacked) + kUnpacked},
      {"deflate", kZlib, kUnpacked},
      {"deflate", kDeflated, kUnpacked},
      {"deflate", kZlib + "more", kUnpacked},
      {"gzip", "", ""},
  };
  for (const Case& c : cases) {
    for (const std::size_t step : {1u, 2u, 7u, 1000u}) {
      EXPECT_EQ(Unpacked(c.coding, c.packed, step), c.text) << c.coding << " by " << step;
    }
  }
}

TEST(QnHttpInflater, RefusesWhatIsBrokenCutOffOrOfAnotherCoding) {
  SKIP_WITHOUT_ZLIB();
  std::string wrong_sum = kGzip;
  wrong_sum[26] ^= 1;
  EXPECT_THROW(Unpacked("gzip", wrong_sum, 5), qn::Failure);
  EXPECT_THROW(Unpacked("gzip", "no gzip at all", 5), qn::Failure);
  for (std::size_t length = 1; length < kGzip.size(); ++length) {
    EXPECT_THROW(Unpacked("gzip", kGzip.substr(0, length), 1000), qn::Failure) << length;
  }
  EXPECT_THROW(qn::HttpInflater("br"), qn::Failure);
}

}  // namespace
