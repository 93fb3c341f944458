// SPDX-License-Identifier: MIT
// What hosts pass to the classes: context values, headers, texts of a request.
#ifndef QUARNFC_NET_ARGUMENTS_H_
#define QUARNFC_NET_ARGUMENTS_H_

#include <quarnfc/platform_types.h>

#include <cstring>

namespace quarnfc::net {

// The context value that means "that of the object above".
constexpr unsigned __int64 kInheritContext = 1;

constexpr unsigned __int64 ResolveContext(unsigned __int64 context, unsigned __int64 inherited) {
  return context == kInheritContext ? inherited : context;
}

// The length that stands for "up to the terminator".
constexpr DWORD kUpToTerminator = 0xFFFFFFFF;

// How many bytes of headers are meant; none of a null text.
inline DWORD HeadersLength(const char* headers, DWORD length) {
  if (headers == nullptr) return 0;
  return length == kUpToTerminator ? static_cast<DWORD>(std::strlen(headers)) : length;
}

// Whether none of the texts, each of which may be null, holds a line end: one in the first line or
// in a header of a request would start a header that the host did not mean.
template <class... Texts>
bool IsOneLine(const Texts*... texts) {
  return ((texts == nullptr || texts[std::strcspn(texts, "\r\n")] == '\0') && ...);
}

// The same for a list that ends with null and may be null itself.
inline bool AreOneLine(const char* const* texts) {
  for (; texts != nullptr && *texts != nullptr; ++texts) {
    if (!IsOneLine(*texts)) return false;
  }
  return true;
}

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_ARGUMENTS_H_
