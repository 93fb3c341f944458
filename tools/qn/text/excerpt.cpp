// SPDX-License-Identifier: MIT
#include "qn/text/excerpt.h"

#include <quarnfc/ext/utf8_text.h>

#include <algorithm>

namespace qn {
namespace {

using quarnfc::ext::Utf8CharLength;

constexpr std::size_t kMostBefore = 40;  // characters
constexpr std::size_t kMostBehind = 35;

// Terminals give two columns to the scripts of East Asia and to pictures: roughly what lies from
// the Hangul letters on, which three bytes with a first byte of E1 84 and above stand for.
std::size_t ColumnsOf(std::string_view ch) {
  const bool wide = ch.size() == 4 || (ch.size() == 3 && (ch >= "\xE2\xBA" && ch < "\xEF\xBF\xA0"));
  return wide ? 2 : 1;
}

std::size_t ColumnsOfText(std::string_view text) {
  std::size_t columns = 0;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = std::max<std::size_t>(Utf8CharLength(text, i), 1);
    columns += ColumnsOf(text.substr(i, length));
    i += length;
  }
  return columns;
}

// The first so many characters.
std::string_view Head(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; count > 0 && end < text.size(); --count) {
    end += std::max<std::size_t>(Utf8CharLength(text, end), 1);
  }
  return text.substr(0, end);
}

std::string Plain(std::string_view text) {
  std::string plain(text);
  std::replace_if(
      plain.begin(), plain.end(), [](char ch) { return ch >= '\0' && ch < ' '; }, ' ');
  return plain;
}

}  // namespace

std::string Excerpt(std::string_view text, std::size_t offset) {
  const std::size_t line_end = std::min(text.find('\n', offset), text.size());
  const std::size_t break_before = offset == 0 ? std::string::npos : text.rfind('\n', offset - 1);
  const std::size_t line_start = break_before == std::string::npos ? 0 : break_before + 1;
  std::string_view before = text.substr(line_start, offset - line_start);
  const std::string_view behind = text.substr(offset, line_end - offset);
  const std::size_t count = quarnfc::ext::CountUtf8Chars(before);
  const bool cut = count > kMostBefore;
  if (cut) before.remove_prefix(Head(before, count - kMostBefore).size());
  const std::string left = (cut ? "    ..." : "    ") + Plain(before);
  const std::string_view right = Head(behind, kMostBehind);
  return left + Plain(right) + (right.size() < behind.size() ? "..." : "") + "\n" +
         std::string(ColumnsOfText(left), ' ') + "^";
}

}  // namespace qn
