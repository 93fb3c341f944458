// SPDX-License-Identifier: MIT
// A place in a text, shown to people.
#ifndef QN_TEXT_EXCERPT_H_
#define QN_TEXT_EXCERPT_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace qn {

// The line that a byte offset of UTF-8 text lies in, cut around the place, and below it a line with
// a mark under the place. Without a line end.
std::string Excerpt(std::string_view text, std::size_t offset);

}  // namespace qn

#endif  // QN_TEXT_EXCERPT_H_
