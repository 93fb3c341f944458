#include <quarnfc/string_utils.h>

#include <climits>

#include "platform/platform.h"

namespace {

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

int ToWide(UINT code_page, const char* source, wchar_t* destination, int capacity) {
  return ConvertText(source, destination, capacity, [=](wchar_t* to, int size) {
    return MultiByteToWideChar(code_page, 0, source, -1, to, size);
  });
}

int FromWide(UINT code_page, const wchar_t* source, char* destination, int capacity) {
  return ConvertText(source, destination, capacity, [=](char* to, int size) {
    return WideCharToMultiByte(code_page, 0, source, -1, to, size, nullptr, nullptr);
  });
}

}  // namespace

int QNStringUtils::Ansi2Unicode(const char* source, wchar_t* destination, int capacity) {
  return ToWide(CP_ACP, source, destination, capacity);
}

int QNStringUtils::Unicode2Ansi(const wchar_t* source, char* destination, int capacity) {
  return FromWide(CP_ACP, source, destination, capacity);
}

int QNStringUtils::UTF82Unicode(const char* source, wchar_t* destination, int capacity) {
  return ToWide(CP_UTF8, source, destination, capacity);
}

int QNStringUtils::Unicode2UTF8(const wchar_t* source, char* destination, int capacity) {
  return FromWide(CP_UTF8, source, destination, capacity);
}
