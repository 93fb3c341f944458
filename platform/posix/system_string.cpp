// System strings: UTF-16 text behind a byte count. The count makes embedded zeros possible and
// stands in the four bytes before the text, where every reader of such strings looks for it.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "platform/posix/platform.h"

namespace {

struct Header {
  std::uint32_t padding;  // keeps the text aligned like the allocation
  std::uint32_t byte_count;
};

constexpr UINT kMaxLength = (UINT32_MAX - sizeof(Header)) / sizeof(OLECHAR) - 1;

Header* HeaderOf(BSTR string) { return reinterpret_cast<Header*>(string) - 1; }

// An uninitialised string of length units and its terminator; null when memory is exhausted.
BSTR Allocate(UINT length) {
  if (length > kMaxLength) {
    return nullptr;
  }
  const std::size_t byte_count = std::size_t{length} * sizeof(OLECHAR);
  auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + byte_count + sizeof(OLECHAR)));
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

BSTR SysAllocStringLen(const OLECHAR* source, UINT length) {
  BSTR string = Allocate(length);
  if (string != nullptr && source != nullptr) {
    std::memcpy(string, source, std::size_t{length} * sizeof(OLECHAR));
  }
  return string;
}

// A null source keeps the old text as far as it fits. The source may be part of the old string.
int SysReAllocStringLen(BSTR* string, const OLECHAR* source, UINT length) {
  if (string == nullptr) {
    return 0;
  }
  BSTR fresh = SysAllocStringLen(source, length);
  if (fresh == nullptr) {
    return 0;
  }
  if (source == nullptr && *string != nullptr) {
    const UINT kept = std::min(length, SysStringLen(*string));
    std::memcpy(fresh, *string, std::size_t{kept} * sizeof(OLECHAR));
  }
  SysFreeString(*string);
  *string = fresh;
  return 1;
}

UINT SysStringLen(BSTR string) {
  return string == nullptr ? 0 : HeaderOf(string)->byte_count / sizeof(OLECHAR);
}

void SysFreeString(BSTR string) {
  if (string != nullptr) {
    std::free(HeaderOf(string));
  }
}
