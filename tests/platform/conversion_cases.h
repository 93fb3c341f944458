// SPDX-License-Identifier: MIT
// Tables of code-page conversions, and the directions they are proved in.
#ifndef QUARNFC_TESTS_PLATFORM_CONVERSION_CASES_H_
#define QUARNFC_TESTS_PLATFORM_CONVERSION_CASES_H_

#include <gtest/gtest.h>

#include <span>
#include <string_view>

#include "tests/support/bytes.h"

namespace quarnfc_test {

struct ConversionCase {
  const char* name;
  std::string_view bytes;
  std::u16string_view text;
};

// Every case's bytes decode to its text.
inline void ExpectDecodes(Encoding encoding, std::span<const ConversionCase> cases) {
  for (const ConversionCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(UnitsOf(c.text), Decode(encoding, c.bytes));
  }
}

// Every case's text encodes to its bytes.
inline void ExpectEncodes(Encoding encoding, std::span<const ConversionCase> cases) {
  for (const ConversionCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(c.bytes, Encode(encoding, c.text));
  }
}

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_PLATFORM_CONVERSION_CASES_H_
