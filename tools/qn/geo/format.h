// SPDX-License-Identifier: MIT
// Numbers as text, as printf writes them.
#ifndef QN_GEO_FORMAT_H_
#define QN_GEO_FORMAT_H_

#include <algorithm>
#include <cstdio>
#include <string>

namespace qn {

template <class... Arguments>
std::string Format(const char* format, Arguments... arguments) {
  const int length = std::snprintf(nullptr, 0, format, arguments...);
  std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
  std::snprintf(text.data(), text.size() + 1, format, arguments...);
  return text;
}

}  // namespace qn

#endif  // QN_GEO_FORMAT_H_
