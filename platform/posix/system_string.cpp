// SPDX-License-Identifier: MIT
// System strings: UTF-16 text behind a byte count. The count makes embedded zeros possible and
// stands in the four bytes before the text, where every reader of such strings looks for it.
#include "platform/system_string.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace quarnfc::platform {

namespace {

struct Header {
  std::uint32_t padding;  // keeps the text aligned like the allocation
  std::uint32_t byte_count;
};

constexpr unsigned int kMaxLength = (UINT32_MAX - sizeof(Header)) / sizeof(wchar_t) - 1;

Header* HeaderOf(BSTR string) { return reinterpret_cast<Header*>(string) - 1; }

// An uninitialised string of length units and its terminator; null when memory is exhausted.
BSTR Allocate(unsigned int length) {
  if (length > kMaxLength) {
    return nullptr;
  }
  const std::size_t byte_count = std::size_t{length} * sizeof(wchar_t);
  auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + byte_count + sizeof(wchar_t)));
  if (header == nullptr) {
    return nullptr;
  }
  header->padding = 0;
  header->byte_count = static_cast<std::uint32_t>(byte_count);
  BSTR string = reinterpret_cast<BSTR>(header + 1);
  string[length] = 0;
  return string;
}

}  // namespace

BSTR AllocSystemString(const wchar_t* source, unsigned int length) {
  BSTR string = Allocate(length);
  if (string != nullptr && source != nullptr) {
    std::memcpy(string, source, std::size_t{length} * sizeof(wchar_t));
  }
  return string;
}

bool ReallocSystemString(BSTR& string, const wchar_t* source, unsigned int length) {
  BSTR fresh = AllocSystemString(source, length);
  if (fresh == nullptr) {
    return false;
  }
  if (source == nullptr && string != nullptr) {
    const unsigned int kept = std::min(length, SysStringLen(string));
    std::memcpy(fresh, string, std::size_t{kept} * sizeof(wchar_t));
  }
  SysFreeString(string);
  string = fresh;
  return true;
}

void FreeSystemString(BSTR string) noexcept { SysFreeString(string); }

}  // namespace quarnfc::platform

unsigned int SysStringLen(BSTR string) {
  if (string == nullptr) return 0;
  const std::size_t units = quarnfc::platform::HeaderOf(string)->byte_count / sizeof(wchar_t);
  return static_cast<unsigned>(units);
}

void SysFreeString(BSTR string) {
  if (string != nullptr) {
    std::free(quarnfc::platform::HeaderOf(string));
  }
}
