// SPDX-License-Identifier: MIT
// Wildcard patterns: "*" is any run of characters, "?" any one; there is no escape and there are no
// sets.
//
// The pattern is cut at its runs of "*" into segments. The first must stand at the start of the
// text, the last at its end, and each one between at the first place where it fits behind the one
// before. Taking the first place never loses a match, since "*" in front of the next segment takes
// up any distance: so nothing is ever tried again, and the time is at most the product of the two
// lengths. Both texts are compared as UTF-16, upper-cased when case does not matter; these copies
// are the only memory, and nothing recurses.
#include <quarnfc/string_utils.h>

#include <algorithm>
#include <cstddef>
#include <span>

#include "core/text/transcode.h"

namespace {

// Not a string view: off Windows the C library's wide functions, on which its searches rest, expect
// 32-bit characters.
using WideView = std::span<const wchar_t>;
constexpr std::size_t kNotFound = static_cast<std::size_t>(-1);

void ToUpperCase(std::span<wchar_t> text) {
  quarnfc::platform::ToUpperCase(text.data(), text.size());
}

// Whether the segment stands in text at position; "?" stands for any character.
bool MatchesAt(WideView text, std::size_t position, WideView segment) {
  if (text.size() - position < segment.size()) return false;
  for (std::size_t i = 0; i < segment.size(); ++i) {
    if (segment[i] != L'?' && segment[i] != text[position + i]) return false;
  }
  return true;
}

std::size_t FindSegment(WideView text, std::size_t position, WideView segment) {
  for (; position + segment.size() <= text.size(); ++position) {
    if (MatchesAt(text, position, segment)) return position;
  }
  return kNotFound;
}

// The length of the segment the pattern begins with, up to its first "*" or its end.
std::size_t SegmentLength(WideView pattern) {
  return static_cast<std::size_t>(std::find(pattern.begin(), pattern.end(), L'*') -
                                  pattern.begin());
}

bool Matches(WideView pattern, WideView text) {
  std::size_t star = SegmentLength(pattern);
  if (star == pattern.size()) {
    return pattern.size() == text.size() && MatchesAt(text, 0, pattern);
  }
  // The first segment stands at the start. Each further one is looked for from where the one
  // before it ended: the first place decides, so the position only ever moves forward.
  if (!MatchesAt(text, 0, pattern.first(star))) return false;
  std::size_t position = star;
  for (;;) {
    pattern = pattern.subspan(star + 1);
    star = SegmentLength(pattern);
    if (star == pattern.size()) break;
    position = FindSegment(text, position, pattern.first(star));
    if (position == kNotFound) return false;
    position += star;
  }
  // The last segment stands at the end, at or behind the position reached.
  return text.size() - position >= pattern.size() &&
         MatchesAt(text, text.size() - pattern.size(), pattern);
}

}  // namespace

bool QNStringUtils::StrIsMatching(const char* pattern, const char* text, bool caseSensitive) {
  if (pattern == nullptr || text == nullptr) return false;
  quarnfc::WideScratch wide_pattern(quarnfc::Encoding::kAnsi, pattern);
  quarnfc::WideScratch wide_text(quarnfc::Encoding::kAnsi, text);
  if (!caseSensitive) {
    ToUpperCase(wide_pattern.Units());
    ToUpperCase(wide_text.Units());
  }
  return Matches(wide_pattern.Units(), wide_text.Units());
}
