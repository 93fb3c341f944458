// SPDX-License-Identifier: MIT
#include "core/text/format_spec.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <string_view>

namespace quarnfc {
namespace {

bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }

// The decimal number at p, held at INT_MAX when it is larger.
int ReadDigits(const char*& p) {
  long long number = 0;
  for (; IsDigit(*p); ++p) {
    if (number < INT_MAX) number = number * 10 + (*p - '0');
  }
  return number > INT_MAX ? INT_MAX : static_cast<int>(number);
}

void ReadFlagsAndWidth(FormatSpec& spec, const char*& p, Arguments& arguments) {
  bool has_width = false;
  for (;; ++p) {
    switch (*p) {
      case '-':
        spec.left = true;
        break;
      case '+':
        spec.plus = true;
        break;
      case ' ':
        spec.blank = true;
        break;
      case '#':
        ++spec.alternates;
        break;
      case '0':
        spec.zero = true;
        break;
      case '*':
        spec.width = std::max(va_arg(arguments.list, int), -INT_MAX);
        if (spec.width < 0) spec.left = true;
        has_width = true;
        break;
      default: {
        const int width = ReadDigits(p);
        if (!has_width) spec.width = width;
        return;
      }
    }
  }
}

void ReadPrecision(FormatSpec& spec, const char*& p, Arguments& arguments) {
  if (*p != '.') return;
  ++p;
  if (*p == '*') {
    ++p;
    const int precision = va_arg(arguments.list, int);
    spec.precision = precision < 0 ? -1 : precision;
  } else {
    spec.precision = ReadDigits(p);
  }
}

bool Skip(const char*& p, const char* prefix) {
  const std::size_t length = std::strlen(prefix);
  if (std::strncmp(p, prefix, length) != 0) return false;
  p += length;
  return true;
}

void ReadSize(FormatSpec& spec, const char*& p) {
  struct Prefix {
    const char* text;
    ArgumentSize size;
  };
  // Longer prefixes stand before those they begin with.
  static constexpr Prefix kPrefixes[] = {
      {"I64", ArgumentSize::kLongLong}, {"I32", ArgumentSize::kDefault},
      {"I", ArgumentSize::kLongLong},   {"ll", ArgumentSize::kLongLong},
      {"l", ArgumentSize::kLong},       {"hh", ArgumentSize::kChar},
      {"h", ArgumentSize::kShort},      {"z", ArgumentSize::kLongLong},
      {"j", ArgumentSize::kLongLong},   {"t", ArgumentSize::kLongLong},
  };
  constexpr std::string_view kFirstLetters = "FLNIlhzjt";
  if (kFirstLetters.find(*p) == std::string_view::npos) return;
  while (*p == 'F' || *p == 'L' || *p == 'N') ++p;  // without effect
  for (const Prefix& prefix : kPrefixes) {
    if (Skip(p, prefix.text)) {
      spec.size = prefix.size;
      break;
    }
  }
  while (*p == 'F' || *p == 'L' || *p == 'N') ++p;
}

}  // namespace

FormatSpec ReadFormatSpec(const char*& format, Arguments& arguments) {
  FormatSpec spec;
  ReadFlagsAndWidth(spec, format, arguments);
  ReadPrecision(spec, format, arguments);
  ReadSize(spec, format);
  spec.conversion = *format;
  if (*format != '\0') ++format;
  return spec;
}

}  // namespace quarnfc
