// SPDX-License-Identifier: MIT
// Wildcard matching against a matcher by table: pattern, zero, text.
#include <quarnfc/string_utils.h>

#include <string>
#include <vector>

#include "fuzz/input.h"

namespace {

constexpr std::size_t kMaxLength = 300;

std::vector<wchar_t> ToWide(const std::string& text) {
  const int count = QNStringUtils::Ansi2Unicode(text.c_str(), nullptr, 0);
  std::vector<wchar_t> wide(static_cast<std::size_t>(count) + 1);
  QNStringUtils::Ansi2Unicode(text.c_str(), wide.data(), count);
  wide.resize(static_cast<std::size_t>(count) - 1);
  return wide;
}

// Row i of the table tells for every j whether the first i units of the pattern match the first j
// units of the text.
bool MatchesByTable(const std::vector<wchar_t>& pattern, const std::vector<wchar_t>& text) {
  std::vector<char> row(text.size() + 1, 0);
  row[0] = 1;
  for (const wchar_t unit : pattern) {
    std::vector<char> next(row.size(), 0);
    for (std::size_t j = 0; j < row.size(); ++j) {
      if (unit == L'*') {
        next[j] = row[j] != 0 || (j > 0 && next[j - 1] != 0);
      } else {
        next[j] = j > 0 && row[j - 1] != 0 && (unit == L'?' || unit == text[j - 1]);
      }
    }
    row = next;
  }
  return row.back() != 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::string pattern = input.Text();
  const std::string text = input.Text();
  QNStringUtils::StrIsMatching(pattern.c_str(), text.c_str(), false);
  const bool matches = QNStringUtils::StrIsMatching(pattern.c_str(), text.c_str(), true);
  if (pattern.size() <= kMaxLength && text.size() <= kMaxLength) {
    fuzz::Expect(matches == MatchesByTable(ToWide(pattern), ToWide(text)));
  }
  return 0;
}
