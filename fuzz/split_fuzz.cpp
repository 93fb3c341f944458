// SPDX-License-Identifier: MIT
// Splitting at a separator, and cleaning what it gives: separator, two flags, text.
#include <quarnfc/string_utils.h>

#include <string>
#include <vector>

#include "fuzz/input.h"

namespace {

std::vector<std::string> Split(const std::string& text, char separator) {
  if (text.empty()) return {};
  std::vector<std::string> pieces(1);
  for (const char ch : text) {
    if (ch == separator) {
      pieces.emplace_back();
    } else {
      pieces.back() += ch;
    }
  }
  return pieces;
}

std::vector<std::string> Adjust(const std::vector<std::string>& pieces, bool trim, bool drop) {
  std::vector<std::string> kept;
  for (std::string piece : pieces) {
    while (trim && !piece.empty() && piece.front() == ' ') piece.erase(0, 1);
    while (trim && !piece.empty() && piece.back() == ' ') piece.pop_back();
    if (!drop || !piece.empty()) kept.push_back(piece);
  }
  return kept;
}

void ExpectEqual(const std::vector<char*>& pieces, const std::vector<std::string>& expected) {
  fuzz::Expect(pieces.size() == expected.size());
  for (std::size_t i = 0; i < pieces.size(); ++i) fuzz::Expect(expected[i] == pieces[i]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const char separator = static_cast<char>(input.Byte());
  const int flags = input.Byte();
  const std::string text = input.Text();
  const bool trim = (flags & 1) != 0;
  const bool drop = (flags & 2) != 0;

  std::vector<char*> pieces;
  const int count = QNStringUtils::SplitStr(text.c_str(), separator, pieces);
  const std::vector<std::string> expected = Split(text, separator);
  fuzz::Expect(static_cast<std::size_t>(count) == expected.size());
  ExpectEqual(pieces, expected);
  QNStringUtils::AdjustStrArr(pieces, trim, drop);
  ExpectEqual(pieces, Adjust(expected, trim, drop));
  qnFreeStrArr(pieces);
  fuzz::Expect(pieces.empty());
  fuzz::Expect(qnSplitStr(text.c_str(), separator, pieces) == count);
  ExpectEqual(pieces, expected);
  QNStringUtils::FreeStrArr(pieces);
  return 0;
}
