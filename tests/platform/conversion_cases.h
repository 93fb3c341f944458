// Tables of code-page conversions, and the directions they are proved in.
#ifndef QUARNFC_TESTS_PLATFORM_CONVERSION_CASES_H_
#define QUARNFC_TESTS_PLATFORM_CONVERSION_CASES_H_

#include <gtest/gtest.h>

#include <span>
#include <string_view>

#include "tests/platform/bytes.h"

namespace quarnfc_test {

struct ConversionCase {
  const char* name;
  std::string_view bytes;
  std::u16string_view text;
};

// Every case's bytes decode to its text.
inline void ExpectDecodes(UINT code_page, std::span<const ConversionCase> cases) {
  for (const ConversionCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(UnitsOf(c.text), Decode(code_page, c.bytes));
  }
}

// Every case's text encodes to its bytes.
inline void ExpectEncodes(UINT code_page, std::span<const ConversionCase> cases) {
  for (const ConversionCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(c.bytes, Encode(code_page, c.text));
  }
}

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_PLATFORM_CONVERSION_CASES_H_
