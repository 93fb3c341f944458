// SPDX-License-Identifier: MIT
// Wildcard patterns: "*" is any run of characters, "?" any one; there is no escape and there are no
// sets.
//
// The pattern is cut at its runs of "*" into segments. The first must stand at the start of the
// text, the last at its end, and each one between at the first place where it fits behind the one
// before. Taking the first place never loses a match, since "*" in front of the next segment takes
// up any distance: so nothing is ever tried again, and the time is at most the product of the two
// lengths. Plain texts, whose bytes are characters in every code page, are compared where they lie;
// others as UTF-16, upper-cased when case does not matter, in scratch buffers that are the only
// memory. Nothing recurses.
#include <quarnfc/string_utils.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>

#include "core/text/multibyte.h"
#include "core/text/transcode.h"

namespace {

constexpr std::size_t kNotFound = static_cast<std::size_t>(-1);

// Compares texts of units; same(a, b) says whether two units are the same character.
//
// Not with string views: off Windows the C library's wide functions, on which their searches rest,
// expect 32-bit characters.
template <class Unit, class Same>
class Matcher {
 public:
  using View = std::span<const Unit>;

  Matcher(View text, Same same) : text_(text), same_(same) {}

  bool Matches(View pattern) const {
    std::size_t star = SegmentLength(pattern);
    if (star == pattern.size()) return pattern.size() == text_.size() && MatchesAt(0, pattern);
    // The first segment stands at the start. Each further one is looked for from where the one
    // before it ended: the first place decides, so the position only ever moves forward.
    if (!MatchesAt(0, pattern.first(star))) return false;
    std::size_t position = star;
    for (;;) {
      pattern = pattern.subspan(star + 1);
      star = SegmentLength(pattern);
      if (star == pattern.size()) break;
      position = FindSegment(position, pattern.first(star));
      if (position == kNotFound) return false;
      position += star;
    }
    // The last segment stands at the end, at or behind the position reached.
    return text_.size() - position >= pattern.size() &&
           MatchesAt(text_.size() - pattern.size(), pattern);
  }

 private:
  // The length of the segment the pattern begins with, up to its first "*" or its end.
  static std::size_t SegmentLength(View pattern) {
    return static_cast<std::size_t>(std::find(pattern.begin(), pattern.end(), Unit{'*'}) -
                                    pattern.begin());
  }

  // Whether the segment stands in the text at position; "?" stands for any character.
  bool MatchesAt(std::size_t position, View segment) const {
    if (text_.size() - position < segment.size()) return false;
    for (std::size_t i = 0; i < segment.size(); ++i) {
      if (segment[i] != Unit{'?'} && !same_(segment[i], text_[position + i])) return false;
    }
    return true;
  }

  std::size_t FindSegment(std::size_t position, View segment) const {
    for (; position + segment.size() <= text_.size(); ++position) {
      if (MatchesAt(position, segment)) return position;
    }
    return kNotFound;
  }

  View text_;
  Same same_;
};

template <class Unit, class Same>
Matcher(std::span<const Unit>, Same) -> Matcher<Unit, Same>;

// The text without its terminator when it is plain.
std::optional<std::span<const char>> AsPlain(const char* text) {
  const char* end = text;
  for (; *end != '\0'; ++end) {
    if (!quarnfc::IsPlainByte(*end)) return std::nullopt;
  }
  return std::span(text, end);
}

bool IsSame(char a, char b) { return a == b; }

bool IsSameLetter(char a, char b) {
  const auto upper = [](char ch) { return ch >= 'a' && ch <= 'z' ? ch - 'a' + 'A' : ch; };
  return upper(a) == upper(b);
}

// Whether plain bytes in front of the first "*" differ, so that there is no match whatever follows.
// Most texts that do not match are told by that.
bool StartsDifferently(const char* pattern, const char* text, bool case_sensitive) {
  const auto same = case_sensitive ? IsSame : IsSameLetter;
  for (; *pattern != '*' && quarnfc::IsPlainByte(*pattern) && quarnfc::IsPlainByte(*text);
       ++pattern, ++text) {
    if (*pattern != '?' && !same(*pattern, *text)) return true;
  }
  return false;
}

bool MatchesPlain(std::span<const char> pattern, std::span<const char> text, bool case_sensitive) {
  return case_sensitive
             ? Matcher(text, [](char a, char b) { return IsSame(a, b); }).Matches(pattern)
             : Matcher(text, IsSameLetter).Matches(pattern);
}

bool MatchesWide(std::span<wchar_t> pattern, std::span<wchar_t> text, bool case_sensitive) {
  if (!case_sensitive) {
    for (const std::span<wchar_t> units : {pattern, text}) {
      quarnfc::platform::ToUpperCase(units.data(), units.size());
    }
  }
  const auto same = [](wchar_t a, wchar_t b) { return a == b; };
  return Matcher(std::span<const wchar_t>(text), same).Matches(pattern);
}

}  // namespace

bool QNStringUtils::StrIsMatching(const char* pattern, const char* text, bool caseSensitive) {
  if (pattern == nullptr || text == nullptr) return false;
  if (StartsDifferently(pattern, text, caseSensitive)) return false;
  const auto plain_pattern = AsPlain(pattern);
  const auto plain_text = AsPlain(text);
  if (plain_pattern && plain_text) return MatchesPlain(*plain_pattern, *plain_text, caseSensitive);
  quarnfc::WideScratch wide_pattern(quarnfc::Encoding::kAnsi, pattern);
  quarnfc::WideScratch wide_text(quarnfc::Encoding::kAnsi, text);
  return MatchesWide(wide_pattern.Units(), wide_text.Units(), caseSensitive);
}
