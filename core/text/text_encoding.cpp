// SPDX-License-Identifier: MIT
#include <quarnfc/text_encoding.h>

#include <climits>
#include <new>

#include "platform/code_page.h"

namespace {

using quarnfc::platform::Encoding;

Encoding PlatformEncoding(QNTextUtils::EEncoding encoding) {
  return encoding == QNTextUtils::eUtf8 ? Encoding::kUtf8 : Encoding::kAnsi;
}

int Counted(std::size_t length) {
  if (length > INT_MAX) throw std::bad_alloc();
  return static_cast<int>(length);
}

// convert(destination, capacity) is a converter of the platform, which asks for the count when both
// are zero.
template <class Char, class Convert>
std::size_t ConvertCounted(Char* destination, std::size_t capacity, Convert convert) {
  const int count = convert(nullptr, 0);
  if (count < 1) throw std::bad_alloc();
  const auto needed = static_cast<std::size_t>(count);
  if (destination != nullptr && needed <= capacity) convert(destination, count);
  return needed;
}

}  // namespace

std::size_t QNTextUtils::Decode(EEncoding from, const char* bytes, std::size_t length,
                                wchar_t* units, std::size_t capacity) {
  if (bytes == nullptr || length == 0) return 0;
  return ConvertCounted(units, capacity, [=, count = Counted(length)](wchar_t* to, int size) {
    return quarnfc::platform::ToUtf16(PlatformEncoding(from), bytes, count, to, size);
  });
}

std::size_t QNTextUtils::Encode(EEncoding to, const wchar_t* units, std::size_t length, char* bytes,
                                std::size_t capacity) {
  if (units == nullptr || length == 0) return 0;
  return ConvertCounted(bytes, capacity, [=, count = Counted(length)](char* into, int size) {
    return quarnfc::platform::FromUtf16(PlatformEncoding(to), units, count, into, size);
  });
}

std::size_t QNTextUtils::FindInvalidAnsi(const char* bytes, std::size_t length) {
  if (bytes == nullptr) return length;
  return quarnfc::platform::FindInvalidAnsi(bytes, static_cast<std::size_t>(Counted(length)));
}

std::size_t QNTextUtils::FindLostInAnsi(const wchar_t* units, std::size_t length) {
  if (units == nullptr) return length;
  return quarnfc::platform::FindLostInAnsi(units, static_cast<std::size_t>(Counted(length)));
}
