// SPDX-License-Identifier: MIT
// JSON written anew: only blanks change, and the spelling of numbers where that is asked for.
#ifndef QN_JSON_LAYOUT_H_
#define QN_JSON_LAYOUT_H_

#include <quarnfc/ext/json_text.h>

#include <string>

namespace qn {

enum class JsonStyle {
  kCompact,  // on one line
  kLibrary,  // as the library's writer: tabs, CR LF, scalars of an array on one line
  kSpaces,   // each item on a line of its own, LF
};

// Containers below this many levels stand on one line whatever the style, so that the text does not
// grow with the square of the depth.
inline constexpr std::size_t kDeepestIndentedLevel = 100;

enum class JsonNumbers {
  kAsSpelled,
  kShort,  // as ShortNumber writes them
};

std::string LayOutJson(const quarnfc::ext::JsonTextNode& root, JsonStyle style,
                       std::size_t spaces = 2, JsonNumbers numbers = JsonNumbers::kAsSpelled);

}  // namespace qn

#endif  // QN_JSON_LAYOUT_H_
