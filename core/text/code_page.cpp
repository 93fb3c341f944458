// SPDX-License-Identifier: MIT
#include <quarnfc/string_utils.h>

#include <climits>

#include "platform/code_page.h"

namespace {

using quarnfc::platform::Encoding;
using quarnfc::platform::kTerminated;

// The convention all four converters share. convert(destination, capacity) converts the whole
// zero-terminated source, or asks for the needed count when both are zero.
template <class Char, class Convert>
int ConvertText(const void* source, Char* destination, int capacity, Convert convert) {
  if (source == nullptr || capacity < 0 || capacity == INT_MAX) return 0;
  if (destination == nullptr) return capacity == 0 ? convert(nullptr, 0) : 0;
  if (capacity == 0) return 0;

  const int count = convert(destination, capacity);
  if (count > 0) {
    destination[count - 1] = 0;
    return count;
  }
  // One element beyond the capacity, deliberately: callers reserve it.
  destination[capacity] = 0;
  return capacity + 1;
}

int ToWide(Encoding encoding, const char* source, wchar_t* destination, int capacity) {
  return ConvertText(source, destination, capacity, [=](wchar_t* to, int size) {
    return quarnfc::platform::ToUtf16(encoding, source, kTerminated, to, size);
  });
}

int FromWide(Encoding encoding, const wchar_t* source, char* destination, int capacity) {
  return ConvertText(source, destination, capacity, [=](char* to, int size) {
    return quarnfc::platform::FromUtf16(encoding, source, kTerminated, to, size);
  });
}

}  // namespace

int QNStringUtils::Ansi2Unicode(const char* source, wchar_t* destination, int capacity) {
  return ToWide(Encoding::kAnsi, source, destination, capacity);
}

int QNStringUtils::Unicode2Ansi(const wchar_t* source, char* destination, int capacity) {
  return FromWide(Encoding::kAnsi, source, destination, capacity);
}

int QNStringUtils::UTF82Unicode(const char* source, wchar_t* destination, int capacity) {
  return ToWide(Encoding::kUtf8, source, destination, capacity);
}

int QNStringUtils::Unicode2UTF8(const wchar_t* source, char* destination, int capacity) {
  return FromWide(Encoding::kUtf8, source, destination, capacity);
}
