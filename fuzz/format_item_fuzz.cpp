// SPDX-License-Identifier: MIT
// One item of a format string against the C library's: five bytes for flags, width, precision, size
// and conversion, eight for a number, then a text. What the library spells as another platform does
// (pointers, what is no finite number, zeros in front of texts) is left out.
#include <quarnfc/qn_string.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/reference.h"

namespace {

constexpr std::string_view kIntegers = "diuoxX";
constexpr std::string_view kTexts = "sc";

bool IsIn(std::string_view set, char ch) { return set.find(ch) != std::string_view::npos; }

// "+" and blank belong to signed numbers, "#" and "0" to some conversions: elsewhere they are
// undefined in C.
std::string FlagsFor(char conversion, unsigned bits) {
  std::string flags;
  if ((bits & 1) != 0) flags += '-';
  const bool is_text = IsIn(kTexts, conversion);
  if (!is_text && (bits & 2) != 0) flags += '0';
  if (!is_text && !IsIn("uoxX", conversion)) flags += std::string_view("\0 ++", 4)[bits >> 2 & 3];
  if (!is_text && !IsIn("diu", conversion) && (bits & 16) != 0) flags += '#';
  std::erase(flags, '\0');
  return flags;
}

// Small ones and, of the largest bytes, those around the last decimal that a number can have.
int PrecisionFrom(unsigned byte) {
  constexpr unsigned kFirstLarge = 247;
  return static_cast<int>(byte < kFirstLarge ? byte / 2 : 1072 + (byte - kFirstLarge) / 2);
}

std::string SpecFrom(fuzz::Input& input, char& conversion, std::string& size) {
  const unsigned bits = input.Byte();
  const unsigned width = input.Byte();
  const unsigned precision = input.Byte();
  const std::string_view sizes[] = {"", "hh", "h", "ll"};
  const std::string_view size_prefix = sizes[input.Byte() % 4];
  const std::string_view conversions = "diuoxXeEfgGsc";
  conversion = conversions[input.Byte() % conversions.size()];
  std::string spec = "%" + FlagsFor(conversion, bits);
  if (width % 2 != 0) spec += std::to_string(width / 2);
  if (precision % 2 != 0 && conversion != 'c') {
    spec += "." + std::to_string(PrecisionFrom(precision));
  }
  size = IsIn(kIntegers, conversion) ? size_prefix : "";
  return spec + size + conversion;
}

// What both make of it. An argument too many does no harm.
template <class... Arguments>
void Check(const std::string& spec, Arguments... arguments) {
  std::vector<char> expected(2048);
  const int length = std::snprintf(expected.data(), expected.size(), spec.c_str(), arguments...);
  fuzz::Expect(length >= 0 && length < static_cast<int>(expected.size()));
  CQNString text;
  text.Format(spec.c_str(), arguments...);
  fuzz::Expect(fuzz::BytesOf(text) ==
               std::string(expected.data(), static_cast<std::size_t>(length)));
}

void CheckNotFinite(const std::string& spec, double value) {
  CQNString text;
  text.Format(spec.c_str(), value);
  text.MakeLower();
  fuzz::Expect(text.Find(std::isnan(value) ? "nan" : "inf") >= 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  char conversion = '\0';
  std::string size_prefix;
  const std::string spec = SpecFrom(input, conversion, size_prefix);
  unsigned long long number = 0;
  for (int i = 0; i < 8; ++i) number = number << 8 | input.Byte();
  if (IsIn("eEfgG", conversion)) {
    double value = 0;
    std::memcpy(&value, &number, sizeof(value));
    if (!std::isfinite(value)) return CheckNotFinite(spec, value), 0;
    Check(spec, value);
  } else if (conversion == 's') {
    Check(spec, input.Text().substr(0, 1000).c_str());
  } else if (conversion == 'c') {
    Check(spec, static_cast<int>(number % 255 + 1));
  } else if (size_prefix == "ll") {
    Check(spec, number);
  } else {
    Check(spec, static_cast<unsigned>(number));
  }
  return 0;
}
